// options: --c99
int f(void);
int a[3] = {1, 2, 3, 4};
//                   ^
// expect: warning #1238 excess initializers are ignored
int b[3] = {[5] = 1};
//           ^
// expect: error #177 subscript out of range
int c = f();
//       ^
// expect: error #60 function call is not allowed in a constant expression
char d[3] = "abc";
char e[2] = "abc";
//          ^
// expect: warning #2097 excess characters
struct s {
  int x, y;
} g = {.z = 1};
//     ^
// expect: error #137 struct "s" has no field "z"
struct s h = 1;
//           ^
// expect: error #145 a value of type "int" cannot be used to initialize
int i[] = {[0 ... 3] = 7, [2] = 1};
int j[sizeof(i) == 16 ? 1 : -1];
void block(void) {
  int k[10] = {[1 ... 3] = f()};
  //           ^
  // expect: error #1025 array range designators
  int m[2] = {f(), [1] = 2};
  struct s n = {f(), f()};
  struct s o = n;
  struct s p[2] = {n, {1, 2}};
  extern int q = 1;
  //             ^
  // expect: error #146 may not be initialized
}
int r[] = {};
typedef int t = 3;
//              ^
// expect: error #146 may not be initialized
