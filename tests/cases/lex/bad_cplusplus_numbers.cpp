// options: --c++14 --strict
int a1 = 1'000'000, a2 = 0x1'F, a3 = 0b1'0, a4 = 0'17;
double a5 = 1'0.0'1e1'0;
int b1 = 1''0;
// expect: error #2989 digit separator cannot appear here
int b3 = 0x'1;
// expect: error #2989 digit separator cannot appear here
int b4 = 0b'1;
// expect: error #2989 digit separator cannot appear here
double b5 = 1'.0;
// expect: error #2989 digit separator cannot appear here
double b6 = 1.'0;
// expect: error #2989 digit separator cannot appear here
double b7 = 1e'1;
// expect: error #2989 digit separator cannot appear here
double b8 = 1e+'1;
// expect: error #2989 digit separator cannot appear here
int b9 = 12'_x;
// expect: error #2989 digit separator cannot appear here
int c1 = 0b2;
// expect: error #2552 invalid binary number
int c2 = 0b;
// expect: error #2552 invalid binary number
int c3 = 0x;
// expect: error #22 invalid hexadecimal number
int c4 = 08;
// expect: error #24 invalid octal digit
int c5 = 1_x.y;
// expect: error #2842 non-identifier character in user-defined literal suffix
int c6 = 1.2.3;
// expect: error #2842 non-identifier character in user-defined literal suffix
double c7 = 1e;
// expect: error #168 invalid floating constant
double c8 = 1e+;
// expect: error #168 invalid floating constant
double c9 = 0x1.8;
// expect: error #168 invalid floating constant
double d1 = 0x1.8p;
// expect: error #168 invalid floating constant
double d2 = 0x1.8p3;
// expect: error #1593 hexadecimal floating-point constants are not allowed
int d3 = 0xe+1;
// expect: error #2842 non-identifier character in user-defined literal suffix
int d4 = 12ulx;
// expect: error #1489 a user-defined literal is not supported
int d6 = 99999999999999999999;
// expect: error #23 integer constant is too large
int d7 = 99999999999999999999_big;
// expect: error #1489 a user-defined literal is not supported
double d8 = 1e99999_big;
// expect: error #1489 a user-defined literal is not supported
int d9 = 12_\u00e9 + 12_\u12;
// expect: error #1489 a user-defined literal is not supported
// expect: error #1489 a user-defined literal is not supported
// expect: error #1019 incorrectly formed universal character name
// expect: error #66 expected a ";"
