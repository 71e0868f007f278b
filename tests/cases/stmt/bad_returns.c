// options: --c11
struct S { int a; } s;
struct T { int a; } t;
int i, *p;
const int *pc;
float fl;
void v(void);
_Noreturn void quit(void);
struct S g1(void) { return s; }
struct S g2(void) { return t; }
//                         ^
// expect: error #121 return value type "struct T" does not match the function type "struct S"
struct S g3(void) { return (struct S){1}; }
struct S g4(void) { return {1}; }
//                         ^
// expect: error #29 expected an expression
struct S g5(void) { return 0; }
//                         ^
// expect: error #121 return value type "int" does not match the function type "struct S"
int *g6(void) { return 0; }
int *g7(void) { return i; }
//                     ^
// expect: warning #121 return value type "int" does not match the function type "int *"
int *g8(void) { return pc; }
//                     ^
// expect: warning #121 return value type "const int *" does not match the function type "int *"
int *g9(void) { return fl; }
//                     ^
// expect: error #121 return value type "float" does not match the function type "int *"
void *g10(void) { return p; }
int g11(void) { return p; }
//                     ^
// expect: warning #121 return value type "int *" does not match the function type "int"
_Bool g12(void) { return p; }
char g13(void) { return 300; }
//                      ^
// expect: warning #70 integer conversion resulted in truncation
unsigned char g14(void) { return -1; }
//                               ^
// expect: warning #69 integer conversion resulted in a change of sign
float g15(void) { return 1; }
void g16(void) { return v(); }
void g17(void) { return (void)1; }
int g18(void) { return v(); }
//                     ^
// expect: error #121 return value type "void" does not match the function type "int"
void g19(void) { return i; }
//               ^
// expect: warning #119 a value is returned from a function that returns void
int g20(void) { return; }
//              ^
// expect: warning #118 non-void function "g20" should return a value
int g21(void) { }
//              ^
// expect: warning #994 missing return statement at end of non-void function "g21"
int g22(int n) { if (n) return 1; }
//                                ^
// expect: warning #994 missing return statement at end of non-void function "g22"
int g23(int n) { if (n) return 1; else return 2; }
int g24(int n) { for (;;) n++; }
int g25(int n) { while (1) if (n) break; }
//                                       ^
// expect: warning #994 missing return statement at end of non-void function "g25"
int g26(int n) { while (n) return 1; }
//                                   ^
// expect: warning #994 missing return statement at end of non-void function "g26"
int g27(int n) { do return 1; while (n); }
int g28(int n) { switch (n) { case 1: return 1; default: return 2; } }
int g29(int n) { switch (n) { case 1: return 1; } }
//                                                ^
// expect: warning #994 missing return statement at end of non-void function "g29"
int g30(int n) { switch (n) { default: return 1; case 2: break; } }
//                                                                ^
// expect: warning #994 missing return statement at end of non-void function "g30"
int g31(void) { quit(); }
int g32(int n) { if (n) quit(); else return 1; }
int g33(int n) { l: if (n) goto l; return 1; }
int g34(int n) { goto end; end: return n; }
int g35(int n) { l: goto l; }
int g36(int n) { { return n; } }
int g37(void) { return i i; }
//                       ^
// expect: error #66 expected a ";"
int g38(void) { return }
//                     ^
// expect: error #29 expected an expression
int g39(void) { return int; }
//                     ^
// expect: error #256 type name is not allowed
int g40(void) { return (1; }
//                       ^
// expect: error #18 expected a ")"
int g41(void) { return ({ i = 1; i; }); }
int g42(void) { return ({ i = 1; }); }
int g43(void) { return ({ while (i) ; }); }
//                     ^
// expect: error #121 return value type "void" does not match the function type "int"
int main(void) { if (i) return 3; }
