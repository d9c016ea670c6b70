[select a from t
 where b = 1]

@