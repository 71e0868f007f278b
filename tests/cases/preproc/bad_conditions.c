// options: --c11 --gcc
#define ONE 1
#define EMPTY
#define TWICE(x) ((x) + (x))
#if ONE == 1 && TWICE(2) == 4 && defined(ONE) && !defined NO && undefined == 0
int ok1;
#endif
#if
// ^
// expect: error #29 expected an expression
#endif
#if EMPTY
//       ^
// expect: error #29 expected an expression
#endif
#if ()
//   ^
// expect: error #29 expected an expression
#endif
#if 1 +
//     ^
// expect: error #29 expected an expression
#endif
#if * 2
//  ^
// expect: error #29 expected an expression
#endif
#if (1
//    ^
// expect: error #18 expected a ")"
#endif
#if 1)
//   ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if 1 2
//    ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if ++1
//  ^
// expect: error #29 expected an expression
#endif
#if --1
//  ^
// expect: error #29 expected an expression
#endif
#if 1 != = 1
//       ^
// expect: error #29 expected an expression
#endif
#if ! = 1
//    ^
// expect: error #29 expected an expression
#endif
#if 1 = 1
//    ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if 1 += 1
//    ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if ONE = 2
//      ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if 1 ? 2
//       ^
// expect: error #54 expected a ":"
#endif
#if 1 ? : 3
//      ^
// expect: error #29 expected an expression
#endif
#if 1 , 2
#endif
#if (1, 2)
#endif
#if 1.0
//  ^
// expect: error #31 expression must have integral type
#endif
#if "a"
//  ^
// expect: error #31 expression must have integral type
#endif
#if 'a' == 97 && '\377' > 0 && L'\0' == 0
int ok2;
#endif
#if sizeof(int) == 4
//        ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if (int)1
//       ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if 1 / 0
//    ^
// expect: error #40 division by zero
#endif
#if 1 % 0
//    ^
// expect: error #40 division by zero
#endif
#if 0 && 1 / 0
#endif
#if 1 || 1 / 0
int ok3;
#endif
#if 0 ? 1 / 0 : 1
int ok4;
#endif
#if 08
//   ^
// expect: error #24 invalid octal digit
#endif
#if 1u2
//    ^
// expect: error #19 extra text after expected end of number
#endif
#if 99999999999999999999
//  ^
// expect: error #23 integer constant is too large
#endif
#if 18446744073709551615 == -1
#endif
#if 9223372036854775807 + 1
//                      ^
// expect: warning #62 integer operation result is out of range
#endif
#if -9223372036854775807 - 2
//                       ^
// expect: warning #62 integer operation result is out of range
#endif
#if -1 > 0u
int ok5;
#endif
#if 1 << 64
#endif
#if ''
//  ^
// expect: error #25 quoted string should contain at least one character
#endif
#if 'a
//  ^
// expect: error #8 missing closing quote
#endif
#if "a
//  ^
// expect: error #8 missing closing quote
#endif
#if @
//  ^
// expect: error #7 unrecognized token
#endif
#if defined
//         ^
// expect: error #41 expected an identifier
#endif
#if defined(
//          ^
// expect: error #41 expected an identifier
#endif
#if defined(ONE
//             ^
// expect: error #18 expected a ")"
#endif
#if defined 1
//          ^
// expect: error #41 expected an identifier
#endif
#if defined(ONE) == defined ONE
int ok6;
#endif
#if TWICE(1
//         ^
// expect: error #18 expected a ")"
//  ^
// expect: error #276 improperly terminated macro invocation
#endif
#if TWICE
#endif
#if TWICE(1)(2)
//          ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if ONE ONE
//      ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if a.b
//   ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if a->b
//   ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if x[1]
//   ^
// expect: error #14 extra text after expected end of preprocessing directive
#endif
#if {1}
//  ^
// expect: error #29 expected an expression
#endif
#if #
//  ^
// expect: error #29 expected an expression
#endif
#if 1 \
  + 1 == 2
int ok7;
#endif
#if ~0 == -1 && !0 == 1 && +1 == - -1 && (1 ? 2 : 3) == 2 && (0x10 | 1) == 17
int ok8;
#endif
#if 1 ? 2, 3 : 4
int ok9;
#endif
int all[] = { sizeof ok1, sizeof ok2, sizeof ok3, sizeof ok4, sizeof ok5, sizeof ok6, sizeof ok7, sizeof ok8, sizeof ok9 };
