declare
  cursor c is [select@ a.id from t a];
begin