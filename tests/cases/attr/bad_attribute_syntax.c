// options: --c99
int a1 __attribute__((unknown_word));
//                    ^
// expect: warning #1173 unknown attribute "unknown_word"
int a2 __attribute__((unknown_word(1, "x", (2, 3))));
//                    ^
// expect: warning #1173 unknown attribute "unknown_word"
int a3 __attribute__((__unknown__)), a4 __attribute__((__unused__)), a5 __attribute__((__used__));
//                    ^
// expect: warning #1173 unknown attribute "unknown"
int b1 __attribute__(());
int b2 __attribute__((,));
int b3 __attribute__((unused,,used));
int b4 __attribute__((unused used));
//                           ^
// expect: error #18 expected a ")"
int b5 __attribute__((unused)) __attribute__((used));
int b6 __attribute__((unused, unused));
int b7 __attribute__((unused(1)));
//                          ^
// expect: error #1170 attribute "unused" does not take arguments
int b8 __attribute__((unused()));
//                          ^
// expect: error #1170 attribute "unused" does not take arguments
int b9 __attribute__((aligned(8));
//                               ^
// expect: error #18 expected a ")"
int after9;
int c2 __attribute__((aligned(8))));
//                                ^
// expect: error #66 expected a ";"
int after2;
int c4 __attribute__((8));
//                    ^
// expect: error #41 expected an identifier
int after4;
int c5 __attribute__((const)), *__attribute__((const)) c6;
//                    ^
// expect: warning #2104 attribute "const" does not apply here
//                                             ^
// expect: warning #2104 attribute "const" does not apply here
__attribute__((unused)) int d1;
int __attribute__((unused)) d2;
static __attribute__((unused)) int d3;
int *__attribute__((aligned(8))) d4;
int (__attribute__((unused)) d5);
int d6, __attribute__((unused)) d7;
int d8 = 1 __attribute__((unused));
//         ^
// expect: error #66 expected a ";"
int d9 __attribute__((unused)) = 1;
struct __attribute__((packed)) e1 { char c; int i; };
struct e2 { char c; int i; } __attribute__((packed)) e3;
struct __attribute__((packed)) { char c; int i; } e4;
struct e5 { char c; int __attribute__((packed)) i; __attribute__((packed)) int j, k; };
int sizes[sizeof(struct e1) == 5 && sizeof e3 == 5 && sizeof e4 == 5 && sizeof(struct e5) == 13 ? 1 : -1];
enum __attribute__((packed)) f1 { f2, f3 };
int sizes2[sizeof(enum f1) == 1 ? 1 : -1];
void g1(int a) __attribute__((noreturn)) { for (;;); }
//                            ^
// expect: error #1189 attributes are not allowed behind the declarator of a function definition
void __attribute__((noreturn)) g2(void) { for (;;); }
void g3(void) __attribute__((noinline));
void g3(void) { }
int g4(a) __attribute__((unused)) int a; { return 0; }
int g5(__attribute__((unused)) int a, int b __attribute__((unused))) { return 0; }
__attribute__((unused));
__attribute__((unused)) struct h1 { int x; };
struct h1 __attribute__((packed));
void block(int x) {
  __attribute__((unused)) int a = 1;
  int b __attribute__((unused)) = 2;
  int c = (__attribute__((unused)) int)x;
  int d = sizeof(int __attribute__((aligned(8))));
  switch (x) {
    case 1:
      a = 2;
      __attribute__((fallthrough));
//                   ^
// expect: warning #1173 unknown attribute "fallthrough"
    case 2:
      break;
  }
  for (int i __attribute__((unused)) = 0; i < 2; i++) ;
}
