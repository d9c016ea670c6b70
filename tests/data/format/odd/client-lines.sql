create table t (a int, constraint k primary key (a), b varchar(2)) ; prompt hi
/
select x%type from y;
\q