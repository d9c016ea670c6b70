pszSQL = "a " 
         "b " ;