// options: --c11 --strict
struct S { int a; const int c; } s;
struct Open;
int i, *p, arr[3], fn(int);
void v(void), *pv;
char *c;
const int *pc;
float f;
void expressions(int n, register int r) {
  p = 5;
//    ^
// expect: error #515 a value of type "int" cannot be assigned to an entity of type "int *"
  i = p;
//    ^
// expect: error #515 a value of type "int *" cannot be assigned to an entity of type "int"
  p = pc;
//    ^
// expect: error #515 a value of type "const int *" cannot be assigned to an entity of type "int *"
  p = c;
//    ^
// expect: error #515 a value of type "char *" cannot be assigned to an entity of type "int *"
  i = p == c;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "char *")
  i = p == 1;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "int")
  i = p < i;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "int")
  i = n ? p : 1;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "int")
  pv++;
// expect: error #143 expression must have pointer-to-object type
  i = pv - pv;
//    ^
// expect: error #143 expression must have pointer-to-object type
  i = sizeof(void);
//          ^
// expect: error #71 incomplete type is not allowed
  i = sizeof fn;
//           ^
// expect: error #57 "sizeof" may not be applied to a function
  i = sizeof(v);
//          ^
// expect: error #57 "sizeof" may not be applied to a function
  i = _Alignof(void);
//            ^
// expect: error #71 incomplete type is not allowed
  i = _Alignof i;
//             ^
// expect: error #2831 the standard alignment operator takes a type, no expression
  p = &r;
//     ^
// expect: error #139 taking the address of a register variable is not allowed
  i = ({ 1; });
//     ^
// expect: error #29 expected an expression
  i = n ?: 2;
//       ^
// expect: error #29 expected an expression
  i = fn == 0;
  v(1);
//  ^
// expect: error #141 too many arguments in function call
  fn(p);
//   ^
// expect: error #169 argument of type "int *" is incompatible with parameter of type "int"
  undeclared(1);
// expect: error #20 identifier "undeclared" is undefined
  s.c = 1;
// expect: error #138 expression must be a modifiable lvalue
  c = "text";
  c[0] = L'x';
  i = (int){1};
  p = (int[]){};
//            ^
// expect: error #29 expected an expression
  i = n << 40;
  i = 1 << 40;
//      ^
// expect: warning #64 shift count is too large
  i = (n, 2);
//     ^
// expect: warning #176 expression has no effect
  (int)n = 1;
// expect: error #138 expression must be a modifiable lvalue
  pv = fn;
//     ^
// expect: error #515 a value of type "int (*)(int)" cannot be assigned to an entity of type "void *"
  pv = &i;
  fn(1), (void)0;
  i = "abc" == c;
  i = (struct Open *)0 == 0;
}
int statements(int n) {
  switch (n) { case 1 ... 3: ; }
//                    ^
// expect: error #54 expected a ":"
  switch (n) { case 1: case 1L << 40: ; }
//                             ^
// expect: error #64 shift count is too large
  lab: int x = 1;
//     ^
// expect: error #1148 a declaration cannot have a label
  goto *pv;
//     ^
// expect: error #41 expected an identifier
  { end: }
//       ^
// expect: error #128 expected a statement
  for (int k = 0; k < 1; k++) ;
  for (static int k = 0; k < 1; k++) ;
//     ^
// expect: error #1220 invalid storage class in the first clause of a for statement
  if (n) return;
//       ^
// expect: error #118 non-void function "statements" should return a value
  asm("nop");
// expect: error #20 identifier "asm" is undefined
  __label__ l;
// expect: error #20 identifier "__label__" is undefined
  ;
  if (n) int y;
//       ^
// expect: error #527 a declaration cannot be the dependent statement of another statement
  return p;
//       ^
// expect: error #121 return value type "int *" does not match the function type "int"
}
void returns(void) { return 1; }
//                   ^
// expect: error #119 a value is returned from a function that returns void
void returns2(void) { return v(); }
//                    ^
// expect: error #119 a value is returned from a function that returns void
int falls(int n) { if (n) return 1; }
//                                  ^
// expect: warning #994 missing return statement at end of non-void function "falls"
int main(void) { }
__extension__ int ext = ({ 1; });
//                       ^
// expect: error #29 expected an expression
