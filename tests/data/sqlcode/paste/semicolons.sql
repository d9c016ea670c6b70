a;
b