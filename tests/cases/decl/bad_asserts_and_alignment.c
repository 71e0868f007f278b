// options: --c11
_Static_assert(1, "right");
_Static_assert(sizeof(int) == 4, "int");
_Static_assert(0, "this is told");
// expect: error #1847 static assertion failed with "this is told"
_Static_assert(sizeof(long) == 5, "a " "long " "text");
// expect: error #1847 static assertion failed with "a long text"
_Static_assert(1);
//              ^
// expect: error #255 expected a ","
_Static_assert(, "empty");
//             ^
// expect: error #29 expected an expression
_Static_assert(1, 2);
//                ^
// expect: error #1092 expected a string literal
_Static_assert(1, "a" "b"), "c";
//                        ^
// expect: error #66 expected a ";"
_Static_assert(1, "no end")
int after;
// expect: error #66 expected a ";"
_Static_assert(after, "not constant");
//             ^
// expect: error #28 expression must have a constant value
_Static_assert(1.5, "not an integer");
//             ^
// expect: error #159 expression must be an integral constant expression
_Static_assert("x", "a pointer");
//             ^
// expect: error #159 expression must be an integral constant expression
struct s {
  _Static_assert(1, "in a struct");
  int a;
  _Static_assert(0, "in a struct");
// expect: error #1847 static assertion failed with "in a struct"
  _Static_assert(sizeof(int) == 4, "more");
};
void block(int x) {
  _Static_assert(sizeof x == 4, "in a block");
  _Static_assert(0, "in a block");
// expect: error #1847 static assertion failed with "in a block"
  _Static_assert(x, "not constant");
//               ^
// expect: error #28 expression must have a constant value
}
_Alignas(8) int a1;
_Alignas(double) int a2;
_Alignas(16) _Alignas(4) int a3;
_Alignas(0) int a4;
int _Alignas(8) a5;
_Alignas(8) int a6, *a7, a8[2];
struct t { _Alignas(8) int a; char b; _Alignas(struct s) char c; };
_Static_assert(_Alignof(struct t) == 8, "the strongest member");
_Static_assert(sizeof(struct t) == 16, "padded");
_Static_assert(_Alignof(double) >= 4 && _Alignof(char[3]) == 1, "of types");
_Alignas(3) int b1;
//       ^
// expect: error #1166 invalid alignment value specified by attribute
_Alignas(-4) int b2;
//       ^
// expect: error #1175 invalid argument to attribute "_Alignas"
_Alignas(after) int b3;
//       ^
// expect: error #28 expression must have a constant value
_Alignas(1.5) int b4;
//       ^
// expect: error #159 expression must be an integral constant expression
_Alignas(1) int b5;
// expect: error #2150 alignment cannot be set to less than the default alignment
_Alignas(struct unknown) int b6;
//       ^
// expect: error #71 incomplete type is not allowed
_Alignas(void) int b7;
//       ^
// expect: error #71 incomplete type is not allowed
_Alignas(int(void)) int b8;
//       ^
// expect: error #170 function type is not allowed here
_Alignas() int b9;
//       ^
// expect: error #29 expected an expression
_Alignas(8) typedef int c2;
// expect: error #2830 alignas does not apply here
_Alignas(8) int c3(void);
// expect: error #2830 alignas does not apply here
int c4(_Alignas(8) int x);
//     ^
// expect: error #2830 alignas does not apply here
struct u { _Alignas(8) int a : 3; };
//         ^
// expect: error #2105 attribute "_Alignas" does not apply to bit-fields
_Alignas(8) struct v { int a; };
int c5 = sizeof(_Alignas(8) int);
//              ^
// expect: error #29 expected an expression
int *_Alignas(8) c6;
//   ^
// expect: error #41 expected an identifier
int c7 = _Alignof(struct unknown);
//               ^
// expect: error #71 incomplete type is not allowed
int c8 = _Alignof(void);
int c9 = _Alignof(int(void));
int d1 = _Alignof(int[]);
int d2 = _Alignof(after);
void block2(void) {
  _Alignas(16) int x;
  register _Alignas(8) int y;
//         ^
// expect: error #2113 attribute "_Alignas" does not apply to variables with register storage
  static _Alignas(32) char z[3];
  _Alignas(2) long w;
// expect: error #2150 alignment cannot be set to less than the default alignment
}
_Noreturn void e1(void);
void _Noreturn e2(void) { for (;;); }
_Noreturn int e3;
// expect: error #2889 "_Noreturn" applies to functions only
_Noreturn _Noreturn void e4(void);
//        ^
// expect: warning #242 duplicate specifier in declaration
_Noreturn struct w { int x; };
// expect: error #2889 "_Noreturn" applies to functions only
int e5(_Noreturn int x);
//     ^
// expect: error #240 invalid specifier on a parameter
struct x { _Noreturn int y; };
//         ^
// expect: error #2889 "_Noreturn" applies to functions only
_Noreturn typedef void e6(void);
// expect: error #2889 "_Noreturn" applies to functions only
_Noreturn void (*e7)(void);
// expect: error #2889 "_Noreturn" applies to functions only
_Thread_local int f1;
static _Thread_local int f2 = 3;
extern _Thread_local int f3;
void block3(void) {
  _Thread_local int g1;
// expect: error #2861 a thread-local specifier is not allowed here
  static _Thread_local int g2;
  extern _Thread_local int g3;
}
_Thread_local void g4(void);
// expect: error #2861 a thread-local specifier is not allowed here
_Thread_local typedef int g5;
// expect: error #2861 a thread-local specifier is not allowed here
struct y { _Thread_local int z; };
//         ^
// expect: error #81 a storage class may not be specified here
int g6(_Thread_local int x);
//     ^
// expect: error #81 a storage class may not be specified here
auto _Thread_local int g7;
// expect: warning #1235 "auto" ignored at file scope
