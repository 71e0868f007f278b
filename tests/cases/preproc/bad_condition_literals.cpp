// options: --preprocess --c++14 --strict
// One message for each literal that is wrong, and none for what it does to the expression.
#if 1e + 1
//   ^
// expect: error #168 invalid floating constant
#endif
#if 1e+ > 0
//   ^
// expect: error #168 invalid floating constant
#endif
#if 0x1p3
//  ^
// expect: error #1593 hexadecimal floating-point constants are not allowed
#endif
#if 0x1p3_km
//  ^
// expect: error #1593 hexadecimal floating-point constants are not allowed
#endif
#if ''a
//  ^
// expect: error #25 quoted string should contain at least one character
#endif
#if 0x'1
//    ^
// expect: error #2989 digit separator cannot appear here
#endif
#if 1lul
//  ^
// expect: error #31 expression must have integral type
#endif
#if 1lL
//   ^
// expect: error #940 invalid suffix on integral constant
#endif
#if $
//  ^
// expect: error #7 unrecognized token
#endif
#if 1 + @
//      ^
// expect: error #7 unrecognized token
#endif
#if `
//  ^
// expect: error #7 unrecognized token
#endif
