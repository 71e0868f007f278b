// options: --c99 --check_misra=none,19.1,19.8,19.9,19.14,19.16,4.2 --trigraphs
// status: 4
int before;
#define two(a, b) a + b
int missing = two(1);
//                 ^
// expect: warning #1429 (MISRA-C:2004 19.8/R) A function-like macro shall not be invoked without all of its arguments
//                  ^
// expect: error #29 expected an expression
int directive = two(1,
#define inside 2
// expect: warning #1480 (MISRA-C:2004 19.9/R) Arguments to a function-like macro shall not contain tokens that look like preprocessing directives
  2);
#define is_defined defined
#if defined 3
//          ^
// expect: error #1432 (MISRA-C:2004 19.14/R) The defined preprocessor operator shall only be used in one of the two standard forms
#endif
#if 0
#zork
// expect: warning #1433 (MISRA-C:2004 19.16/R) Preprocessing directives shall be syntactically meaningful even when excluded by the preprocessor
#endif
const char *t = "??!";
// expect: warning #1457 (MISRA-C:2004 4.2/R) Trigraphs shall not be used
#pragma CHECK_MISRA("19.3")
#include zork
// expect: warning #1425 (MISRA-C:2004 19.1/A) #include statements in a file should only be preceded by other preprocessor directives or comments
// expect: fatal error #1427 (MISRA-C:2004 19.3/R) The #include directive shall be followed by either a <filename> or "filename" sequence
