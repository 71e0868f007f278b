// options: --c11 --gcc --remarks
// Pragmas inside a function, and in front of what they do not belong to.
int n;
void loops(void) {
  int au;
//    ^
// expect: remark #179 variable "au" was declared but never referenced
#pragma PERSISTENT(au)
//      ^
// expect: warning #1524 PERSISTENT can only be applied to definitions of symbols that have static storage, not "au"
#pragma pack(2)
//      ^
// expect: remark #917 effect of this "#pragma pack" directive is local to function "loops"
#pragma GCC push_options
#pragma GCC pop_options
#pragma GCC pop_options
//      ^
// expect: warning #2978 no corresponding "push_options"
#pragma __printf_args
//      ^
// expect: warning #609 this pragma must immediately precede a declaration
  n = 1;
#pragma FORCEINLINE
//      ^
// expect: error #610 this pragma must immediately precede a statement
  int decl;
//    ^
// expect: remark #179 variable "decl" was declared but never referenced
#pragma ARGSUSED
  n = 2;
#pragma UNROLL
  for (; n; n--) ;
}
#pragma UNROLL(2)
int not_loop;
#pragma GCC target (L"a")
//                  ^
// expect: error #2976 must be a narrow string literal
#pragma GCC target ("a"
// expect: error #2977 unmatched parentheses
