a
y