SQL = "select 'it' as x, ~"b~" as y " &
    + "  from t " &
    + " where k = :key "