x = "?" :Bind1 '
