select a, 
  where c
