// options: --c99
int (*fp)(void), *ap[3], (*pa)[3], (*(*fpf)(int))(char);
int returns_array(void)[3];
//               ^
// expect: error #92 function returning array is not allowed
int returns_function(void)(void);
//                  ^
// expect: error #91 function returning function is not allowed
int array_of_functions[3](void);
//                    ^
// expect: error #89 array of functions is not allowed
void array_of_void[3];
//                ^
// expect: error #90 array of void is not allowed
int negative[-1];
//           ^
// expect: error #95 the size of an array must be greater than zero
int star[*];
//       ^
// expect: error #944 variable length array with unspecified bound
int list(a, b);
//       ^
// expect: error #93 identifier-list parameters may only be used
void params(int a, void b);
//                      ^
// expect: error #528 a parameter may not have void type
void same(int a, int a);
//                   ^
// expect: error #101 parameter "a" has already been declared
void statics(int a[static 3], int b[const], int c[*], int d[restrict static 2]);
int restricted(int restrict a);
//                 ^
// expect: error #646 "restrict" is not allowed
void x;
//   ^
// expect: error #71 incomplete type is not allowed
struct incomplete y[2];
//                 ^
// expect: error #71 incomplete type is not allowed
int unfinished(;
//             ^
// expect: error #80 expected a type specifier
int after;
