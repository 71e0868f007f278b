// options: --c11
struct S { int a; } s;
int i, j, *p;
void f(void) {
  for (int k = 0, *q = p; k < 3; k++, q++) i += *q;
  i = k;
//    ^
// expect: error #20 identifier "k" is undefined
  for (struct L { int m; } l = {0}; l.m < 2; l.m++) ;
  for (extern int e; e; ) ;
//     ^
// expect: error #1220 invalid storage class in the first clause of a for statement
  for (typedef int T; i; ) ;
//     ^
// expect: error #1220 invalid storage class in the first clause of a for statement
  for (int g0(void); i; ) ;
//         ^
// expect: error #1220 invalid storage class in the first clause of a for statement
  for (register int r = 0; r < 1; r++) ;
  for (int x = 0; x < 1; x++) { int x = 2; i = x; }
  for (i = 0, j = 1; i < j; i++, j--) ;
  for (; ; ) break;
  for (int a = 1; int b = 2; ) ;
//                ^
// expect: error #256 type name is not allowed
  for (i = 0; i < 1; i++ ;) ;
//                       ^
// expect: error #18 expected a ")"
  for (i = 0) ;
//          ^
// expect: error #66 expected a ";"
  for () ;
//     ^
// expect: error #29 expected an expression
  for (;) ;
//      ^
// expect: error #29 expected an expression
  for (i = 0; i < 1) ;
//                 ^
// expect: error #66 expected a ";"
  for i = 0; ;
//    ^
// expect: error #126 expected a "("
  for (s; i; i++) break;
  for (; s; ) ;
//       ^
// expect: error #42 expression must have arithmetic or pointer type
  for (; i; s++) ;
//          ^
// expect: error #32 expression must have arithmetic type
  while ;
//      ^
// expect: error #126 expected a "("
  while () ;
//       ^
// expect: error #29 expected an expression
  while (int w = 1) ;
//       ^
// expect: error #256 type name is not allowed
  while (i) { int w; } w = 1;
//                     ^
// expect: error #20 identifier "w" is undefined
  while (i);
  while (i = 3) break;
//       ^
// expect: warning #189 use of "=" where "==" may have been intended
  while ((i = 3)) break;
  do i++; while (i < 3);
  do i++; while (i < 3)
  i = 2;
// expect: error #66 expected a ";"
  do ; i = 1; while (i);
//     ^
// expect: error #113 expected "while"
  do { i = 1; } 
  i = 2;
// expect: error #113 expected "while"
  do { int d; d = 1; } while (d);
//                            ^
// expect: error #20 identifier "d" is undefined
  while (1) int decl;
//          ^
// expect: error #527 a declaration cannot be the dependent statement of another statement
  if (i) int decl2;
// expect: warning #112 statement is unreachable
//       ^
// expect: error #527 a declaration cannot be the dependent statement of another statement
  if (i) ; else i = 1;
//       ^
// expect: warning #2082 empty dependent statement in an if-statement
  if (i) i = 1; else ;
//                   ^
// expect: warning #2083 empty dependent statement in "else" clause of if-statement
  if (i) { } else { }
  if (i = 1) i = 2;
//    ^
// expect: warning #189 use of "=" where "==" may have been intended
  if (i == 1); i = 2;
//           ^
// expect: warning #2082 empty dependent statement in an if-statement
  if (p = 0) i = 2;
//    ^
// expect: warning #189 use of "=" where "==" may have been intended
  if (f) i = 1;
//    ^
// expect: warning #238 controlling expression is constant
  if (&i) i = 1;
//    ^
// expect: warning #238 controlling expression is constant
  if ("x") i = 1;
//    ^
// expect: warning #238 controlling expression is constant
  if (i) else i = 1;
//       ^
// expect: error #128 expected a statement
  if (i) i = 1; else i = 2; else i = 3;
//                          ^
// expect: error #128 expected a statement
  if (i, s.a) ;
//    ^
// expect: warning #176 expression has no effect
//            ^
// expect: warning #2082 empty dependent statement in an if-statement
  if (s) i = 1; else i = 2;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  if ((void)0) i = 1;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  if i) i = 1;
//   ^
// expect: error #126 expected a "("
  if (i i = 1;
//      ^
// expect: error #18 expected a ")"
//           ^
// expect: warning #2082 empty dependent statement in an if-statement
}
void g(void) { for (int v = 0; v < 1; v++) for (int v = 1; v < 2; v++) i = v; if (i) { int v; v = i; } i = v; }
//                                                                                                         ^
// expect: error #20 identifier "v" is undefined
