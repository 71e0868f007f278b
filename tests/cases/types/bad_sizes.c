// options: --c11 --gcc
typedef char half[0x40000000];
typedef char most[0x7fffffff];
struct a { half x, y; };
//     ^
// expect: error #105 struct or union is too large
struct b { half x; char y; };
//     ^
// expect: error #105 struct or union is too large
struct c { struct b x, y; int z; };
half d1[1], d2[2], d3[4];
//                    ^
// expect: error #96 array is too large
int d4[0x10000][0x10000];
//              ^
// expect: error #96 array is too large
int d5[0x3fffffff], d6[0x40000000];
//                     ^
// expect: error #96 array is too large
char d7[-1], d8[0x80000000], d9[0xffffffff], e1[0x100000000];
//      ^
// expect: error #95 the size of an array must be greater than zero
//                                              ^
// expect: error #96 array is too large
struct e e4[3];
//         ^
// expect: error #71 incomplete type is not allowed
struct e { int x; };
int e5[sizeof(struct a) > 0], e6[sizeof(half) == 0x40000000 ? 1 : -1];
enum f1 { f2 = 0x7fffffff, f3 };
enum f4 { f5 = 0xffffffff, f6 };
enum f7 { f8 = 0x100000000 };
enum f9 { g1 = -1, g2 = 0x80000000 };
enum g3 { g4 = -0x80000000LL, g5 = 0x7fffffff };
enum __attribute__((packed)) g6 { g7 = 200, g8 = -1 };
int g9[sizeof(enum g6) == 2 ? 1 : -1];
enum h1 { h2 = 7 };
struct h3 { enum h1 x : 3; enum h1 y : 2; enum f9 z : 4; signed w : 1; unsigned v : 1; int u : 1; };
//                                 ^
// expect: warning #231 bit field cannot contain all values of the enumerated type
//                                                ^
// expect: warning #231 bit field cannot contain all values of the enumerated type
union h4 { float x; int y; } __attribute__((transparent_union));
//                                          ^
// expect: warning #2159 the first member of a transparent union cannot have a floating type
union h5 { int x : 3; int y; } __attribute__((transparent_union));
//                                            ^
// expect: warning #2160 the first member of a transparent union cannot be a bit-field
union h6 { int *x; double y; } __attribute__((transparent_union));
//                                            ^
// expect: warning #1185 the attribute "transparent_union" is ignored: field "y" differs in size from the first member
union h7 { int *x; const int *y; long z; } __attribute__((transparent_union));
void h8(union h7);
void h9(char *r) { h8(r); }
//                    ^
// expect: error #169 argument of type "char *" is incompatible with parameter of type "union h7"
register void i1(void);
// expect: error #87 invalid storage class for a function
auto void i2(void);
// expect: warning #1235 "auto" ignored at file scope
void i3(void) { auto void f(void); register int g(void); static void h(void); typedef void i(void); }
//              ^
// expect: error #87 invalid storage class for a function
//                                 ^
// expect: error #87 invalid storage class for a function
//                                                       ^
// expect: error #130 a block-scope function may only have extern storage class
typedef int size_t;
//          ^
// expect: warning #921 unexpected type for "size_t"
typedef int T;
int i5(a, T) int a; { return a; }
//        ^
// expect: error #153 a typedef name cannot be used as the name of a parameter
int i6(struct i7 { int x; } p);
//            ^
// expect: warning #233 declaration is not visible outside of function
int i8(enum i9 { j1 } p);
//          ^
// expect: warning #233 declaration is not visible outside of function
int j2(int g(void), int h(int)), j3(const void *, volatile int);
const void j4(void) { }
const int j5(void) { return 1; }
int j6(void) { return sizeof(most) + sizeof d1; }
//                    ^
// expect: warning #69 integer conversion resulted in a change of sign
void j7(void) { char local[0x7fffffff]; half two[2]; (void)local, (void)two; }
