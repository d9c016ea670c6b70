[select a@ as x]
select b from t