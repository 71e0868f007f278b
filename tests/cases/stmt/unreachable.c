// options: --c11
_Noreturn void quit(void);
int i;
void a(void) { return; i = 1; i = 2; }
//                     ^
// expect: warning #112 statement is unreachable
void b(void) { while (1) { i++; } i = 3; }
//                                ^
// expect: warning #112 statement is unreachable
void c(void) { for (;;) { if (i) break; } i = 3; }
void d(void) { goto l; i = 1; l: i = 2; }
//                     ^
// expect: warning #112 statement is unreachable
void e(void) { while (i) { break; i = 1; } i = 2; }
//                                ^
// expect: warning #112 statement is unreachable
void f(void) { for (; i; i++) { continue; i = 1; } }
//                                        ^
// expect: warning #112 statement is unreachable
void g(void) { switch (i) { i = 1; case 1: return; i = 2; default: break; i = 3; } i = 4; }
//                          ^
// expect: warning #112 statement is unreachable
//                                                 ^
// expect: warning #112 statement is unreachable
//                                                                        ^
// expect: warning #112 statement is unreachable
void h(void) { if (i) return; else return; i = 1; }
//                                         ^
// expect: warning #112 statement is unreachable
void k(void) { if (1) return; i = 1; }
//                            ^
// expect: warning #112 statement is unreachable
void l(void) { if (0) i = 1; while (0) i = 2; do i = 3; while (0); i = 4; }
void m(void) { quit(); i = 1; }
void n(void) { do { return; } while (i); i = 1; }
//                                       ^
// expect: warning #112 statement is unreachable
void o(void) { return; ; }
void p(void) { return; { i = 1; } }
//                       ^
// expect: warning #112 statement is unreachable
void q(void) { return; { int x; x = 1; { lab: i = x; } } goto lab; }
//                              ^
// expect: warning #112 statement is unreachable
void r(void) { for (;;) ; i = 1; }
//                        ^
// expect: warning #112 statement is unreachable
void s(void) { while (1) { if (i) continue; if (i) goto out; } i = 1; out: i = 2; }
//                                                             ^
// expect: warning #112 statement is unreachable
void t(void) { switch (i) { case 1: return; default: return; } i = 1; }
//                                                             ^
// expect: warning #112 statement is unreachable
void u(void) { switch (i) { case 1: return; } i = 1; }
int v(void) { return 1; return 2; }
//                      ^
// expect: warning #112 statement is unreachable
void w(void) { return; int x = 1; i = x; }
//                                ^
// expect: warning #112 statement is unreachable
void x(void) { return; typedef int T; struct S { T a; }; static T st = 3; i = st; }
//                                                                        ^
// expect: warning #112 statement is unreachable
void y(void) { do { break; } while (i); i = 1; }
void z(void) { while (1) switch (i) { case 1: break; } i = 1; }
//                                                     ^
// expect: warning #112 statement is unreachable
