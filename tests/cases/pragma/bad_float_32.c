// options: --c99 --abi=eabi --float_operations_allowed=32
// Floating point of another size than the target may use: in interfaces, operations and calls.
float good(float a) { float b = a + 1; b *= a; return b > a ? b++ : -b; }
int pointer(double *p, float f) { return p != 0 && f > 2; }
double value;
double bad_result(void) { return value; }
//     ^
// expect: error #1558 64-bit floating-point operations are not allowed
int bad_parameter(double d) { return 1; }
//  ^
// expect: error #1558 64-bit floating-point operations are not allowed
int bad_operations(float f) {
  value = f;
// expect: error #1558 64-bit floating-point operations are not allowed
//        ^
// expect: error #1558 64-bit floating-point operations are not allowed
  value += 1;
// expect: error #1558 64-bit floating-point operations are not allowed
  return value > f;
//       ^
// expect: error #1558 64-bit floating-point operations are not allowed
//               ^
// expect: error #1558 64-bit floating-point operations are not allowed
}
float bad_cast(void) { return (float)value; }
//                            ^
// expect: error #1558 64-bit floating-point operations are not allowed
int bad_call(void) { return bad_parameter(value); }
//                                        ^
// expect: error #1558 64-bit floating-point operations are not allowed
int bad_initialization(float f) { double d = f; return 1; }
//                                       ^
// expect: error #1558 64-bit floating-point operations are not allowed
//                                           ^
// expect: error #1558 64-bit floating-point operations are not allowed
