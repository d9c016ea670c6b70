'a :x ? -- /*' ? :1 '😀 &x' :2 -- note :x ? 'q 
/* :x ? ' */ 名前 :3 x := 1 :4 
'a :x ? -- /*' , t.col :5 select 
:6 -- note :x ? 'q 
'it''s' "col ?" :7 :8 /* open :x ? ' 
