select a!~b, a!~*b, a~~b, a~*b, a&&b, a@>b, a<@b, a<@>b, a->>'k', a#>>'{k}', a||b, a<=>b, a!=b, a^=b, a::int, (a)::regproc, a :: text [];
select x from t where c&1=1 and d|2<>0 and e<<2>=4 and f %  2 = 0 and g ?| array['a'] and h - -1 = 0;
select id, count(*), varchar(10), plan(0), coalesce (a, b), t.arr[1], cast(x as varchar (20)) from tab;
begin x := y; z => 1; for i in 1..10 loop null; end loop; v emp.sal%type; w t%rowtype; end;
select @@rowcount, @var, #tmp.col, $1, $2::int from dual where a=:b and c=?;
