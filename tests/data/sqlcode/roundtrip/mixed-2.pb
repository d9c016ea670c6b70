	:key , :a#1 
? Größe 
'~"q"~' 'C:\temp\' /* open :x ? ' 
	:名前 more */ = :a#1 :名前 :key :a#1 
	t.col 'it''s' a-b