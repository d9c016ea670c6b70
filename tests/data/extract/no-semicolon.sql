[select a@ from t
select b from u]