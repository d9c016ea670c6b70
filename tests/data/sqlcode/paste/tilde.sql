a "b" 
