// options: --c99 --abi=eabi --float_operations_allowed=64
// Only doubles.
float good(float a) { float b = a + 1; b *= a; return b > a ? b++ : -b; }
//    ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                          ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                              ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                                     ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                                                    ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                                                            ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                                                                  ^
// expect: error #1558 32-bit floating-point operations are not allowed
int pointer(double *p, float f) { return p != 0 && f > 2; }
//  ^
// expect: error #1558 32-bit floating-point operations are not allowed
//                                                 ^
// expect: error #1558 32-bit floating-point operations are not allowed
double value;
double bad_result(void) { return value; }
int bad_parameter(double d) { return 1; }
