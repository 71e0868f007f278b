// options: --c11 --gcc
// Declarations of one name that do not agree.
int a1; long a1;
//           ^
// expect: error #148 declaration is incompatible with variable "a1"
int a2; static int a2;
//                 ^
// expect: warning #174 external/internal linkage conflict with previous declaration
static int a3; int a3;
//                 ^
// expect: warning #174 external/internal linkage conflict with previous declaration
static int a4; extern int a4;
extern int a5; static int a5;
//                        ^
// expect: warning #174 external/internal linkage conflict with previous declaration
int a6 = 1; int a6 = 2;
//                   ^
// expect: error #150 variable "a6" has already been initialized
int a7[3]; int a7[4];
//             ^
// expect: error #148 declaration is incompatible with variable "a7"
int a8[]; int a8[4]; extern int a8[];
int a9; int a9(void);
//          ^
// expect: error #148 declaration is incompatible with variable "a9"
int b1(void); int b1(int);
//                ^
// expect: error #148 declaration is incompatible with function "b1(void)"
int b2(); int b2(int, char *);
int b3(); int b3(char);
//            ^
// expect: error #148 declaration is incompatible with function "b3()"
int b4(int); int b4() { return 0; }
void b5(void); int b5(void) { return 0; }
//                 ^
// expect: error #148 declaration is incompatible with function "b5(void)"
int b6(const int); int b6(int);
int b7(const int *); int b7(int *);
//                       ^
// expect: error #148 declaration is incompatible with function "b7(const int *)"
int b8(int[3]); int b8(int *);
int b9(int (void)); int b9(int (*)(void));
static int c1(void); int c1(void) { return 0; }
int c2(void); static int c2(void) { return 0; }
//                       ^
// expect: warning #174 external/internal linkage conflict with previous declaration
int c3(void) { return 0; } int c3(void) { return 1; }
//                             ^
// expect: error #249 function "c3" has already been defined
typedef int c4; typedef int c4;
typedef int c5; typedef long c5;
//                           ^
// expect: error #258 invalid redeclaration of type "c5"
typedef int c6; int c6;
//                  ^
// expect: error #148 declaration is incompatible with type "c6"
enum c7 { c8 }; int c8;
//                  ^
// expect: error #148 declaration is incompatible with constant "c8"
struct c9 { int x; }; struct c9 { int x; };
//                           ^
// expect: error #249 struct "c9" has already been defined
struct d1 { int x; }; union d1 d1v;
//                          ^
// expect: error #471 tag kind of union is incompatible with declaration of struct "d1"
enum d2 { d3 }; enum d2 { d4 };
//                   ^
// expect: error #249 enum "d2" has already been defined
extern int d5; extern const int d5;
//                              ^
// expect: error #148 declaration is incompatible with variable "d5"
volatile int d6; int d6;
//                   ^
// expect: error #148 declaration is incompatible with variable "d6"
int *d7; int * const d7;
//                   ^
// expect: error #148 declaration is incompatible with variable "d7"
int d8(int, ...); int d8(int);
//                    ^
// expect: error #148 declaration is incompatible with function "d8(int, ...)"
inline int d9(void); static int d9(void) { return 0; }
//                              ^
// expect: warning #174 external/internal linkage conflict with previous declaration
extern int e1[3][4]; int e1[3][5];
//                       ^
// expect: error #148 declaration is incompatible with variable "e1"
extern int e2[][4]; int e2[3][4];
void scopes(int p) {
  int p;
//    ^
// expect: error #102 "p" has already been declared in the current scope
  int x; long x;
//            ^
// expect: error #102 "x" has already been declared in the current scope
  extern int x1; extern long x1;
//                           ^
// expect: error #148 declaration is incompatible with variable "x1"
  static int x2; int x2;
//                   ^
// expect: error #102 "x2" has already been declared in the current scope
  typedef int x3; int x3;
//                    ^
// expect: error #148 declaration is incompatible with type "x3"
  { int x; { extern int x; } }
  int scopes;
  label: ; label: ;
//         ^
// expect: error #249 label "label" has already been defined
  enum { x4 }; enum { x4 };
//                    ^
// expect: error #102 "x4" has already been declared in the current scope
  struct t { int a; }; struct t { int a; };
//                            ^
// expect: error #249 struct "t" has already been defined
  for (int i = 0; i < 2; i++) { int i; }
  extern int a3; extern long a1;
//                           ^
// expect: error #148 declaration is incompatible with variable "a1"
  int f2(void); long f2(void);
//                   ^
// expect: error #148 declaration is incompatible with function "f2(void)"
  extern int init = 3;
//                  ^
// expect: error #146 variable "init" may not be initialized
}
int x1;
