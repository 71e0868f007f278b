// options: --c11 --gcc
#define YES 1
#if 0
#else
#else
// expect: error #39 directive is not allowed -- an #else has already appeared
#endif
#if 1
#else
#else
// expect: error #39 directive is not allowed -- an #else has already appeared
#endif
#if 1
#else
#elif 1
// expect: error #39 directive is not allowed -- an #else has already appeared
#endif
#if 0
#else
#elif 0
// expect: error #39 directive is not allowed -- an #else has already appeared
#endif
#if 0
#if 1
#else
#else
// expect: error #39 directive is not allowed -- an #else has already appeared
#endif
#elif 1
int taken;
#elif 1 / 0
#else junk
#endif junk
//     ^
// expect: warning #14 extra text after expected end of preprocessing directive
#ifdef
//    ^
// expect: error #41 expected an identifier
#endif
#ifdef 1
//     ^
// expect: warning #41 expected an identifier
#endif
#ifdef YES NO
//         ^
// expect: warning #14 extra text after expected end of preprocessing directive
#endif
#ifndef "x"
//      ^
// expect: error #41 expected an identifier
#endif
#ifdef (YES)
//     ^
// expect: error #41 expected an identifier
#endif
#elif 1
// expect: error #37 the #if for this directive is missing
#else
// expect: error #37 the #if for this directive is missing
#endif
// expect: error #37 the #if for this directive is missing
#if 0
#bogus
#define
#if
#error not here
#include <not here>
#elif
#endif
#endif
#unknown word
// expect: error #11 unrecognized preprocessing directive
# 
#define EMPTY
#EMPTY
// expect: error #11 unrecognized preprocessing directive
#undef
//    ^
// expect: error #41 expected an identifier
#undef 1
//     ^
// expect: error #41 expected an identifier
#undef YES NO
//         ^
// expect: warning #14 extra text after expected end of preprocessing directive
#undef YES
#undef YES
#undef defined
//     ^
// expect: error #46 #undef may not be used on this predefined name
#undef __FILE__
#warning a warning with 'a lone quote
// expect: warning #1181 #warning directive: a warning with 'a lone quote
#warning
// expect: warning #1181 #warning directive: 
#ident "x"
// expect: error #11 unrecognized preprocessing directive
#sccs "x"
// expect: error #11 unrecognized preprocessing directive
#import "x"
// expect: error #11 unrecognized preprocessing directive
#assert x(y)
// expect: error #11 unrecognized preprocessing directive
  # define INDENTED 1
int taken_again = sizeof taken + INDENTED;
#if YES
// expect: error #38 the #endif for this directive is missing
