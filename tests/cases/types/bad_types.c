// options: --c99
struct open;
struct open v;
//          ^
// expect: error #71 incomplete type is not allowed
struct s { int a; struct s inner; };
//                         ^
// expect: error #71 incomplete type is not allowed
struct t { int a; int a; };
//                    ^
// expect: error #102 "a" has already been declared in the current scope
struct u { int f : 40; };
//                 ^
// expect: error #106 invalid size for bit field
struct w { double d : 3; };
//                ^
// expect: error #107 invalid type for a bit field
struct x { int : 0; int z : 0; };
//                          ^
// expect: error #108 a zero-length bit field must be unnamed
struct y { int a[]; };
//             ^
// expect: error #1083 type containing an unknown-size array is not allowed
struct y2 { int a[]; int b; };
//              ^
// expect: error #71 incomplete type is not allowed
struct z { void v; };
//              ^
// expect: error #71 incomplete type is not allowed
struct fn { int f(void); };
//              ^
// expect: error #170 function type is not allowed here
int arr[-1];
//      ^
// expect: error #95 the size of an array must be greater than zero
int arr2[0.5];
//       ^
// expect: error #159 expression must be an integral constant expression
int big[0x7fffffff];
//      ^
// expect: error #96 array is too large
void var;
//   ^
// expect: error #71 incomplete type is not allowed
int fa[3](void);
//    ^
// expect: error #89 array of functions is not allowed
int (*pf)(void)[3];
//       ^
// expect: error #92 function returning array is not allowed
int ff(void)(void);
//    ^
// expect: error #91 function returning function is not allowed
void va[3];
//     ^
// expect: error #90 array of void is not allowed
int f1(void, int);
//         ^
// expect: error #528 a parameter may not have void type
int f2(void x);
//          ^
// expect: error #528 a parameter may not have void type
int f3(int a, int a);
//                ^
// expect: error #101 parameter "a" has already been declared
enum e { A, B, A };
//             ^
// expect: error #102 "A" has already been declared in the current scope
enum e2 { C = 1.5 };
//            ^
// expect: error #159 expression must be an integral constant expression
enum e;
enum fwd;
unsigned float uf;
// expect: error #85 invalid combination of type specifiers
long long long lll;
//        ^
// expect: error #85 invalid combination of type specifiers
short double sd;
// expect: error #85 invalid combination of type specifiers
signed unsigned su;
//     ^
// expect: error #85 invalid combination of type specifiers
int int ii;
//  ^
// expect: error #85 invalid combination of type specifiers
static extern int se;
//     ^
// expect: error #82 more than one storage class may not be specified
typedef int T = 3;
//              ^
// expect: error #146 type "T" may not be initialized
register int reg;
//           ^
// expect: error #151 a storage class of this kind is not allowed at file scope
auto int au;
// expect: warning #1235 "auto" ignored at file scope
inline int inl;
// expect: error #328 "inline" is not allowed
const;
// expect: warning #65 declaration does not declare anything
union open2 uv;
//          ^
// expect: error #71 incomplete type is not allowed
struct s2 { int a } ;
//                ^
// expect: warning #66 expected a ";"
struct e5 { int a; } e5(int);
extern struct open ev;
int sz = sizeof(struct open);
//             ^
// expect: error #71 incomplete type is not allowed
