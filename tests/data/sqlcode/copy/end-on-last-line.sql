from t;
