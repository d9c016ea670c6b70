select a from t where b = 'unterminated
   string