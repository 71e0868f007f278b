int NAME2 = NAME;
int first_line = 1 % 2.5;
