// options: --c11 --gcc --remarks
// Attributes where they do not apply, with bad arguments, or unknown.
[[zork::a]] int z1;
// expect: remark #1173 unknown attribute "a"
int v1 __attribute__((constructor));
//                    ^
// expect: error #2104 attribute "constructor" does not apply here
struct s { int a __attribute__((noreturn)); } __attribute__((weak));
//                              ^
// expect: warning #2104 attribute "noreturn" does not apply here
//                                                           ^
// expect: warning #2104 attribute "weak" does not apply here
static int w __attribute__((weak));
//                          ^
// expect: error #1681 attribute "weak" requires external linkage
//         ^
// expect: remark #179 variable "w" was declared but never referenced
extern inline int e1(void) __attribute__((weak, always_inline));
enum e2 { E2 } __attribute__((aligned(8)));
int al __attribute__((aligned("x")));
//                            ^
// expect: error #159 expression must be an integral constant expression
int al2 __attribute__((aligned(3)));
//                             ^
// expect: error #1166 invalid alignment value specified by attribute
struct t { int b; } __attribute__((aligned(1)));
int un __attribute__((section(L"x")));
int un2 __attribute__((alias("nobody")));
//                     ^
// expect: error #1228 the target "nobody" of the alias is not declared
typedef int td __attribute__((noreturn));
//                            ^
// expect: warning #2104 attribute "noreturn" does not apply here
int p __attribute__((init_priority(50)));
//                   ^
// expect: warning #1173 unknown attribute "init_priority"
void g(int n __attribute__((packed)));
//                          ^
// expect: warning #2104 attribute "packed" does not apply here
int dep __attribute__((deprecated((1)))) ;
//                                ^
// expect: error #1092 expected a string literal
int br __attribute__((zork((]))));
//                    ^
// expect: warning #1173 unknown attribute "zork"
//                          ^
// expect: error #2147 unbalanced brackets in the arguments of an attribute
//                              ^
// expect: error #66 expected a ";"
int asm_name(void); int asm_name(void) { return 0; } int asm_name(void) __asm__("other");
//                                                                      ^
// expect: warning #1882 asm name ignored for previously defined entity
float mm __attribute__((mode(zork)));
//                           ^
// expect: error #1175 invalid argument to attribute "mode"
void (*fp)(void) __attribute__((interrupt("IRQ")));
//                              ^
// expect: error #2104 attribute "interrupt" does not apply here
