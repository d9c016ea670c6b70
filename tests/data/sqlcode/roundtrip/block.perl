BEGIN 
	v_path := 'C:\temp\' || :1; 
	UPDATE jobs SET note = "it's ~done~" WHERE id = ?; 
END