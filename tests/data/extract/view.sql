create view v as
  [select x.@ from t x]