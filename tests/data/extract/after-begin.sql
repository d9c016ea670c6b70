  BEGIN  
[select x@ from t];