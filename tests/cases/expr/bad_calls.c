// options: --c99
struct s { int a; } v;
struct open;
int two(int, double);
int none(void);
int many(const char *, ...);
struct open unfinished(void);
int i, *p;
void f(void) {
  two(1);
//     ^
// expect: error #167 too few arguments in function call
  two(1, 2, 3);
//          ^
// expect: error #141 too many arguments in function call
  none(1);
//     ^
// expect: error #141 too many arguments in function call
  many();
//     ^
// expect: error #167 too few arguments in function call
  two(v, 1);
//    ^
// expect: error #169 argument of type "struct s" is incompatible with parameter of type "int"
  two(1, p);
//       ^
// expect: error #169 argument of type "int *" is incompatible with parameter of type "double"
  i(1);
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  p(1);
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  v.a();
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  two(1, 2)(3);
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  i = many(1);
//         ^
// expect: warning #169 argument of type "int" is incompatible with parameter of type "const char *"
  unfinished();
// expect: error #71 incomplete type is not allowed
  i = missing + 1;
//    ^
// expect: error #20 identifier "missing" is undefined
  two(1 2);
//      ^
// expect: error #18 expected a ")"
  two(1,);
//      ^
// expect: error #29 expected an expression
  two(,1);
//    ^
// expect: error #29 expected an expression
  two(1, nothing);
//       ^
// expect: error #20 identifier "nothing" is undefined
}
