// options: --c++03 --strict --remarks
int d1 = 1'2'; [[noreturn]] void f();
//        ^
// expect: warning #2988 digit separators not enabled, apostrophe begins a character literal
//        ^
// expect: error #66 expected a ";"
const char *u = u8"x"; 
//              ^
// expect: error #20 identifier "u8" is undefined
//                ^
// expect: error #66 expected a ";"
