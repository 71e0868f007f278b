// options: --c11 --gcc
// One of the faults of loop pragmas; behind the first error the others are silent.
void loop(int n) {
#pragma UNROLL(1, 2)
//      ^
// expect: error #857 UNROLL pragma must have one parameter
  for (; n; n--) ;
}
