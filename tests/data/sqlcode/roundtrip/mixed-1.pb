'a :x ? -- /*' ? :rec.field '😀 &x' :p->x -- note :x ? 'q 
/* :x ? ' */ 名前 :名前 x := 1 &amp 
'a :x ? -- /*' , t.col :rec.field select 
:rec.field -- note :x ? 'q 
'it''s' "col ?" : gap :arr[2] /* open :x ? ' 
