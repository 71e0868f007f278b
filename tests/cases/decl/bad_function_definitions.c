// options: --c99
int a(int) { return 1; }
//       ^
// expect: error #142 a parameter of a function definition must have a name
int b(x, y) int x; double z; { return x; }
//                        ^
// expect: error #100 a declaration here must declare a parameter
int c(int x, y) { return x; }
//           ^
// expect: warning #78 this declaration has no storage class or type specifier
int d(void) [3] { return 1; }
//   ^
// expect: error #92 function returning array is not allowed
static e(void) { return 1; }
//     ^
// expect: warning #262 type specifier is missing, "int" assumed
typedef int fn(void);
fn g { return 1; }
// ^
// expect: error #94 a function definition cannot take its function type from a typedef
struct open m(void) { }
//          ^
// expect: error #1626 incomplete type "struct open" is not allowed as the return type of a function definition
void n(struct open x) { }
//                 ^
// expect: error #71 incomplete type is not allowed
int o(int x = 3) { return x; }
//          ^
// expect: error #79 a parameter declaration may not have an initializer
int p(static int x) { return x; }
//    ^
// expect: error #86 invalid storage class for a parameter
int q(int x) = 2;
//             ^
// expect: error #146 function "q" may not be initialized
int (*r(int x))[3] { return 0; }
int main(int, char **);
int s[](void);
//   ^
// expect: error #89 array of functions is not allowed
int h(void), k(void) { return 1; } int restart;
//                   ^
// expect: error #66 expected a ";"
int after = 1.5 % 2;
//          ^
// expect: error #31 expression must have integral type
