// options: --c99 --strict --remarks
// What only strict modes say, and universal characters as C99 has them.
int cast(int n) { return (const int)n; }
//                       ^
// expect: warning #193 type qualifier is meaningless on cast type
const char *outside = __func__;
//                    ^
// expect: error #1090 the reserved identifier "__func__" may only be used inside a function
int \u0080 = 1;
//  ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
char c = '\u0085';
//        ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
//       ^
// expect: warning #70 integer conversion resulted in truncation
