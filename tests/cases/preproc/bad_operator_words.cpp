// options: --preprocess --c++14 --strict
#define and 1
//      ^
// expect: error #41 expected an identifier
#undef bitor
//     ^
// expect: error #41 expected an identifier
#define MACRO(xor, new) new
//            ^
// expect: error #41 expected an identifier
#ifdef not_eq
//     ^
// expect: error #41 expected an identifier
#endif
#if defined(compl)
//          ^
// expect: error #41 expected an identifier
#endif
#if 1 and and
//        ^
// expect: error #29 expected an expression
#endif
#if defined __VA_ARGS__
//          ^
// expect: error #1023 the identifier __VA_ARGS__ can only appear in the replacement list of a variadic macro
#elif __VA_ARGS__
//    ^
// expect: error #1023 the identifier __VA_ARGS__ can only appear in the replacement list of a variadic macro
#endif
#define new 3
#if new == 3 and not 0
#else
#error new is a name
#endif
