StringBuffer strSQL = new StringBuffer();
	:Bind1 , :Bind2 
:Bind3 Größe 
'~"q"~' 'C:\temp\' /* open :x ? ' 
	:Bind4 more */ = :Bind5 :Bind6 :Bind7 :Bind8 
	t.col 'it''s' a-b