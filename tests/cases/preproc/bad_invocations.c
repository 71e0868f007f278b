// options: --gcc
#define two(a, b) a b
int two(i,) = 1;
#define sum(a, b) a + b
int j = sum(1, 2, 3);
// expect: error #56 too many
int k = sum(1);
// expect: error #55 too few
