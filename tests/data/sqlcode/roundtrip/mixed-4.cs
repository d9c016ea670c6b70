StringBuilder SB = new StringBuilder();
:Bind1 
