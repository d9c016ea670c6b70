StringBuffer strSQL = new StringBuffer();
:Bind1 :Bind2 :Bind3 :Bind4 ( /* open :x ? ' 
