// options: --c11 --gcc
#define NO_STRING 3
_Pragma(NO_STRING) int a;
// expect: error #1092 expected a string literal
_Pragma(NO_STRING int b;
// expect: error #276 improperly terminated macro invocation

// expect-at-end: error #18 expected a ")"
