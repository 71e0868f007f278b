// options: --c11 --gcc
// Types that are read and have no form yet are told wherever they would need one; where nothing
// needs them, as in the prototypes of headers, they stay.
double _Complex unused(double _Complex z);
double _Complex object;
//              ^
// expect: error #1489 a complex type is not supported
float _Complex *pointer;
//              ^
// expect: error #1489 a complex type is not supported
struct with_member {
  double _Complex member;
//                ^
// expect: error #1489 a complex type is not supported
} in_struct;
double _Complex (*call)(int);
//                ^
// expect: error #1489 a complex type is not supported
int parameter(double _Complex z) { return 0; }
//  ^
// expect: error #1489 a complex type is not supported
