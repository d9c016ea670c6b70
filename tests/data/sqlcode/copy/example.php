$query = "select 'it' as x, \"b\" as y " 
       . "  from t " 
       . " where k = :1 " ;