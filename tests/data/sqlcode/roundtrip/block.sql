BEGIN
	v_path := 'C:\temp\' || :file;
	UPDATE jobs SET note = "it's ~done~" WHERE id = ?;
END;
/