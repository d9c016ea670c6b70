SELECT e.ename -- owner's :name
  FROM emp e

 WHERE e.hiredate > :since AND d.loc = 'NEW :YORK'
   AND e.job IN (:job1, :job2) AND x := 1;
/
