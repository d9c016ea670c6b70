' first part
"
x
