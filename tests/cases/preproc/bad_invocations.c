// options: --gcc
#define two(a, b) a b
int two(i,) = 1;
int j = two(1, 2, 3);
// expect: error #56 too many
int k = two(1);
// expect: error #55 too few
