[select e.@id, (select 1 from y) as m,]
  (select 2 from z) from e