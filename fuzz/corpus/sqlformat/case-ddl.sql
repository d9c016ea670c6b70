Acreate table customers (id integer primary key, name varchar (100) not null, email varchar(200) unique, created_at timestamp default current_timestamp);
CREATE TABLE IF NOT EXISTS order_items (order_id integer NOT NULL REFERENCES orders (id) ON DELETE CASCADE, a_rather_long_column_name_for_a_table numeric(12, 2), qty int CHECK (qty > 0), CONSTRAINT order_items_pk PRIMARY KEY (order_id, qty)) ;
create unique index order_items_ix on order_items using btree (order_id, qty desc);
create index one_ix on orders (customer_id);
create view order_totals (order_id, total) as select order_id, sum(qty) from order_items group by order_id;
create type pair as (first_value text, second_value text);
create table copy_of as select * from customers;
