' first part
"
SQL = "x"
