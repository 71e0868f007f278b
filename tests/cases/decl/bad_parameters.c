// options: --c99
int a(register int x);
int b(static int x);
//    ^
// expect: error #86 invalid storage class for a parameter
int c(extern int x);
//    ^
// expect: error #86 invalid storage class for a parameter
int d(typedef int x);
//    ^
// expect: error #989 "typedef" may not be specified here
int e(auto int x);
//    ^
// expect: error #86 invalid storage class for a parameter
int f(inline int x);
//    ^
// expect: error #240 invalid specifier on a parameter
int g(void, ...);
//        ^
// expect: error #528 a parameter may not have void type
int h(int, void);
//             ^
// expect: error #528 a parameter may not have void type
int i(void v);
//         ^
// expect: error #528 a parameter may not have void type
int j(const void);
//    ^
// expect: error #2770 a qualified void parameter list is nonstandard
int k(void *, void (*)(void), void());
int l(int x, float x);
//                 ^
// expect: error #101 parameter "x" has already been declared
int m(int x, int (*y)(int x));
int n(int a[]);
int o(int a[const 3], int b[static 2], int c[static const 2], int d[restrict static 2], int e[*], int f[const *]);
int p(int a[static]);
//                ^
// expect: error #29 expected an expression
int q(int a[3][static 2]);
//             ^
// expect: error #29 expected an expression
int r(int a[3][const 2]);
//             ^
// expect: error #752 type qualifier is not allowed
int s[const 3];
//    ^
// expect: error #752 type qualifier is not allowed
int s2[static 3];
//     ^
// expect: error #29 expected an expression
int t[*];
//    ^
// expect: error #944 variable length array with unspecified bound is not allowed
int v(int a[x], int x);
//          ^
// expect: error #20 identifier "x" is undefined
int w(int a = 1);
//          ^
// expect: error #79 a parameter declaration may not have an initializer
int x(int : 3);
//        ^
// expect: error #18 expected a ")"
int y(struct unknown *p);
//           ^
// expect: warning #233 declaration is not visible outside of function
int z(struct inside { int a; } *p);
//           ^
// expect: warning #233 declaration is not visible outside of function
int a1(enum { first, second } e);
int a2(int []);
int a3(int [][]);
//         ^
// expect: error #99 an array may not have elements of this type
int a4(struct open o);
//            ^
// expect: warning #233 declaration is not visible outside of function
int a5(struct open o) { return 0; }
//            ^
// expect: warning #233 declaration is not visible outside of function
//                 ^
// expect: error #71 incomplete type is not allowed
int a6(struct open *o) { return 0; }
//            ^
// expect: warning #233 declaration is not visible outside of function
int a7(int) { return 0; }
//        ^
// expect: error #142 a parameter of a function definition must have a name
int a9(int x, y);
//            ^
// expect: warning #78 this declaration has no storage class or type specifier
int b1(x, y);
//     ^
// expect: error #93 identifier-list parameters may only be used in a function definition
int b2(x, y) int x; float y; { return x; }
int b3(x, y) int z; { return x; }
//               ^
// expect: error #100 a declaration here must declare a parameter
int b4(x, x) int x; { return x; }
//        ^
// expect: error #101 parameter "x" has already been declared
int b5(x) int x = 1; { return x; }
//              ^
// expect: error #79 a parameter declaration may not have an initializer
int b6(x) static int x; { return x; }
//        ^
// expect: error #86 invalid storage class for a parameter
int b7(x) int x; int x; { return x; }
//                   ^
// expect: error #102 "x" has already been declared in the current scope
int b8(x) register int x; { return x; }
int b9(x) typedef int x; { return 0; }
//        ^
// expect: error #989 "typedef" may not be specified here
int c2(x, ...) int x; { return x; }
//        ^
// expect: error #873 an ellipsis is not allowed here
int c3(...);
//     ^
// expect: warning #671 ellipsis with no explicit parameters is nonstandard
int c4(int x ...);
//           ^
// expect: error #18 expected a ")"
int c5(int x,);
//           ^
// expect: error #80 expected a type specifier
int c8(x) struct { int a; } x; { return x.a; }
int c9(int x) { int x; return x; }
//                  ^
// expect: error #102 "x" has already been declared in the current scope
int d1(int x) { { int x = 2; return x; } }
typedef int unary(int);
unary d2;
unary d3 { return 0; }
//    ^
// expect: error #94 a function definition cannot take its function type from a typedef
int d4(unary u, unary *v) { return u(1) + v(2); }
typedef void nothing;
int d5(nothing);
int d6(nothing, int);
//            ^
// expect: error #528 a parameter may not have void type
int (d7)(int x) { return x; }
int (*d8(int x))(int y) { return 0; }
int (*d9)(int x) { return x; }
//               ^
// expect: error #66 expected a ";"
