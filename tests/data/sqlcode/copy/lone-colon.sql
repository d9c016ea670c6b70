a :
b