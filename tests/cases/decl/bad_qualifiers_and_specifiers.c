// options: --c11 --gcc
int restrict a1;
//  ^
// expect: error #646 "restrict" is not allowed
int *restrict a2;
restrict int *a3;
// expect: error #646 "restrict" is not allowed
int (*restrict a4)(void);
//    ^
// expect: error #647 a "restrict"-qualified pointer to a function is not allowed
void *restrict a5;
typedef int *pointer;
restrict pointer a6;
int restrict a7[3];
//  ^
// expect: error #646 "restrict" is not allowed
const volatile const int a8;
//             ^
// expect: warning #84 type qualifier specified more than once
//                       ^
// expect: warning #259 const variable "a8" requires an initializer
typedef const int constant;
const constant a9;
//             ^
// expect: warning #259 const variable "a9" requires an initializer
typedef int function(void);
const function b1;
// expect: warning #979 type qualifiers on a function type are ignored
const int b2(void);
volatile void b3(void);
const void b4(void);
int *const b5(void);
const struct b6 { int x; } b7, *b8;
//                         ^
// expect: warning #259 const variable "b7" requires an initializer
typedef int array[3];
const array b9 = {1, 2, 3};
void c1(void) {
  b9[0] = 1;
// expect: error #138 expression must be a modifiable lvalue
  *a2 = 1;
  a9 = 1;
// expect: error #138 expression must be a modifiable lvalue
  b8->x = 1;
// expect: error #138 expression must be a modifiable lvalue
  b7.x = 1;
// expect: error #138 expression must be a modifiable lvalue
  b7 = *b8;
// expect: error #138 expression must be a modifiable lvalue
  const int *p = b9, *const q = p;
  p = q;
  q = p;
// expect: error #138 expression must be a modifiable lvalue
  *p = 1;
// expect: error #138 expression must be a modifiable lvalue
  p++;
  q++;
// expect: error #138 expression must be a modifiable lvalue
  int *r = b9;
//         ^
// expect: warning #145 a value of type "const int *" cannot be used to initialize an entity of type "int *"
  int *s = q;
//         ^
// expect: warning #145 a value of type "const int *" cannot be used to initialize an entity of type "int *"
  struct d { const int x; int y; } d1 = {1, 2}, d2 = d1;
  d1 = d2;
// expect: error #138 expression must be a modifiable lvalue
  d1.y = 2;
  d1.x = 2;
// expect: error #138 expression must be a modifiable lvalue
  struct e { struct d inner; } e1 = {d1};
  e1 = e1;
// expect: error #138 expression must be a modifiable lvalue
  struct f { const int list[2]; } f1 = {{1, 2}};
  f1.list[0] = 2;
// expect: error #138 expression must be a modifiable lvalue
  f1 = f1;
// expect: error #138 expression must be a modifiable lvalue
  (void)(const int)1;
  const int volatile *t = &s[0];
  int **u = &r;
  const int **v = &r;
//                ^
// expect: warning #145 a value of type "int **" cannot be used to initialize an entity of type "const int **"
  const int *const *w = (const int *const *)&r;
  "abc"[0] = 'd';
  char *x = "abc";
  const char *y = x;
  char *z = y;
//          ^
// expect: warning #145 a value of type "const char *" cannot be used to initialize an entity of type "char *"
}
unsigned float c2;
// expect: error #85 invalid combination of type specifiers
unsigned void c3;
// expect: error #85 invalid combination of type specifiers
signed _Bool c4;
// expect: error #85 invalid combination of type specifiers
long char c5;
// expect: error #85 invalid combination of type specifiers
long short c6;
//   ^
// expect: error #85 invalid combination of type specifiers
long long long c7;
//        ^
// expect: error #85 invalid combination of type specifiers
unsigned unsigned c8;
//       ^
// expect: error #242 duplicate specifier in declaration
unsigned signed c9;
//       ^
// expect: error #85 invalid combination of type specifiers
int float d1;
//  ^
// expect: error #85 invalid combination of type specifiers
int struct d2 { int x; } d3;
//  ^
// expect: error #85 invalid combination of type specifiers
struct d2 int d4;
//        ^
// expect: error #85 invalid combination of type specifiers
constant int d5;
//       ^
// expect: error #85 invalid combination of type specifiers
//           ^
// expect: warning #259 const variable "d5" requires an initializer
int constant;
//  ^
// expect: error #148 declaration is incompatible with type "constant"
long constant d6;
// expect: error #85 invalid combination of type specifiers
//            ^
// expect: warning #259 const variable "d6" requires an initializer
unsigned d7, char d8;
//           ^
// expect: error #41 expected an identifier
static static int d9;
//     ^
// expect: error #82 more than one storage class may not be specified
static typedef int e1;
//     ^
// expect: error #82 more than one storage class may not be specified
extern register int e2;
//     ^
// expect: error #82 more than one storage class may not be specified
typedef extern int e3;
//      ^
// expect: error #82 more than one storage class may not be specified
inline inline int e4(void);
//     ^
// expect: warning #242 duplicate specifier in declaration
inline int e5;
// expect: error #328 "inline" is not allowed
void e6(void) {
  inline int x = 1;
// expect: error #328 "inline" is not allowed
  static extern int y;
//       ^
// expect: error #82 more than one storage class may not be specified
  register static int z;
//         ^
// expect: error #82 more than one storage class may not be specified
  auto int v = 1;
  auto register int u;
//     ^
// expect: error #82 more than one storage class may not be specified
  typedef int t = 1;
//                ^
// expect: error #146 type "t" may not be initialized
  extern int s = 2;
//               ^
// expect: error #146 variable "s" may not be initialized
  typedef inline int r(void);
}
_Complex int e8;
// expect: error #1097 _Complex can only be used with floating-point types
_Bool e9 = 2;
int int_ = 1, _Bool f1 = 2;
//            ^
// expect: error #41 expected an identifier
