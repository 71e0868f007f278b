// options: --c99
#define
//     ^
// expect: error #41 expected an identifier
#define 1x
//      ^
// expect: error #41 expected an identifier
#define f(
//        ^
// expect: error #41 expected an identifier
#define g(a
//         ^
// expect: error #18 expected a ")"
#define h(a,) a
//          ^
// expect: error #41 expected an identifier
#define k(a b) a
//          ^
// expect: error #18 expected a ")"
#define l(..., a) a
//           ^
// expect: error #18 expected a ")"
#define m(a...) a
#define n() #x
//           ^
// expect: error #53 expected a macro parameter name
#define o(a) # a a
#define p(a) #
//           ^
// expect: error #53 expected a macro parameter name
#define q ##
//        ^
// expect: error #51 "##" may not be first in a macro definition
#define r(a) a ##
//               ^
// expect: error #52 "##" may not be last in a macro definition
#define defined 1
//      ^
// expect: error #47 "defined" is predefined; attempted redefinition ignored
#define __FILE__ 2
//      ^
// expect: error #47 "__FILE__" is predefined; attempted redefinition ignored
#undef
//    ^
// expect: error #41 expected an identifier
#undef 1
//     ^
// expect: error #41 expected an identifier
#undef x y
//       ^
// expect: warning #14 extra text after expected end of preprocessing directive
#define redefined 1
#define redefined 2
//      ^
// expect: warning #48 incompatible redefinition of macro "redefined"
#ifdef
//    ^
// expect: error #41 expected an identifier
#endif extra
//     ^
// expect: warning #14 extra text after expected end of preprocessing directive
#if
// ^
// expect: error #29 expected an expression
#endif
#if 1 +
//     ^
// expect: error #29 expected an expression
#endif
#if (1
//    ^
// expect: error #18 expected a ")"
#endif
#if 1 2
//    ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if 1.5
//  ^
// expect: error #31 expression must have integral type
#endif
#if "abc"
//  ^
// expect: error #31 expression must have integral type
#endif
#else
// expect: error #37 the #if for this directive is missing
#elif 1
// expect: error #37 the #if for this directive is missing
#endif
// expect: error #37 the #if for this directive is missing
#line
//   ^
// expect: error #33 expected a line number
#line 0x10
//    ^
// expect: error #33 expected a line number
#line 3 4
//      ^
// expect: error #13 expected a file name
#unknown
// expect: error #11 unrecognized preprocessing directive
#pragma
//     ^
// expect: warning #163 unrecognized #pragma
int a = __VA_ARGS__;
//      ^
// expect: error #1023 the identifier __VA_ARGS__ can only appear in the replacement list of a variadic macro
//      ^
// expect: error #20 identifier "__VA_ARGS__" is undefined
