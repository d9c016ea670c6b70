SELECT e.ename, d.dname   -- owner's :name 
  FROM emp e 
  JOIN dept d ON d.deptno = e.deptno 
 WHERE e.hiredate > :since 
   AND d.loc = 'NEW :YORK' 
   AND e.job IN (:job1, :job2) 
