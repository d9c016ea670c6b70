it's
