// options: --c11 --gcc
double a = __NAN__;
// expect: error #1489 __NAN__ not supported
double b = __INFINITY__;
// expect: error #1489 __INFINITY__ not supported
__complex double c;
__complex__ double d;
_Imaginary double e;
double g = __real 1.0;
double h = __imag 1.0;
double i = __I__;
// expect: error #1489 __I__ not supported
int j = __generic(1);
// expect: error #1489 __generic not supported
double k = __builtin_complex(1.0, 2.0);
// expect: error #1489 __builtin_complex not supported
__zvn_vector_type__ l;
// expect: error #1489 __zvn_vector_type__ not supported
