[select x@ from t /* open
where 'y]