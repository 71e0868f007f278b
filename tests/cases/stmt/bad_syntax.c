// options: --c99
int i;
void a(void) { i = 1 }
//                   ^
// expect: error #66 expected a ";"
void b(void) { if i ; }
//                ^
// expect: error #126 expected a "("
//                  ^
// expect: warning #2082 empty dependent statement in an if-statement
void c(void) { for (i = 0; i < 3) ; }
//                              ^
// expect: error #66 expected a ";"
void d(void) { i = (1; }
//                   ^
// expect: error #18 expected a ")"
void f(void) { else i = 1; }
//             ^
// expect: error #128 expected a statement
void g(void) { do i = 1; }
//                       ^
// expect: error #113 expected "while"
void h(void) { while () ; }
//                    ^
// expect: error #29 expected an expression
void j(void) { return 1 2; }
//             ^
// expect: warning #119 a value is returned from a function that returns void
//                      ^
// expect: error #66 expected a ";"
void k(void) { goto 3; }
//                  ^
// expect: error #41 expected an identifier
void l(void) { int ; }
//             ^
// expect: warning #65 declaration does not declare anything
void m(void) { 1 +; }
//                ^
// expect: error #29 expected an expression
void o(void) { i = ; }
//                 ^
// expect: error #29 expected an expression
void p(void) { x y; }
//             ^
// expect: error #20 identifier "x" is undefined
void q(void) { switch i { } }
//                    ^
// expect: error #126 expected a "("
void r(void) { unknown z; z = 1; }
//             ^
// expect: error #20 identifier "unknown" is undefined
int ok;
