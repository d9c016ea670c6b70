[select a -- begin ;
, b@ from t]