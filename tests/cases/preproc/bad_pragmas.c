// options: --c11 --gcc
#pragma
//     ^
// expect: warning #163 unrecognized #pragma
#pragma unknown
//      ^
// expect: warning #163 unrecognized #pragma
#pragma 1
//      ^
// expect: warning #163 unrecognized #pragma
#pragma "x"
//      ^
// expect: warning #163 unrecognized #pragma
#pragma pack
// expect: warning #126 expected a "("
#pragma pack(
// expect: warning #18 expected a ")"
#pragma pack()
#pragma pack(3)
//           ^
// expect: error #663 invalid packing alignment value
#pragma pack(4
// expect: warning #2660 expected a ")"; pragma ignored
#pragma pack(4) x
//              ^
// expect: warning #14 extra text after expected end of preprocessing directive
#pragma pack(push)
#pragma pack(push, 2)
#pragma pack(push, name, 8)
#pragma pack(pop, name)
#pragma pack(pop, other)
//      ^
// expect: warning #691 "other" not found on pack alignment stack
#pragma pack(pop)
#pragma pack(pop)
//      ^
// expect: warning #692 empty pack alignment stack
#pragma pack(pop)
//      ^
// expect: warning #692 empty pack alignment stack
#pragma pack(x)
//           ^
// expect: warning #821 badly formed pragma
#pragma pack(1, 2)
//            ^
// expect: warning #2660 expected a ")"; pragma ignored
#pragma pack(show)
//      ^
// expect: warning #1334 current value of pragma pack is 4
#pragma once
#pragma push_macro
//      ^
// expect: warning #821 badly formed pragma
#pragma push_macro(M)
//      ^
// expect: warning #821 badly formed pragma
#pragma push_macro("M"
#pragma push_macro("M") x
#pragma push_macro("1")
//      ^
// expect: warning #821 badly formed pragma
#pragma pop_macro("none")
#pragma diag_suppress
// expect: warning #1300 expected an error number or error tag
#pragma diag_suppress 20,
// expect: warning #1300 expected an error number or error tag
#pragma diag_suppress no_such_tag
//                    ^
// expect: warning #1299 invalid error tag
#pragma diag_suppress 99999
//                    ^
// expect: warning #1298 invalid error number
#pragma diag_suppress 20 225
//                       ^
// expect: warning #255 expected a ","
#pragma diag_error = 20
//                 ^
// expect: warning #1300 expected an error number or error tag
#pragma diag_push x
//                ^
// expect: warning #821 badly formed pragma
#pragma diag_push
#pragma diag_pop
#pragma diag_pop
#pragma diag_default 20
#pragma STDC
// expect: warning #1093 unrecognized STDC pragma
#pragma STDC UNKNOWN ON
//           ^
// expect: warning #1093 unrecognized STDC pragma
#pragma STDC FP_CONTRACT
// expect: warning #1094 expected "ON", "OFF", or "DEFAULT"
#pragma STDC FP_CONTRACT MAYBE
//                       ^
// expect: warning #1094 expected "ON", "OFF", or "DEFAULT"
#pragma STDC FP_CONTRACT ON x
//                          ^
// expect: warning #14 extra text after expected end of preprocessing directive
#pragma STDC FENV_ACCESS OFF
#pragma STDC CX_LIMITED_RANGE DEFAULT
#pragma GCC
// expect: warning #1944 unrecognized GCC pragma
#pragma GCC poison bad_name
//          ^
// expect: warning #1944 unrecognized GCC pragma
#pragma GCC diagnostic push
//          ^
// expect: warning #1944 unrecognized GCC pragma
#pragma GCC diagnostic ignored "-Wunused"
//          ^
// expect: warning #1944 unrecognized GCC pragma
#pragma GCC diagnostic pop
//          ^
// expect: warning #1944 unrecognized GCC pragma
#pragma GCC system_header
//      ^
// expect: warning #2680 #pragma GCC system_header cannot be used in the primary source file
#pragma GCC unknown
//          ^
// expect: warning #1944 unrecognized GCC pragma
_Pragma()
//      ^
// expect: error #1092 expected a string literal
_Pragma("")
// expect: warning #163 unrecognized #pragma
_Pragma("pack(pop)") int a;
// expect: warning #692 empty pack alignment stack
int _Pragma("unknown") b;
//  ^
// expect: warning #163 unrecognized #pragma
_Pragma(L"pack()")
_Pragma("pack()" "x");
//               ^
// expect: error #18 expected a ")"
#define P(x) _Pragma(#x)
P(pack(4)) P(unknown words)
//         ^
// expect: warning #163 unrecognized #pragma
struct s { char c; _Pragma("pack(1)") int i; };
#pragma weak
//      ^
// expect: warning #163 unrecognized #pragma
#pragma weak a
//      ^
// expect: warning #163 unrecognized #pragma
#pragma redefine_extname x
// expect: error #41 expected an identifier
#pragma ident
//      ^
// expect: warning #163 unrecognized #pragma
#pragma message("x")
//      ^
// expect: warning #163 unrecognized #pragma
#pragma hdrstop
int end;
