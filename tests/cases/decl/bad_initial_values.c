// options: --c11 --strict
// Initializers: too many values, of the wrong type, not constant, for the wrong place.
int call(void), object, *pointer;
int i1 = object;
//       ^
// expect: error #28 expression must have a constant value
int i2 = call();
//           ^
// expect: error #60 function call is not allowed in a constant expression
int i3 = {1, 2};
//           ^
// expect: error #147 too many initializer values
int i4 = {{1}};
//        ^
// expect: error #1045 extra braces are nonstandard
int i5 = {};
//        ^
// expect: error #29 expected an expression
int i6 = "text";
//       ^
// expect: error #145 a value of type "char *" cannot be used to initialize an entity of type "int"
int i7 = &object;
//       ^
// expect: error #145 a value of type "int *" cannot be used to initialize an entity of type "int"
int *i8 = 5;
//        ^
// expect: error #145 a value of type "int" cannot be used to initialize an entity of type "int *"
int *i9 = &object + 1;
char c1[3] = "abcd";
//           ^
// expect: error #147 too many initializer values
char c2[3] = "abc";
char c3[] = {"braced"};
char c4[] = 'c';
//          ^
// expect: error #522 initialization with "{...}" expected for aggregate object
char c5[2] = {'a', 'b', 'c'};
//                      ^
// expect: error #147 too many initializer values
int a1[] = {};
//          ^
// expect: error #29 expected an expression
int a2[2] = {1, 2, 3};
//                 ^
// expect: error #147 too many initializer values
int a3[2] = {[2] = 1};
//            ^
// expect: error #177 subscript out of range
int a4[2] = {[-1] = 1};
//            ^
// expect: error #177 subscript out of range
int a5[2] = {[object] = 1};
//            ^
// expect: error #28 expression must have a constant value
int a6[] = 1;
//         ^
// expect: error #522 initialization with "{...}" expected for aggregate object
int a7[2] = a2;
//          ^
// expect: error #1489 initializing an array from another array is not supported
int a8[] = {[3] = 1, [1] = 2, 3};
int a9[2] = {.x = 1};
//           ^
// expect: error #1099 invalid designator kind
struct s { int x, y; } s1 = {.z = 1};
//                           ^
// expect: error #137 struct "s" has no field "z"
struct s s2 = {1, 2, 3};
//                   ^
// expect: error #147 too many initializer values
struct s s3 = {[0] = 1};
//             ^
// expect: error #1099 invalid designator kind
struct s s4 = 1;
//            ^
// expect: error #145 a value of type "int" cannot be used to initialize an entity of type "struct s"
struct s s5 = s1;
//            ^
// expect: error #28 expression must have a constant value
struct s s6 = {.x = 1, .x = 2};
struct s s7 = {{1}, 2};
union u { int i; float f; } u1 = {1, 2};
//                                   ^
// expect: error #147 too many initializer values
union u u2 = {.f = 1.5f};
extern int e1 = 1;
typedef int t = 3;
//              ^
// expect: error #146 type "t" may not be initialized
void f(int p = 1);
//           ^
// expect: error #79 a parameter declaration may not have an initializer
void local(void) {
  extern int e2 = 1;
//                ^
// expect: error #146 variable "e2" may not be initialized
  static int st = object;
//                ^
// expect: error #28 expression must have a constant value
  int l1[] = {1, call(), object};
  int l2 = {call()};
  struct s l3 = s1, l4 = {call(), object};
  const int *l5 = pointer;
  int *l6 = l5;
//          ^
// expect: error #145 a value of type "const int *" cannot be used to initialize an entity of type "int *"
  (void)l1, (void)l2, (void)l3, (void)l4, (void)l6, (void)st;
}
int function(void) = 0;
//                   ^
// expect: error #146 function "function" may not be initialized
struct incomplete inc = {1};
//                      ^
// expect: error #71 incomplete type is not allowed
int div0 = 1 / 0;
//           ^
// expect: error #40 division by zero
int big = 0x7fffffff + 1;
//                   ^
// expect: error #62 integer operation result is out of range
unsigned char narrow = 300;
//                     ^
// expect: warning #70 integer conversion resulted in truncation
float f1 = "x";
//         ^
// expect: error #145 a value of type "char *" cannot be used to initialize an entity of type "float"
double d1 = 1 ? 2 : 3;
int *n1 = (void *)0, *n2 = 0;
int addr = (int)&object;
char small = (char)&object;
//           ^
// expect: warning #770 conversion from pointer to smaller integer
//           ^
// expect: error #28 expression must have a constant value
static int outer[2], plain;
void of_blocks(void) {
  extern int outer[] = {1, 2}, plain = 3;
//                     ^
// expect: error #146 variable "outer" may not be initialized
//                                     ^
// expect: error #146 variable "plain" may not be initialized
}
