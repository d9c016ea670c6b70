[select a@ b -- c ; d
 from t];