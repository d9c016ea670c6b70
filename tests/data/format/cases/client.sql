\set ON_ERROR_STOP on
\echo Loading...
select :'name' as name, :count + 1 \gset
DELIMITER //
CREATE PROCEDURE p(IN n INT) BEGIN DECLARE i INT DEFAULT 0; WHILE i < n DO SET i = i + 1; END WHILE; IF i > 5 THEN SELECT 'big'; END IF; END //
DELIMITER ;
CALL p(3);
DEFINE owner = scott
SPOOL out.log
WHENEVER SQLERROR EXIT FAILURE
select * from &owner..emp
/
SPOOL OFF
GO
