// options: --c11 --gcc
#if __has_feature(c_atomic) + __has_feature() + __has_feature(1) + __has_feature(a b) + __has_attribute(__packed__)
//                            ^
// expect: error #2884 the argument to a feature-test macro must be a simple identifier
//                                              ^
// expect: error #2884 the argument to a feature-test macro must be a simple identifier
//                                                                 ^
// expect: error #2884 the argument to a feature-test macro must be a simple identifier
#endif
#if __has_feature(c_atomic
//                        ^
// expect: error #18 expected a ")"
//  ^
// expect: error #276 improperly terminated macro invocation
#endif
#if __has_feature == 0
#endif
#if __has_include(
//                ^
// expect: error #13 expected a file name
#endif
#if __has_include("x.h"
//                     ^
// expect: error #18 expected a ")"
#endif
#if __has_include(x)
//                ^
// expect: error #13 expected a file name
#endif
#if __has_include()
//                ^
// expect: error #13 expected a file name
#endif
#if __has_include_next("bad_questions.c") && __has_include("bad_questions.c") && __has_include(<bad_questions.c>) == 0
//  ^
// expect: warning #2885 __has_include_next cannot be used in the primary source file
int x;
#endif
#define H "bad_questions.c"
#if __has_include(H)
int y = sizeof x;
#endif
#if __has_include <x>
//                ^
// expect: error #126 expected a "("
#endif
#if __has_include
//               ^
// expect: error #126 expected a "("
#endif
#if __has_include(x) + 1 1
//                ^
// expect: error #13 expected a file name
#endif
#if defined( + 1
//           ^
// expect: error #41 expected an identifier
#endif
#if defined(A + 1
//            ^
// expect: error #18 expected a ")"
#endif
