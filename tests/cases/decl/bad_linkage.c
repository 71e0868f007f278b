// options: --c11
static int a;
extern int a;
int b;
static int b;
//         ^
// expect: warning #174 external/internal linkage conflict with previous declaration
extern int c;
static int c;
//         ^
// expect: warning #174 external/internal linkage conflict with previous declaration
static int d(void);
int d(void);
extern int d(void);
int e(void);
static int e(void);
//         ^
// expect: warning #174 external/internal linkage conflict with previous declaration
int f = 1;
int f = 2;
//      ^
// expect: error #150 variable "f" has already been initialized
int f;
extern int f;
extern int g = 3;
int g = 4;
//      ^
// expect: error #150 variable "g" has already been initialized
int h(void) { return 1; }
int h(void) { return 2; }
//  ^
// expect: error #249 function "h" has already been defined
int i;
float i;
//    ^
// expect: error #148 declaration is incompatible with variable "i"
int j;
int j(void);
//  ^
// expect: error #148 declaration is incompatible with variable "j"
typedef int k;
int k;
//  ^
// expect: error #148 declaration is incompatible with type "k"
typedef int k;
typedef long k;
//           ^
// expect: error #258 invalid redeclaration of type "k"
enum { l };
int l;
//  ^
// expect: error #148 declaration is incompatible with constant "l"
int m;
enum { m };
//     ^
// expect: error #102 "m" has already been declared in the current scope
int n(int);
int n(long);
//  ^
// expect: error #148 declaration is incompatible with function "n(int)"
int o(int);
float o(int);
//    ^
// expect: error #148 declaration is incompatible with function "o(int)"
int p();
int p(int, char *);
int p(int, char *, ...);
//  ^
// expect: error #148 declaration is incompatible with function "p(int, char *)"
int q();
int q(char);
//  ^
// expect: error #148 declaration is incompatible with function "q()"
int r[];
int r[3];
extern int r[];
int r[4];
//  ^
// expect: error #148 declaration is incompatible with variable "r"
const int s = 1;
extern int s;
//         ^
// expect: error #148 declaration is incompatible with variable "s"
static int t[];
//         ^
// expect: warning #1951 array assumed to have one element
static struct later u;
struct later { int x; };
struct late v;
struct late { int x; };
struct never w;
//           ^
// expect: error #71 incomplete type is not allowed
extern struct never x;
static int y(void);
int main_use(void) { return y(); }
static int y(void) { return 0; }
int block(void) {
  extern int z;
  extern float z;
//             ^
// expect: error #148 declaration is incompatible with variable "z"
  int a1;
  int a1;
//    ^
// expect: error #102 "a1" has already been declared in the current scope
  int a2;
  float a2;
//      ^
// expect: error #102 "a2" has already been declared in the current scope
  static int a3;
  extern int a3;
//           ^
// expect: error #102 "a3" has already been declared in the current scope
  int a4;
  extern int a4;
//           ^
// expect: error #102 "a4" has already been declared in the current scope
  extern int a5;
  extern int a5;
  int a5;
//    ^
// expect: error #102 "a5" has already been declared in the current scope
  static int local(void);
// expect: error #130 a block-scope function may only have extern storage class
  extern int local2(void);
  int local2(void);
  int local2(int);
//    ^
// expect: error #148 declaration is incompatible with function "local2(void)"
  typedef int a6;
  typedef int a6;
  int a6;
//    ^
// expect: error #148 declaration is incompatible with type "a6"
  { int a1; float a6; struct later a2; }
  return a1;
}
int reach(void) { extern float z2; return 0; }
int z2;
//  ^
// expect: error #161 declaration is incompatible with previous "z2"
int over(void) { extern int h(void); return h(); }
int over2(void) { extern int h(int); return 0; }
//                           ^
// expect: error #148 declaration is incompatible with function "h(void)"
