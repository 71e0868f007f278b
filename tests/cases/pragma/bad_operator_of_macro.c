// options: --c11 --gcc
#define NO_STRING 3
_Pragma(NO_STRING) int a;
// expect: error #1092 expected a string literal
#define EMPTY
#define NOTHING EMPTY
_Pragma(NOTHING) int b;
// expect: error #1092 expected a string literal
_Pragma(NO_STRING int c;
// expect: error #276 improperly terminated macro invocation

// expect-at-end: error #18 expected a ")"
