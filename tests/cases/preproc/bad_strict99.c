/* options: --c99 --strict */
// a comment
#define v(...) __VA_ARGS__
#define w(a...) a
//         ^
// expect: error #18 expected a ")"
#define x(a, ...) f(a, ## __VA_ARGS__)
#define y(a) = a
#define nospace+1
//             ^
// expect: error #1921 white space is required between the macro name "nospace" and its replacement text
#define dollar$ 1
//            ^
// expect: error #768 nonstandard character at start of object-like macro definition
int e y(1);
int digraph<:2:> = <% 1, 2 %>;
char *trigraph = "??=";
int c1 = '\e', c2 = '\400', c3 = '\x100';
//        ^
// expect: warning #194 unrecognized character escape sequence
//                   ^
// expect: error #27 character value is out of range
//                                ^
// expect: error #27 character value is out of range
int d = 1lL;
//       ^
// expect: error #940 invalid suffix on integral constant
#if 1, 2
//   ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if (1, 2)
//    ^
// expect: error #18 expected a ")"
#endif
#define cat(a, b) a ## b
int f = cat(+, 1);
//      ^
// expect: error #1934 concatenation with "1" in macro "cat" does not create a valid token
int g = cat(1, );
#pragma unknown to everyone
//      ^
// expect: warning #163 unrecognized #pragma
#ifndef x y
//        ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif x
//     ^
// expect: error #14 extra text after expected end of preprocessing directive
#define x1 1
#define x1 2
//      ^
// expect: error #48 incompatible redefinition of macro "x1"
#undef __FILE__
//     ^
// expect: error #46 #undef may not be used on this predefined name
int dollar_$;
//         ^
// expect: error #7 unrecognized token
??=define tri 1
int h = tri;
_Pragma("STDC FP_CONTRACT ON")
_Pragma(1)
//      ^
// expect: error #1092 expected a string literal
_Pragma("unknown here")
// expect: warning #163 unrecognized #pragma
_Pragma L"x";
//      ^
// expect: error #126 expected a "("
int i = 077 + 08;
//             ^
// expect: error #24 invalid octal digit
