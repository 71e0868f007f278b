// options: --c11
int i, *p;
struct S { int a; } s;
int at_file = ({ 1; });
//            ^
// expect: error #1242 statement expressions are only allowed in block scope
int size_at_file[({ 2; })];
//               ^
// expect: error #1242 statement expressions are only allowed in block scope
int f(int n) {
  int a = ({ 1; });
  int b = ({ int x = n; x * 2; });
  int c = ({ i = 1; i; }) + ({ 2; });
  int d = ({ ({ 3; }); });
  struct S e = ({ s; });
  i = ({ s; }).a;
  i = ({ &s; })->a;
  ({ i = 1; });
  ({ });
  ({ ; });
  (void)({ i; });
  i = ({ });
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  i = ({ ; });
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  i = ({ i = 1; ; });
  i = ({ int y; });
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  i = ({ while (0) ; });
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  i = ({ if (i) 1; else 2; });
//              ^
// expect: warning #176 expression has no effect
//                      ^
// expect: warning #176 expression has no effect
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  i = ({ return 1; 2; });
//                 ^
// expect: warning #112 statement is unreachable
  i = ({ lab: 3; });
  i = ({ 1 });
//         ^
// expect: error #66 expected a ";"
  i = ({ 1; };
//           ^
// expect: error #18 expected a ")"
  i = ({ 1; 2; });
//       ^
// expect: warning #176 expression has no effect
  ({ s; }).a = 1;
// expect: error #138 expression must be a modifiable lvalue
  ({ i; }) = 1;
// expect: error #138 expression must be a modifiable lvalue
  p = &({ i; });
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = ({ int arr[2]; arr; });
  i = sizeof ({ char ch; ch; });
  static int st = ({ 1; });
//                ^
// expect: error #28 expression must have a constant value
  switch (n) { case ({ 1; }): break; }
//                  ^
// expect: error #28 expression must have a constant value
  goto inside;
// expect: error #1303 transfer of control into a statement expression is not allowed
  i = ({ inside: 4; });
// expect: warning #112 statement is unreachable
  for (({ i = 0; }); ({ i < 3; }); ({ i++; })) ;
  if (({ n; })) return ({ n; });
  i = ({ undefined_name; });
//       ^
// expect: error #20 identifier "undefined_name" is undefined
  i = ({ int z = 1; z; }) + z;
//                          ^
// expect: error #20 identifier "z" is undefined
  i = ({ __label__ l; if (n) goto l; n = 2; l: n; });
  return a + b + c + d + e.a;
}
