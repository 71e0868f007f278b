// options: --c99
int a(int x) { int x; return x; }
//                 ^
// expect: error #102 "x" has already been declared in the current scope
int b(void) { int y; { int y; y = 1; } y = 2; int y; return y; }
//                                                ^
// expect: error #102 "y" has already been declared in the current scope
int c(void) { static int k = b(); return k; }
//                            ^
// expect: error #60 function call is not allowed in a constant expression
int d(void) { extern int e = 3; return e; }
//                           ^
// expect: error #146 variable "e" may not be initialized
int g(void) { goto in; { int v = 1; in: return v; } }
int h(int n) { switch (n) { int hidden; case 1: return 1; default: return 2; } }
int k(void) { for (static int i = 0; i < 2; i++) ; return 0; }
//                 ^
// expect: error #1220 invalid storage class in the first clause of a for statement
int l(void) { int l1; l1 = undeclared1 + undeclared1; return undeclared1; }
//                         ^
// expect: error #20 identifier "undeclared1" is undefined
int m(void) { struct local { int a; } v; v.b = 1; return 0; }
//                                         ^
// expect: error #137 struct "local" has no field "b"
int n(void) { enum { E1, E2 } e; e = E3; return e; }
//                                   ^
// expect: error #20 identifier "E3" is undefined
static int o(void);
//         ^
// expect: warning #115 function "o" was used but never defined
int p(void) { return o(); }
void q(int);
void q(double);
//   ^
// expect: error #148 declaration is incompatible with function "q(int)"
int q;
//  ^
// expect: error #148 declaration is incompatible with function "q(int)"
struct tag { int a; };
union tag u;
//    ^
// expect: error #471 tag kind of union is incompatible with declaration of struct "tag"
enum tag et;
//   ^
// expect: error #471 tag kind of enum is incompatible with declaration of struct "tag"
extern int r;
static int r;
//         ^
// expect: warning #174 external/internal linkage conflict with previous declaration
int s(void) { return 1; }
int s(void) { return 2; }
//  ^
// expect: error #249 function "s" has already been defined
int t = 1;
int t = 2;
//      ^
// expect: error #150 variable "t" has already been initialized
typedef int U;
typedef long U;
//           ^
// expect: error #258 invalid redeclaration of type "U"
void v(void) { return; int after; after = 1; }
//                                ^
// expect: warning #112 statement is unreachable
