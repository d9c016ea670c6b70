x' and b = 'y
