BEGIN
	v_path := 'C:\temp\' || :file; /* :c ? */
	UPDATE jobs SET n = "it's ~x~" WHERE id = ?;
END;
