// options: --c11 --gcc
int \u00e9t\u00e9 = 1, été = 2;
//                           ^
// expect: error #150 variable "été" has already been initialized
int $dollar = 1, a$b = 2;
int \u0041 = 1;
//  ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
int a\u0024c = 3;
//   ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
int \u0030x = 1;
//  ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
int x\u0300y = 1;
int \u0300 = 1;
//  ^
// expect: error #1022 universal character name is not allowed in an identifier
int \ud800 = 1;
//  ^
// expect: error #1930 a universal character name cannot designate a surrogate code point
int \U00110000 = 1;
//  ^
// expect: error #2484 a universal character name cannot designate a value above 0x10FFFF
int \u12 = 1;
//      ^
// expect: error #1019 incorrectly formed universal character name
int \x = 1;
//  ^
// expect: error #7 unrecognized token
int @ = 1;
//  ^
// expect: error #7 unrecognized token
int a ` b;
//    ^
// expect: error #7 unrecognized token
int c = 1 # 2;
//        ^
// expect: error #10 "#" not expected here
int d = 1 @ 2;
//        ^
// expect: error #7 unrecognized token
int f(void) { return été + \u00e9t\u00e9 + a$c; }
int ‰ = 3;
//  ^
// expect: error #7 unrecognized token
