// options: --c99
#define A(...) __attribute__((__VA_ARGS__))
int a1 A(packed);
//     ^
// expect: warning #2104 attribute "packed" does not apply here
int a2 A(noreturn);
//     ^
// expect: warning #2104 attribute "noreturn" does not apply here
void a3(void) A(noreturn);
int a4 A(always_inline);
//     ^
// expect: warning #2104 attribute "always_inline" does not apply here
int a5 A(constructor);
//     ^
// expect: error #2104 attribute "constructor" does not apply here
void a6(void) A(constructor), a7(void) A(constructor(200));
void a8(int x) A(unused) A(used) A(noinline);
int a9 A(used), b1 A(unused);
int b2 A(section(".mine"));
int b3 A(section(1));
//     ^
// expect: error #1092 expected a string literal
int b4 A(section);
//     ^
// expect: error #126 expected a "("
int b5 A(section("a", "b"));
//     ^
// expect: error #18 expected a ")"
void b6(void) A(section(".text.b6"));
typedef int b7 A(section(".mine"));
//             ^
// expect: warning #2104 attribute "section" does not apply here
struct b8 { int x A(section(".mine")); };
//                ^
// expect: error #2104 attribute "section" does not apply here
void b9(void) {
  int x A(section(".mine"));
//      ^
// expect: error #2130 attribute "section" does not apply to automatic variables
  static int y A(section(".mine"));
  int z A(used);
//      ^
// expect: warning #2130 attribute "used" does not apply to automatic variables
  static int w A(used);
  register int v A(aligned(8));
//               ^
// expect: error #2113 attribute "aligned" does not apply to variables with register storage
  int u A(unused);
  extern int t A(weak);
  static int s A(weak);
//             ^
// expect: error #1681 attribute "weak" requires external linkage
  (void)x, (void)y, (void)z, (void)w, (void)v, (void)u, (void)t, (void)s;
}
int c1 A(weak);
static int c2 A(weak);
//            ^
// expect: error #1681 attribute "weak" requires external linkage
static void c3(void) A(weak);
//                   ^
// expect: error #1681 attribute "weak" requires external linkage
void c4(void) A(weak);
int c5(int x) A(format(printf, 1, 2));
//            ^
// expect: error #1175 invalid argument to attribute "format"
int c6(const char *f, ...) A(format(printf, 1, 2));
int c7(const char *f, ...) A(format(printf, 3, 2));
//                         ^
// expect: error #1175 invalid argument to attribute "format"
int c8(const char *f, ...) A(format(printf, 1));
//                         ^
// expect: error #255 expected a ","
int c9(const char *f, ...) A(format(unknown, 1, 2));
//                         ^
// expect: warning #1175 invalid argument to attribute "format"
int d1 A(format(printf, 1, 2));
int d2 A(aligned(8)), d3 A(aligned), d4 A(aligned(sizeof(int) * 4));
int d5 A(aligned(3));
//     ^
// expect: error #1166 invalid alignment value specified by attribute
int d6 A(aligned(-8));
//     ^
// expect: error #1175 invalid argument to attribute "aligned"
int d7 A(aligned(0));
int d8 A(aligned("x"));
//     ^
// expect: error #159 expression must be an integral constant expression
int d9 A(aligned(1.5));
//     ^
// expect: error #159 expression must be an integral constant expression
int e1 A(aligned(4, 8));
//     ^
// expect: error #18 expected a ")"
int e3 A(aligned(c1));
//     ^
// expect: error #28 expression must have a constant value
struct e4 { char c; int i; } A(packed);
struct e5 { char c; int i A(packed); };
struct e6 { char c; int i; } A(packed, aligned(2));
int e7[sizeof(struct e4) == 5 && sizeof(struct e5) == 5 && sizeof(struct e6) == 6 ? 1 : -1];
enum e8 { one } A(packed);
enum e9 { two, three A(unused) };
//                   ^
// expect: error #2104 attribute "unused" does not apply here
struct f1 { int i; } A(noreturn);
//                   ^
// expect: warning #2104 attribute "noreturn" does not apply here
typedef int f2 A(mode(HI));
typedef int f3 A(mode(SF));
//             ^
// expect: error #1164 the mode does not fit the type "int"
typedef int f4 A(mode(XX));
//             ^
// expect: error #1175 invalid argument to attribute "mode"
typedef int f5 A(mode(TI));
//             ^
// expect: error #1165 no type of the width of the mode exists
typedef float f6 A(mode(DF));
int f7[sizeof(f2) == 2 && sizeof(f6) == 8 ? 1 : -1];
struct f8 { int x; } A(mode(SI));
//                   ^
// expect: error #1164 the mode does not fit the type "struct f8"
union f9 { int *p; const int *q; } A(transparent_union);
struct g1 { int *p; } A(transparent_union);
//                    ^
// expect: warning #1183 the attribute "transparent_union" applies to unions only
int g2 A(alias("c1"));
//     ^
// expect: error #1489 an alias of a variable is not supported
extern int g3 A(alias("c1"));
//            ^
// expect: error #1489 an alias of a variable is not supported
extern int g4 A(alias("nowhere"));
//            ^
// expect: error #1228 the target "nowhere" of the alias is not declared
int g5 = 1;
extern int g5 A(alias("c1"));
//            ^
// expect: error #249 variable "g5" has already been defined
void g6(void) { }
void g7(void) A(alias("g6"));
void g8(void) A(weak, alias("g6"));
void g9(void) A(alias(g6));
//            ^
// expect: error #1092 expected a string literal
int h1(void) A(pure), h2(void) A(const), h3(void) A(malloc);
int h4 A(pure);
//     ^
// expect: warning #2104 attribute "pure" does not apply here
int h5(void) A(warn_unused_result), h6(void) A(deprecated), h7(void) A(deprecated("why"));
int h8(void) A(deprecated(1));
//           ^
// expect: error #1092 expected a string literal
int h9(void) { return h6() + h7(); }
//                    ^
// expect: warning #1291 function "h6" is deprecated
//                           ^
// expect: warning #1291 function "h7" is deprecated
int i1 A(deprecated);
int i2(void) { return i1; }
//                    ^
// expect: warning #1291 variable "i1" is deprecated
struct i3 { int old A(deprecated), new; } i4;
int i5(void) { return i4.old + i4.new; }
//                       ^
// expect: warning #1291 field "old" is deprecated
int i6(int x A(unused), int *y A(aligned(8))) { return 0; }
//                             ^
// expect: error #2104 attribute "aligned" does not apply here
int i7(void) {
  int r = 0;
  goto end;
end: A(unused)
  return r;
}
