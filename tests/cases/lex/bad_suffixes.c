// options: --c99 --gcc
int a = 1i, b = 2j;
// expect: error #1715 complex integral types are not supported
// expect: error #1715 complex integral types are not supported
int d = 0x1p3, e = 1lL, f = 18446744073709551615;
// expect: warning #1577 constant is too large for long long; given unsigned long long type (nonstandard)
// expect: warning #70 integer conversion resulted in truncation
unsigned long long g = 18446744073709551616;
// expect: error #23 integer constant is too large
float h = 0x1.0000001p0f;
// expect: warning #1100 floating-point value cannot be represented exactly
int k = 099, l = 0x, m = 1u2, n = 1.5.6, o = 0b12;
// expect: error #24 invalid octal digit
// expect: error #22 invalid hexadecimal number
// expect: error #19 extra text after expected end of number
// expect: error #19 extra text after expected end of number
// expect: error #2552 invalid binary number
