// options: --c11 --gcc
// A local object of a type without a form is told although nothing uses it.
int local(void) {
  double _Complex z;
//                ^
// expect: error #1489 a complex type is not supported
  return sizeof z;
}
