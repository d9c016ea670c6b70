StringBuilder SB = new StringBuilder();
'a :x ? -- /*' :Bind1 :Bind2 '😀 &x' :Bind3 -- note :x ? 'q 
/* :x ? ' */ 名前 :Bind4 x := 1 :Bind5 
'a :x ? -- /*' , t.col :Bind6 select 
:Bind7 -- note :x ? 'q 
'it''s' "col ?" :Bind8 :Bind9 /* open :x ? ' 
