// options: --c11 --gcc
// Pragmas of the standard, of GNU C and of messages.
int data;
#pragma STDC FP_CONTRACT MAYBE
//                       ^
// expect: warning #1094 expected "ON", "OFF", or "DEFAULT"
int b;
#pragma STDC UNKNOWN ON
//           ^
// expect: warning #1093 unrecognized STDC pragma
int c;
#pragma STDC FP_CONTRACT ON
int d;
void f(int n) {
#pragma STDC FP_CONTRACT OFF
  int k = 1;
#pragma STDC FENV_ACCESS ON
//      ^
// expect: warning #1095 a STDC pragma may only appear between declarations in the global scope or before any statements or declarations in a block scope
  k++;
#pragma STDC CX_LIMITED_RANGE ON
//      ^
// expect: warning #1095 a STDC pragma may only appear between declarations in the global scope or before any statements or declarations in a block scope
}
#pragma GCC diagnostic push
//          ^
// expect: warning #1944 unrecognized GCC pragma
#pragma GCC system_header
//      ^
// expect: warning #2680 #pragma GCC system_header cannot be used in the primary source file
#pragma GCC visibility push(hidden)
//          ^
// expect: warning #1944 unrecognized GCC pragma
#pragma diag_suppress 999999
//                    ^
// expect: warning #1298 invalid error number
#pragma diag_error no_such_tag
//                 ^
// expect: warning #1299 invalid error tag
#pragma diag_suppress
// expect: warning #1300 expected an error number or error tag
#pragma diag_pop
//              ^
// expect: warning #2613 "#pragma diag_pop" must be preceded by matching "#pragma diag_push"
#pragma diag_push
#pragma diag_suppress 20, 550
#pragma diag_pop
#pragma diag_warning 176
void g(void) { 5; }
//             ^
// expect: warning #176 expression has no effect
#pragma diag_suppress 176
void h(void) { 5; }
#pragma diag_default 176
void i(void) { 5; }
//             ^
// expect: warning #176 expression has no effect
#pragma diag_error declared_but_not_referenced
#pragma diag_warning declared_but_not_referenced
void j(void) { int unused; }
//                 ^
// expect: warning #179 variable "unused" was declared but never referenced
