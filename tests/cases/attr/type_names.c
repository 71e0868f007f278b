// options: --c11
// Attributes among the specifiers of a type name belong to the type.
int t1[_Alignof(int __attribute__((aligned(16)))) == 16 ? 1 : -1];
int t2[_Alignof(__attribute__((aligned(16))) int) == 16 ? 1 : -1];
int t3[_Alignof(int *__attribute__((aligned(16)))) == 16 ? 1 : -1];
int t4[_Alignof(struct { char c; } __attribute__((aligned(16)))) == 16 ? 1 : -1];
int t5[sizeof(struct { int c; char d; } __attribute__((packed))) == 5 ? 1 : -1];
int t6[_Alignof(int __attribute__((aligned(16)))[2]) == 16 ? 1 : -1];
int _Alignas(int __attribute__((aligned(16)))) t7;
int t8[__alignof__(t7) == 16 ? 1 : -1];
typedef void (*a_function)(void);
void *v;
void f(void) {
  a_function a = (void __attribute__((noreturn)) (*)(void))v;
//                                    ^
// expect: warning #2104 attribute "noreturn" does not apply here
  int b = sizeof(int __attribute__((section("x")))) + (int __attribute__((unused)))1;
//                                  ^
// expect: warning #2104 attribute "section" does not apply here
  int c = *(int __attribute__((aligned(1))) *)v + (int __attribute__((mode(HI))))1;
  (void)a, (void)b, (void)c;
}
