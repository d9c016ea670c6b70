a\b
x "y;