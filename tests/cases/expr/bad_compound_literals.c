// options: --c11
struct S { int a, b[2]; } s;
struct Open;
int i, *p;
int use(struct S);
int *at_file = (int[]){1, 2, 3};
struct S *st = &(struct S){1, {2, 3}};
int bad1 = (int){i};
//               ^
// expect: error #28 expression must have a constant value
int *bad2 = (int[]){1, i};
//                     ^
// expect: error #28 expression must have a constant value
static const char *const names[] = {[1] = (const char[]){"x"}, "y"};
_Static_assert(sizeof(int[]){1, 2, 3} == 12, "size");
_Static_assert(sizeof((int[2]){1}) == 8, "size");
int f(int n) {
  p = (int[]){1, n, 3};
  p = (int[3]){[2] = n};
  i = (int[]){1, 2}[1];
  i = (struct S){.a = 1}.a;
  i = use((struct S){n});
  (struct S){1}.a = 2;
  (int){1} = 2;
  (const int){1} = 2;
// expect: error #138 expression must be a modifiable lvalue
  ((const struct S){1}).b[0] = 2;
// expect: error #138 expression must be a modifiable lvalue
  p = &(int){n};
  (int){1}++;
  i = (int){1, 2};
//             ^
// expect: warning #1238 excess initializers are ignored
  i = (int){};
//          ^
// expect: error #29 expected an expression
  s = (struct S){};
  i = (int){n = 2};
  p = (int[2]){1, 2, 3};
//                   ^
// expect: warning #1238 excess initializers are ignored
  s = (struct S){.c = 1};
//               ^
// expect: error #137 struct "S" has no field "c"
  s = (struct Open){1};
//    ^
// expect: error #71 incomplete type is not allowed
  i = (void){1};
//    ^
// expect: error #71 incomplete type is not allowed
  p = (int[n]){1};
//         ^
// expect: error #1489 a variable-length array is not supported
  i = (int(int)){1};
//               ^
// expect: error #145 a value of type "int" cannot be used to initialize an entity of type "int (int)"
  s = (struct S){s};
//               ^
// expect: error #145 a value of type "struct S" cannot be used to initialize an entity of type "int"
  s = (struct S){1, 2, 3, 4};
//                        ^
// expect: warning #1238 excess initializers are ignored
  p = (int[]){[-1] = 2};
//             ^
// expect: error #177 subscript out of range
  i = (int){"abc"};
//          ^
// expect: warning #145 a value of type "char *" cannot be used to initialize an entity of type "int"
  i = (int){s};
//          ^
// expect: error #145 a value of type "struct S" cannot be used to initialize an entity of type "int"
  i = (static int){1};
//     ^
// expect: error #29 expected an expression
  p = (int[]){1, 2;
//                ^
// expect: error #68 expected a "}"
  for (p = (int[]){1, 2, 0}; *p; p++) i += *p;
  if ((int){n}) return (int){1} + 2;
  return sizeof(int){n};
}
