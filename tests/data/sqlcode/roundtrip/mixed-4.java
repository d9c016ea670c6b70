StringBuffer strSQL = new StringBuffer();
:Bind1 
