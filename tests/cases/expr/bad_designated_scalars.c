// options: --c11 --gcc --remarks
int scalar = { .a = 1 };
//             ^
// expect: error #1099 invalid designator kind
int braces = { [0] = 1 };
//             ^
// expect: error #1099 invalid designator kind
struct s { int a; int b[2]; };
struct s deep = { .a.b = 1, .b[0][1] = 2, .b.c = 3 };
//                  ^
// expect: error #2717 a designator cannot be used with a non-aggregate type "int"
//                          ^
// expect: error #68 expected a "}"
struct three { char c[3]; } t3;
void g(void) { __sync_fetch_and_add((_Complex double *)0, 1); __atomic_load_n(&t3, 0); __atomic_store_n((int *)0, 1, 2); }
//                                  ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
//                                                                            ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
int fp1 = __builtin_fpclassify(1, 2, 3, 4, 5);
//        ^
// expect: error #2148 __builtin_fpclassify takes six arguments
//                            ^
// expect: error #60 function call is not allowed in a constant expression
int pk = __builtin_choose_expr(scalar, 1, 2);
//                             ^
// expect: error #159 expression must be an integral constant expression
typedef int array[3];
array wrong(void) { }
//         ^
// expect: error #92 function returning array is not allowed
