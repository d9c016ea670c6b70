a "b"
