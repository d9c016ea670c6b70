StringBuffer strSQL = new StringBuffer();
SELECT e.ename, d.dname   -- owner's :name 
  FROM emp e 
  JOIN dept d ON d.deptno = e.deptno 
 WHERE e.hiredate > :Bind1 
   AND d.loc = 'NEW :YORK' 
   AND e.job IN (:Bind2, :Bind3) 
