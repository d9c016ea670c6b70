StringBuffer strSQL = new StringBuffer();
BEGIN 
	v_path := 'C:\temp\' || :Bind1; 
	UPDATE jobs SET note = "it's ~done~" WHERE id = :Bind2; 
END