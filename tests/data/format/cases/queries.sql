-- Orders with their customers, items and a running total.
with recent as (select id, customer_id from orders where created > current_date - 30)
select o.id, c.name, count(i.id) as items, sum(i.price * i.qty) as total,
(select max(p.paid_at) from payments p where p.order_id = o.id) as last_paid
from recent o join customers c on c.id = o.customer_id and c.active = 1
left outer join items i on i.order_id = o.id
where o.id in (select order_id from flags where flag = 'VIP') or exists (select 1 from notes n where n.order_id = o.id)
group by o.id, c.name having count(i.id) > 2 order by total desc limit 10;
select a from t1 union all select b from t2 minus select c from t3;
insert into archive (id, total) select id, total from orders where status = 'done';
delete from orders where id = :id;
update orders o set status = 'late', total = total * 1.1 where o.due < sysdate and o.status in ('new', 'paid');
