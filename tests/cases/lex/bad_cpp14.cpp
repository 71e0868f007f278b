// options: --c++14 --g++ --remarks
// Suffixes, separators and raw strings.
#define _x 3
const char *s = "a"_x; int n = 1_x;
//                 ^
// expect: error #66 expected a ";"
//                             ^
// expect: error #1489 a user-defined literal is not supported
int d1 = 1'; int d2 = 0x'1; int d3 = 1''2;
//        ^
// expect: error #2989 digit separator cannot appear here
//                      ^
// expect: error #2989 digit separator cannot appear here
//                                    ^
// expect: error #2989 digit separator cannot appear here
const char *r = R"a b(x)a b"; const char *r2 = R"01234567890123456789(x)01234567890123456789";
//                 ^
// expect: error #2810 invalid character in raw string delimiter
//                                               ^
// expect: error #2811 parenthesis terminating raw string delimiter not found after 16 characters -- raw string indicator ignored
auto m = 'ab'_y; auto st = "a"_y "b"_z;
// expect: error #1489 auto as a type specifier not supported
//       ^
// expect: warning #1696 multicharacter character literal (potential portability problem)
//       ^
// expect: error #2843 a multicharacter literal cannot be part of a user-defined literal
//               ^
// expect: error #1489 auto as a type specifier not supported
//                                  ^
// expect: error #2844 user-defined literal suffix does not match the earlier "_y"
int bad = 12\u0040_;
//          ^
// expect: error #2842 non-identifier character
