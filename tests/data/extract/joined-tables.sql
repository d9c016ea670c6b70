[select a.x, b.y
  from tab_a a, tab_b b
 where a.@
   and b.z = 1];
select 2 from dual