SQL = "a = :x " 
SQL = SQL +  "/* :c " 
SQL = SQL +  " :d */ &e, x := 1, : "