// options: --c11
int printf(const char *format, ...);
int i;
struct S { int a; } s;
void separators(int n) {
  x1
// expect: error #20 identifier "x1" is undefined
  printf("no name is declared by this");
  x2 printf("nor by this");
// expect: error #20 identifier "x2" is undefined
  undefined1;
// expect: error #20 identifier "undefined1" is undefined
  unknown_t v;
// expect: error #20 identifier "unknown_t" is undefined
  v = 1;
  int w[] = {1, 2 3, 4}, w2 = 1;
//                ^
// expect: error #68 expected a "}"
  int w3[] = {1, 2; , 3, 4};
//                ^
// expect: error #68 expected a "}"
  undefined2 = w2 + w3[0];
// expect: error #20 identifier "undefined2" is undefined
  i = ({ y3 i; 2; });
//       ^
// expect: error #20 identifier "y3" is undefined
  i = ({ i = 1 });
//             ^
// expect: error #66 expected a ";"
  i = ({ i +; }) + 1;
//          ^
// expect: error #29 expected an expression
  undefined3;
// expect: error #20 identifier "undefined3" is undefined
}
void heads(int n) {
  if n) i = 1;
//   ^
// expect: error #126 expected a "("
  while (n i = 1;
//         ^
// expect: error #18 expected a ")"
  switch (n { case 1: ; }
//          ^
// expect: error #18 expected a ")"
  do i = 1; while n);
//                ^
// expect: error #126 expected a "("
  for (i = 0; i < 3; i++ i = 2;
//                       ^
// expect: error #18 expected a ")"
  for i = 0; i < 3; i++) i = 2;
//    ^
// expect: error #126 expected a "("
  undefined4;
// expect: error #20 identifier "undefined4" is undefined
  i = n
}
// expect: error #66 expected a ";"
void associations(int n) {
  i = _Generic(n, int 1, int: 2);
//                    ^
// expect: error #54 expected a ":"
  i = _Generic(n, int * 1, int: 2);
//                      ^
// expect: error #54 expected a ":"
  i = _Generic(n, int: 1, default 2);
//                                ^
// expect: error #54 expected a ":"
  i = _Generic(n int: 1);
//               ^
// expect: error #18 expected a ")"
  undefined5;
// expect: error #20 identifier "undefined5" is undefined
}
void operators(int n) {
  i = n +;
//       ^
// expect: error #29 expected an expression
  i = * ;
//      ^
// expect: error #29 expected an expression
  i = (n;
//      ^
// expect: error #18 expected a ")"
  i = n);
//     ^
// expect: error #66 expected a ";"
  i = n];
//     ^
// expect: error #66 expected a ";"
  i = "a"[1;
//         ^
// expect: error #17 expected a "]"
  i = n ? 1;
//         ^
// expect: error #54 expected a ":"
  i = n ? : ;
//          ^
// expect: error #29 expected an expression
  i = n ? 1 : ;
//            ^
// expect: error #29 expected an expression
  i = sizeof;
//          ^
// expect: error #29 expected an expression
  i = (int;
//        ^
// expect: error #18 expected a ")"
  i = (int);
//         ^
// expect: error #29 expected an expression
  i = s.;
//      ^
// expect: error #135 expected a field name
  i = printf(;
//           ^
// expect: error #29 expected an expression
  i = printf("a",);
//               ^
// expect: error #29 expected an expression
  i = printf("a" n);
//               ^
// expect: error #18 expected a ")"
  i = , n;
//    ^
// expect: error #29 expected an expression
  i = n n;
//      ^
// expect: error #66 expected a ";"
  i == = n;
//     ^
// expect: error #29 expected an expression
  i = n ++ n;
//         ^
// expect: error #66 expected a ";"
  i = "a" n "b";
//    ^
// expect: warning #515 a value of type "char *" cannot be assigned to an entity of type "int"
//        ^
// expect: error #66 expected a ";"
  = i;
// expect: error #29 expected an expression
  ) i;
// expect: error #128 expected a statement
  ] i;
// expect: error #128 expected a statement
  i = {1};
//    ^
// expect: error #29 expected an expression
  i = n; }
  undefined6 = 1;
// expect: warning #78 this declaration has no storage class or type specifier
int last_line_is_read = undefined7;
//                      ^
// expect: error #20 identifier "undefined7" is undefined
