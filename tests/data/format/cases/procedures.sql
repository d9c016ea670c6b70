SET SERVEROUTPUT ON
PROMPT Creating the package body
CREATE OR REPLACE PACKAGE BODY emp_pkg AS
g_count NUMBER := 0;
FUNCTION get_sal(p_id IN employees.employee_id%TYPE) RETURN employees.salary%TYPE IS
v_sal employees.salary%TYPE;
CURSOR c_sal IS SELECT salary FROM employees WHERE employee_id = p_id;
BEGIN
OPEN c_sal; FETCH c_sal INTO v_sal;
IF c_sal%NOTFOUND THEN v_sal := 0; ELSIF v_sal > 10000 THEN v_sal := 10000; ELSE NULL; END IF;
CLOSE c_sal; RETURN v_sal;
EXCEPTION WHEN NO_DATA_FOUND THEN RETURN NULL; WHEN OTHERS THEN RAISE;
END get_sal;
PROCEDURE raise_all(p_pct NUMBER) IS
BEGIN
FOR r IN (SELECT employee_id, salary FROM employees WHERE department_id = 10) LOOP
UPDATE employees SET salary = salary * (1 + p_pct / 100) WHERE employee_id = r.employee_id;
CASE WHEN p_pct > 10 THEN g_count := g_count + 1; ELSE NULL; END CASE;
END LOOP;
<<countdown>>
WHILE g_count > 0 LOOP g_count := g_count - 1; EXIT countdown WHEN g_count = 5; END LOOP;
END raise_all;
END emp_pkg;
/
SHOW ERRORS
DECLARE v_total NUMBER; BEGIN SELECT SUM(salary) INTO v_total FROM employees; DBMS_OUTPUT.PUT_LINE('Total: ' || v_total); END;
/
CREATE OR REPLACE TRIGGER emp_audit BEFORE UPDATE ON employees FOR EACH ROW BEGIN :new.changed_at := SYSDATE; END;
/
@other_script.sql
REM done
