// options: --c11 --gcc
// One of the faults of loop pragmas; behind the first error the others are silent.
void loop(int n) {
#pragma UNROLL(99999999999)
//      ^
// expect: error #1453 integer is out of allowable range for parameter
  for (; n; n--) ;
}
