// options: --c11 --gcc
// One of the faults of loop pragmas; behind the first error the others are silent.
void loop(int n) {
#pragma UNROLL(0)
//      ^
// expect: error #860 UNROLL parameter must be greater than zero
  for (; n; n--) ;
}
