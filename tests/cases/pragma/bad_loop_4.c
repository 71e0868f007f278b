// options: --c11 --gcc
// One of the faults of loop pragmas; behind the first error the others are silent.
void loop(int n) {
#pragma PROB_ITERATE(1, 2, 3)
//      ^
// expect: error #858 PROB_ITERATE must have one or two parameters
  for (; n; n--) ;
}
