// options: --c11 --gcc
int i1 = 0, i2 = 00, i3 = 0x0, i4 = 0XaF, i5 = 0b101, i6 = 017;
int i7 = 09;
//        ^
// expect: error #24 invalid octal digit
int i8 = 018;
//         ^
// expect: error #24 invalid octal digit
int i9 = 0xg;
//         ^
// expect: error #22 invalid hexadecimal number
int i10 = 0b;
//          ^
// expect: error #2552 invalid binary number
int i11 = 0b102;
//            ^
// expect: error #2552 invalid binary number
int i12 = 1lul;
//           ^
// expect: error #19 extra text after expected end of number
int i13 = 1uLL, i14 = 1LLu, i15 = 1lu;
int i16 = 1lL;
int i17 = 1lll;
//           ^
// expect: error #19 extra text after expected end of number
int i18 = 1uu;
//          ^
// expect: error #19 extra text after expected end of number
int i19 = 1z;
//         ^
// expect: error #19 extra text after expected end of number
int i20 = 1_000;
//         ^
// expect: error #19 extra text after expected end of number
int i21 = 0x1.8;
//             ^
// expect: error #168 invalid floating constant
double d1 = 1., d2 = .5, d3 = 1e5, d4 = 1.e-5, d5 = 1E+5, d6 = 0x1p3, d7 = 0x.8p-1;
double d8 = 1.5ff;
//              ^
// expect: error #19 extra text after expected end of number
double d9 = 1.5u;
//             ^
// expect: error #19 extra text after expected end of number
double d10 = 1e+;
//            ^
// expect: error #168 invalid floating constant
double d11 = 0x1.p;
//               ^
// expect: error #168 invalid floating constant
double d12 = 0x.p1;
//              ^
// expect: error #22 invalid hexadecimal number
double d13 = 1.2.3;
//              ^
// expect: error #19 extra text after expected end of number
double d14 = 1e5.5;
//              ^
// expect: error #19 extra text after expected end of number
double d15 = 08.5, d16 = 09e1;
float f1 = 1.0f, f2 = 1.F;
float f3 = 1f;
//          ^
// expect: error #19 extra text after expected end of number
long double l1 = 1.0l, l2 = 1.L;
long long ll1 = 9223372036854775807, ll2 = 0xffffffffffffffff;
//                                         ^
// expect: warning #69 integer conversion resulted in a change of sign
long long ll3 = 18446744073709551615;
//              ^
// expect: warning #1577 constant is too large for long long; given unsigned long long type (nonstandard)
//              ^
// expect: warning #69 integer conversion resulted in a change of sign
long long ll4 = 18446744073709551616;
//              ^
// expect: error #23 integer constant is too large
long long ll5 = 0x10000000000000000;
//              ^
// expect: error #23 integer constant is too large
long long ll6 = 01777777777777777777777;
//              ^
// expect: warning #69 integer conversion resulted in a change of sign
long long ll7 = 02000000000000000000000;
//              ^
// expect: error #23 integer constant is too large
int i22 = 0x1e+1;
//            ^
// expect: error #19 extra text after expected end of number
int i23 = 0x1f+1;
int i24 = 12$;
//          ^
// expect: error #19 extra text after expected end of number
int i25 = 3in;
//          ^
// expect: error #19 extra text after expected end of number
