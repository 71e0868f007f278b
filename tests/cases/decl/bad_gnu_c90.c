/* options: --c89 */
long long a1;
long float a2;
// expect: error #85 invalid combination of type specifiers
int static a3;
const const int a4;
//    ^
// expect: warning #84 type qualifier specified more than once
//              ^
// expect: warning #259 const variable "a4" requires an initializer
enum a5 { a6, a7, };
int b1[0];
c2(void) { return 0; }
static c3;
//     ^
// expect: warning #262 type specifier is missing, "int" assumed
struct b5 { int n; int rest[]; };
struct d1 { int x, y; } d2 = {.x = 1};
int d4(int n) { struct d1 local = {n, n}; return local.x; }
int d6(void) { int a; a = 1; int b = a; return b; }
typedef int;
// expect: warning #377 declaration requires a typedef name
typedef int T;
typedef int T;
unsigned T u1;
// expect: error #85 invalid combination of type specifiers
T unsigned u2;
// expect: error #85 invalid combination of type specifiers
long T u3;
// expect: error #85 invalid combination of type specifiers
short double u4;
// expect: error #85 invalid combination of type specifiers
_Complex c1;
_Complex int c5;
// expect: error #1097 _Complex can only be used with floating-point types
_Complex float c6;
double _Complex long c7;
int y(T);
int z(T T) { return T; }
inline int i1(void) { return 1; }
static inline int i2(void) { return 1; }
int i3(void) { return i1() + i2(); }
__inline__ static int i4(int x) { return x; }
__const int k1 = 1;
__volatile__ int k2;
int *__restrict k3;
int __restrict k4;
//  ^
// expect: error #646 "restrict" is not allowed
__signed__ char k5;
int f(int *restrict);
__typeof__(k2) k6;
__typeof__(int *) k7, k8;
__typeof__(1, 2) k9;
//         ^
// expect: warning #176 expression has no effect
__auto_type m1 = 1;
__auto_type m2;
//          ^
// expect: error #1866 a type taken from an initializer requires one
__auto_type m3 = {1};
//               ^
// expect: error #3076 a type cannot be taken from a brace-enclosed initializer
int __auto_type m4 = 1;
//  ^
// expect: error #85 invalid combination of type specifiers
void m5(__auto_type m6);
//      ^
// expect: error #1871 "auto" is not allowed here
__extension__ struct { int a; union { int b; }; } m7;
struct { __auto_type a; } m8;
//       ^
// expect: error #1871 "auto" is not allowed here
int m9 = sizeof(__auto_type);
//              ^
// expect: error #1871 "auto" is not allowed here
typedef struct { int a; } S;
void in_block(void) {
  unsigned T;
  T = 1;
  { int T = 2; T++; }
  int S, *p = &S;
}
