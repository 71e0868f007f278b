int bad = 1 % 2.5;
