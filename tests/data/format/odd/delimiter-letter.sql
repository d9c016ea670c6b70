delimiter s
SET x = 1 s
select 'its' from Sys s