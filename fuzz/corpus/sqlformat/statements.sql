select a.id, b.name, count(*) as n, nvl(c.x, 0) total from orders a join customers b on a.cid = b.id and b.active = 1 left outer join items c on c.oid = a.id where a.date between :d1 and :d2 and (a.status = 'OPEN' or a.status = 'HELD') and a.id in (select oid from lines where qty > -1) -- trailing note
group by a.id, b.name order by 3 desc;
/* header comment */
insert into t (a, b) values (1, 'x''y'), (2, N'ünï');
update t set a = 1, b = q'[it's]' where id = :id;
select * from (select x, y from z union all select x, y from w) q where q.x = 1;
