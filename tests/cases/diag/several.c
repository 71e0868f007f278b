int a = undef1;
int b = undef2;
int c(int d) { if (d = 1) return "x"; }
int e = undef3;
