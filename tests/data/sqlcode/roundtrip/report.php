SELECT e.ename, d.dname   -- owner's :name 
  FROM emp e 
  JOIN dept d ON d.deptno = e.deptno 
 WHERE e.hiredate > :1 
   AND d.loc = 'NEW :YORK' 
   AND e.job IN (:2, :3) 
