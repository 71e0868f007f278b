// options: --c11 --remarks
// Statements and declarations that pragmas do not fit.
int var;
typedef int array_t[3];
array_t f(void) { }
//       ^
// expect: error #92 function returning array is not allowed
void g(int n) {
//         ^
// expect: remark #880 variable "n" was never referenced
  int local;
//    ^
// expect: remark #179 variable "local" was declared but never referenced
#pragma GCC target ("a")
//      ^
// expect: error #2979 this pragma is not allowed inside a function
#pragma CALLS(g, local)
//               ^
// expect: error #815 pragma CALLS not applicable to variable "local"
  ;
#pragma ARGSUSED
}
#pragma CALLS(g, var)
//               ^
// expect: error #829 symbol 'var' invalid for specified pragma
asm(" .end");
asm(" .text");
asm(" .sect \"x\"");
