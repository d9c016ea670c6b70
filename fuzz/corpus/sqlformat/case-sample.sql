A-- Quillbox sample script: a small order-tracking schema and a few queries.

create table customers (
    id          integer primary key,
    name        varchar(100) not null,
    email       varchar(200) unique,
    created_at  timestamp default current_timestamp
);

create table orders (
    id           integer primary key,
    customer_id  integer not null references customers (id),
    status       varchar(20) default 'new',
    total        numeric(12, 2)
);

/* Customers with their order count and revenue,
   most valuable first. */
select c.id,
       c.name,
       count(o.id)            as order_count,
       coalesce(sum(o.total), 0) as revenue
  from customers c
  left join orders o on o.customer_id = c.id
 where c.created_at >= :since
 group by c.id, c.name
 order by revenue desc;

update orders
   set status = 'shipped'
 where id = :order_id
   and status = 'paid';
