SQL = "select 'it' as x, ""b"" as y " 
SQL = SQL +  "  from t " 
SQL = SQL +  " where k = :key "