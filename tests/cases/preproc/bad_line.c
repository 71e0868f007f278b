// options: --c11 --gcc
#define EMPTY
#line
//   ^
// expect: error #33 expected a line number
#line EMPTY
//         ^
// expect: error #33 expected a line number
#line 0
//    ^
// expect: error #34 invalid line number
#line 1.5
//    ^
// expect: error #33 expected a line number
#line 0x10
//    ^
// expect: error #33 expected a line number
#line -1
//    ^
// expect: error #33 expected a line number
#line 99999999999 "y"
//    ^
// expect: error #34 invalid line number
#line 12 L"z"
//       ^
// expect: error #13 expected a file name
#line 13 zz
//       ^
// expect: error #13 expected a file name
#line 15 "bad_line.c
//       ^
// expect: error #13 expected a file name
