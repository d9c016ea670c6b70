-- Quillbox sample database: the order-tracking schema that samples/sample.sql queries, with a
-- few rows. Editing sample.sql against this database exercises object completion: table
-- names, columns through aliases (c.name, o.total) and the two views.

create table customers (
    id          integer primary key,
    name        varchar(100) not null,
    email       varchar(200) unique,
    created_at  timestamp default current_timestamp
);

create table products (
    id          integer primary key,
    sku         varchar(32) not null unique,
    name        varchar(100) not null,
    unit_price  numeric(10, 2) not null,
    in_stock    integer not null default 0
);

create table orders (
    id           integer primary key,
    customer_id  integer not null references customers (id),
    status       varchar(20) default 'new',
    ordered_at   timestamp default current_timestamp,
    total        numeric(12, 2)
);

create table order_lines (
    id          integer primary key,
    order_id    integer not null references orders (id),
    product_id  integer not null references products (id),
    quantity    integer not null check (quantity > 0),
    unit_price  numeric(10, 2) not null
);

create index order_lines_order on order_lines (order_id);

-- Customers with their order count and revenue.
create view customer_revenue as
select c.id          as customer_id,
       c.name        as customer_name,
       count(o.id)   as order_count,
       coalesce(sum(o.total), 0) as revenue
  from customers c
  left join orders o on o.customer_id = c.id
 group by c.id, c.name;

-- Orders not yet shipped, with their line count.
create view open_orders as
select o.id          as order_id,
       o.customer_id,
       o.status,
       o.ordered_at,
       count(l.id)   as line_count
  from orders o
  join order_lines l on l.order_id = o.id
 where o.status in ('new', 'paid')
 group by o.id;

insert into customers (id, name, email, created_at) values
    (1, 'Ada Byrne',    'ada@example.com',    '2024-01-15 09:30:00'),
    (2, 'Tomas Lindqvist', 'tomas@example.com', '2024-02-02 14:05:00'),
    (3, 'Mei Okafor',   'mei@example.com',    '2024-03-21 11:45:00');

insert into products (id, sku, name, unit_price, in_stock) values
    (1, 'PEN-BLK', 'Black pen',     1.50, 400),
    (2, 'NTB-A5',  'A5 notebook',   4.90, 120),
    (3, 'STP-RED', 'Red stapler',  12.00,  15);

insert into orders (id, customer_id, status, ordered_at, total) values
    (1, 1, 'shipped', '2024-02-01 10:00:00', 17.40),
    (2, 1, 'paid',    '2024-04-10 16:20:00', 12.00),
    (3, 2, 'new',     '2024-04-11 08:15:00',  9.80);

insert into order_lines (id, order_id, product_id, quantity, unit_price) values
    (1, 1, 1, 4,  1.50),
    (2, 1, 2, 2,  4.90),
    (3, 2, 3, 1, 12.00),
    (4, 3, 2, 2,  4.90);
