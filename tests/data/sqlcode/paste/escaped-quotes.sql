a "b" c
