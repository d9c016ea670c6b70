s = "select a, \
  from t\
  where c";