// options: --c11 --gcc
// One of the faults of loop pragmas; behind the first error the others are silent.
void loop(int n) {
#pragma MUST_ITERATE(1, 2, 3, 4)
//      ^
// expect: error #859 MUST_ITERATE must have one, two or three parameters
  for (; n; n--) ;
}
