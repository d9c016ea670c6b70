x;
