// options: --gcc
#define two(a, b) a b
int two(i,) = 1;
#define pick(a, b) a
int j = pick(1, 2, 3);
// expect: error #56 too many
int k = pick(1);
// expect: error #55 too few
