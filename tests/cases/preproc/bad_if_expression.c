// options: --gcc
#if 1 / 0
// expect: error #40 zero
//    ^
#endif
#if (1
// expect: error #18 ")"
#endif
int x;
