// options: --c11 --gcc
// Words of types and constants that have no form yet.
double constant = 1.0i;
//                ^
// expect: error #1489 a complex constant is not supported
_Atomic int atomic;
// expect: error #1489 _Atomic not supported
int sized(int n) {
  int array[n];
//          ^
// expect: error #1489 a variable-length array is not supported
  return 0;
}
