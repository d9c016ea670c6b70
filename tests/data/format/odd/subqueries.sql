select * from (select x from z union all select y from w) q where q.x in (select 1 from dual) -- end
