select a, 
  from t
  where c
