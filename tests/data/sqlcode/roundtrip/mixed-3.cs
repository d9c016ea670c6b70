StringBuilder SB = new StringBuilder();
:Bind1 :Bind2 :Bind3 :Bind4 ( /* open :x ? ' 
