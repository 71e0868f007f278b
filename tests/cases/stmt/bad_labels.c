// options: --c11
int i;
typedef int T;
void f(void) {
  goto forward;
  goto never;
// expect: warning #112 statement is unreachable
//     ^
// expect: error #115 label "never" was used but never defined
  goto never;
// expect: warning #112 statement is unreachable
back: i = 1;
forward:
  goto back;
back: ;
// expect: error #249 label "back" has already been defined
unused: ;
  goto i;
  goto 3;
// expect: warning #112 statement is unreachable
//     ^
// expect: error #41 expected an identifier
  goto ;
//     ^
// expect: error #41 expected an identifier
  goto back
  ;
T: i = 2;
  goto T;
i: i++;
  goto "x";
//     ^
// expect: error #41 expected an identifier
}
void g(void) {
  goto back;
//     ^
// expect: error #115 label "back" was used but never defined
  { inner: ; { int inner; inner = 1; } }
  goto inner;
  { __label__ l1, l2; l1: goto l2; l2: goto l1; }
  { __label__ lost; goto lost; }
//                  ^
// expect: warning #112 statement is unreachable
//            ^
// expect: error #115 label "lost" was used but never defined
  { __label__ twice, twice; twice: ; }
//                   ^
// expect: error #249 label "twice" has already been defined
  { __label__ l1; goto l1; l1: ; }
  goto l1;
//     ^
// expect: error #115 label "l1" was used but never defined
  { i = 1; __label__ late; }
//  ^
// expect: warning #112 statement is unreachable
//         ^
// expect: error #20 identifier "__label__" is undefined
  { __label__; }
//           ^
// expect: error #41 expected an identifier
  { __label__ 3; }
//            ^
// expect: error #41 expected an identifier
}
int h(int n) {
  if (n) goto end;
  return 1;
end:
}
// expect: warning #128 expected a statement
// expect: warning #994 missing return statement at end of non-void function "h"
int k(int n) {
  if (n) lab: n++;
  else other: n--;
  goto lab, other;
//        ^
// expect: error #66 expected a ";"
  lab2: int decl = 1;
//      ^
// expect: warning #1148 a declaration cannot have a label
  goto other;
  lab3: lab4: lab5: return decl;
  goto lab4;
// expect: warning #112 statement is unreachable
  lab3: return 2;
// expect: error #249 label "lab3" has already been defined
}
void outside(void) { : i = 1; }
//                   ^
// expect: error #29 expected an expression
void m(void) { goto x; { int vis = 3; x: i = vis; } }
void n(void) { break; continue; while (1) { break; } do { continue; } while (0); for (;;) { if (i) break; else continue; } }
//             ^
// expect: error #117 a break statement must stand in a loop or switch
//                    ^
// expect: error #116 a continue statement must stand in a loop
void o(void) { if (i) break; { continue; } switch (i) { default: break; } switch (i) { case 1: continue; } }
//                    ^
// expect: error #117 a break statement must stand in a loop or switch
//                             ^
// expect: error #116 a continue statement must stand in a loop
//                                                                                             ^
// expect: error #116 a continue statement must stand in a loop
void p(void) { ({ break; }); while (i) ({ break; }); }
//                ^
// expect: error #117 a break statement must stand in a loop or switch
void q(void) { void *t = &&l; goto *t; l: ; }
//                       ^
// expect: error #1489 GCC && operator not supported
//                            ^
// expect: error #1489 GCC-style assigned goto not supported
