a
