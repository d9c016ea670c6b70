a;
b /
