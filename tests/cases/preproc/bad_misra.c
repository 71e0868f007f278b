// options: --c99 --check_misra=none,4,7.1,19,-19.2,-19.4,-19.10,-19.17
// The rules of literals, macros and directives.
int octal = 017, zero = 0;
//          ^
// expect: warning #1382 (MISRA-C:2004 7.1/R) Octal constants (other than zero) and octal escape sequences shall not be used
char escape = '\q', wide[] = "\07";
//             ^
// expect: warning #1456 (MISRA-C:2004 4.1/R) Only those escape sequences that are defined in the ISO C standard shall be used
//                            ^
// expect: warning #1382 (MISRA-C:2004 7.1/R) Octal constants (other than zero) and octal escape sequences shall not be used
#define FUNCTION(a) (a)
//      ^
// expect: warning #1428 (MISRA-C:2004 19.7/A) A function should be used in preference to a function-like macro
#define STRING(a) #a
//      ^
// expect: warning #1428 (MISRA-C:2004 19.7/A) A function should be used in preference to a function-like macro
//                ^
// expect: warning #1482 (MISRA-C:2004 19.13/A) The # and ## operators should not be used
#define PASTE(a, b) a ## b ## a
//      ^
// expect: warning #1428 (MISRA-C:2004 19.7/A) A function should be used in preference to a function-like macro
//                    ^
// expect: warning #1482 (MISRA-C:2004 19.13/A) The # and ## operators should not be used
//                         ^
// expect: warning #1482 (MISRA-C:2004 19.13/A) The # and ## operators should not be used
//                         ^
// expect: warning #1481 (MISRA-C:2004 19.12/R) There shall be at most one occurrence of the # or ## operators in a single macro definition
#undef FUNCTION
// expect: warning #1479 (MISRA-C:2004 19.6/R) #undef shall not be used
int directive(int FUNCTION) {
#define IN_BLOCK 1
//      ^
// expect: warning #1478 (MISRA-C:2004 19.5/R) Macros shall not be #define'd or #undef'd within a block
#if UNKNOWN
//  ^
// expect: warning #1431 (MISRA-C:2004 19.11/R) All macro identifiers in preprocessor directives shall be defined before use
#endif
  return FUNCTION;
}
#pragma CHECK_MISRA("none")
#define SILENT(a) (a)
#pragma CHECK_MISRA("19.7, -7")
#define HEARD(a) (a)
//      ^
// expect: warning #1428 (MISRA-C:2004 19.7/A) A function should be used in preference to a function-like macro
int silent = 017;
#pragma RESET_MISRA("7.1")
int heard = 017;
//          ^
// expect: warning #1382 (MISRA-C:2004 7.1/R) Octal constants (other than zero) and octal escape sequences shall not be used
#pragma RESET_MISRA("-7.1")
//      ^
// expect: error #821 badly formed pragma
#pragma RESET_MISRA("none")
//      ^
// expect: error #821 badly formed pragma
#pragma CHECK_MISRA(7)
//                  ^
// expect: error #821 badly formed pragma
