select * from t where a like 'x\\%' escape '\\' and b = "q"
