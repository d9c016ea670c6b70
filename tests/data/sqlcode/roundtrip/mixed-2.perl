	:1 , :2 
? Größe 
'~"q"~' 'C:\temp\' /* open :x ? ' 
	:3 more */ = :4 :5 :6 :7 
	t.col 'it''s' a-b