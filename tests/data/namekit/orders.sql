create table customers (id integer primary key, name text, email text);
create table orders (id integer primary key, customer_id integer, status text, total numeric);
create table order_lines (id integer primary key, order_id integer, product_id integer,
                          quantity integer, price numeric);
create table products (id integer primary key, name text, price numeric);
create table "Order Notes" ("Note Id" integer, "Note Text" text, plain text);
create view customer_totals as
    select c.id, c.name, sum(o.total) as revenue from customers c join orders o
    on o.customer_id = c.id group by c.id;
create view open_orders as select id, status from orders where status <> 'shipped';
