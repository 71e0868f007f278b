// options: --c99
struct s { int a; int b : 3; } v;
struct s g(void);
int i, *p, arr[3];
double d;
void nothing(void);
char *c;
void f(void) {
  i = v + 1;
//    ^
// expect: error #32 expression must have arithmetic type
  i = d % 2;
//    ^
// expect: error #31 expression must have integral type
  i = d << 1;
//    ^
// expect: error #31 expression must have integral type
  i = ~d;
//     ^
// expect: error #31 expression must have integral type
  i = -p;
//     ^
// expect: error #32 expression must have arithmetic type
  i = !v;
//     ^
// expect: error #42 expression must have arithmetic or pointer type
  i = v && 1;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  i = p * 2;
//    ^
// expect: error #32 expression must have arithmetic type
  p = p + p;
//    ^
// expect: error #31 expression must have integral type
  i = p + d;
//        ^
// expect: error #31 expression must have integral type
  i = p < 3.0;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "double")
  i = *i;
//     ^
// expect: error #76 operand of "*" must be a pointer
  i = i[arr[0]];
//    ^
// expect: error #45 expression must have pointer type
  i = v.c;
//      ^
// expect: error #137 struct "s" has no field "c"
  i = i.a;
//    ^
// expect: error #156 expression must have struct or union type
  i = p->a;
//    ^
// expect: error #133 expression must have pointer-to-struct-or-union type
  p = &3;
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &v.b;
//     ^
// expect: error #140 taking the address of a bit-field is not allowed
  i = sizeof v.b;
//           ^
// expect: error #72 "sizeof" may not be applied to a bit-field
  i = sizeof nothing;
  i = nothing() + 1;
//    ^
// expect: error #32 expression must have arithmetic type
  i = (1 ? v : 1);
//       ^
// expect: error #43 operand types are incompatible ("struct s" and "int")
  i = (1 ? p : v);
//       ^
// expect: error #43 operand types are incompatible ("int *" and "struct s")
  p = (struct s)1;
//    ^
// expect: error #120 cast to type "struct s" is not allowed
  v = (struct s)i;
//    ^
// expect: error #120 cast to type "struct s" is not allowed
  i = (int)v;
//         ^
// expect: error #173 invalid type conversion
  d = (double)p;
//            ^
// expect: error #173 invalid type conversion
  p = (int *)d;
//           ^
// expect: error #173 invalid type conversion
}
