StringBuffer strSQL = new StringBuffer();
select 'it' as x, "b" as y 
  from t 
 where k = :Bind1 
