a 'b' c
