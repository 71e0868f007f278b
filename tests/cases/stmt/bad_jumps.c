// options: --c99
int i;
void f(void) {
  break;
// expect: error #117 a break statement must stand in a loop or switch
  continue;
// expect: error #116 a continue statement must stand in a loop
  goto missing;
//     ^
// expect: error #115 label "missing" was used but never defined
  case 1: ;
// expect: error #122 a case label must stand in a switch
  default: ;
// expect: error #123 a default label must stand in a switch
l: ;
l: ;
// expect: error #249 label "l" has already been defined
  switch (i) {
    case 1:
    case 1:
//       ^
// expect: error #1851 case label value has already appeared in this switch
      break;
    case i:
//       ^
// expect: error #28 expression must have a constant value
      break;
    default:
    default:
//  ^
// expect: error #125 a second default label stands in this switch
      break;
    case 2.5:
//       ^
// expect: error #159 expression must be an integral constant expression
      break;
  }
  while (i) {
    continue;
  }
}
int g(void) { return; }
//            ^
// expect: warning #118 non-void function "g" should return a value
void h(void) { return 1; }
//             ^
// expect: warning #119 a value is returned from a function that returns void
struct s { int a; } v;
int k(void) { return v; }
//                   ^
// expect: error #121 return value type "struct s" does not match the function type "int"
int *m(void) { return 1.5; }
//                    ^
// expect: error #121 return value type "double" does not match the function type "int *"
void n(void) {
  if (v) ;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
//       ^
// expect: warning #2082 empty dependent statement in an if-statement
  while (v) ;
//       ^
// expect: error #42 expression must have arithmetic or pointer type
  for (; v;) ;
//       ^
// expect: error #42 expression must have arithmetic or pointer type
  switch (1.5) { default: ; }
//        ^
// expect: error #31 expression must have integral type
  do ; while (v);
//            ^
// expect: error #42 expression must have arithmetic or pointer type
}
