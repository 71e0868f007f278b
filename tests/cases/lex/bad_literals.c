// options: --c99
int a = 08;
//       ^
// expect: error #24 invalid octal digit
int b = 0x;
//        ^
// expect: error #22 invalid hexadecimal number
int c = 1.5.2;
//         ^
// expect: error #19 extra text after expected end of number
int d = 12abc;
//        ^
// expect: error #19 extra text after expected end of number
int e = 99999999999999999999;
//      ^
// expect: error #23 integer constant is too large
int f = '';
//      ^
// expect: error #25 quoted string should contain at least one character
int g = 'abcde';
//      ^
// expect: warning #1923 too many characters in character literal -- extra leading characters ignored
char *h = "unclosed;
//        ^
// expect: error #8 missing closing quote
double j = 1e;
//          ^
// expect: error #168 invalid floating constant
double k = 1e999;
//         ^
// expect: error #30 floating constant is out of range
int l = '\q';
//       ^
// expect: warning #194 unrecognized character escape sequence
int m = '\xfff';
//       ^
// expect: warning #27 character value is out of range
int o = 0b2;
//        ^
// expect: error #2552 invalid binary number
char *q = "\u12";
//             ^
// expect: error #1019 incorrectly formed universal character name
int r = 1u2;
//        ^
// expect: error #19 extra text after expected end of number
