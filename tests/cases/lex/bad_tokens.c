// options: --c11 --gcc
struct p { int x; };
int f(int a, int b, struct p *s) {
  int c = a+++b, d = a-- -b, e = a+ ++b, g = a- -b, h = a&&b, i = a& &b != 0;
  c = 'a' 'b';
//        ^
// expect: error #66 expected a ";"
  c = "a"[0] "b";
//           ^
// expect: error #66 expected a ";"
  c = .;
//    ^
// expect: error #29 expected an expression
  c = ..5;
//    ^
// expect: error #29 expected an expression
  c = ...;
//    ^
// expect: error #29 expected an expression
  c = 1 ... 2;
//      ^
// expect: error #66 expected a ";"
  c = s->;
//       ^
// expect: error #135 expected a field name
  c = s-> x;
  c = s - > x;
//        ^
// expect: error #29 expected an expression
  c = a => b;
//       ^
// expect: error #29 expected an expression
  c = a =< b;
//       ^
// expect: error #29 expected an expression
  c = a !  = b;
//      ^
// expect: error #66 expected a ";"
  c = a <> b;
//       ^
// expect: error #29 expected an expression
  c = a >> = b;
//         ^
// expect: error #29 expected an expression
  c = a & & b;
//        ^
// expect: error #31 expression must have integral type
  c = a +* b;
//         ^
// expect: error #76 operand of "*" must be a pointer
  c = <%1%>;
//    ^
// expect: error #29 expected an expression
  int j<:2:> = <% 1, 2 %>, k = a %: b;
//                               ^
// expect: error #10 "#" not expected here
  c = a ## b;
//      ^
// expect: error #10 "#" not expected here
  c = /* a */ 1 /**/ + /***/ 2 /* * / */;
  c = 1 / * 2;
//          ^
// expect: error #76 operand of "*" must be a pointer
  c = 1 */ 2;
//       ^
// expect: error #29 expected an expression
  c = 'a'b;
//       ^
// expect: error #66 expected a ";"
  c = *"s"suffix;
//        ^
// expect: error #66 expected a ";"
  c = 3 \ 4;
//      ^
// expect: error #7 unrecognized token
  c = \
    2;
  c = ?: 1;
//    ^
// expect: error #29 expected an expression
  c = a ?: 2;
  c = a ? 1 : ;
//            ^
// expect: error #29 expected an expression
  c = a ? : ;
//          ^
// expect: error #29 expected an expression
  c = a b;
//      ^
// expect: error #66 expected a ";"
  c = a 1;
//      ^
// expect: error #66 expected a ";"
  c = 1 a;
//      ^
// expect: error #66 expected a ";"
  c = (int) ;
//          ^
// expect: error #29 expected an expression
  c = sizeof;
//          ^
// expect: error #29 expected an expression
  c = ();
//     ^
// expect: error #29 expected an expression
  c = a[];
//      ^
// expect: error #29 expected an expression
  c = j[1;
//       ^
// expect: error #17 expected a "]"
  c = f(a b);
//        ^
// expect: error #18 expected a ")"
  c = f(a, , s);
//         ^
// expect: error #29 expected an expression
  c = f(a, b, s;
//             ^
// expect: error #18 expected a ")"
  c = (a;
//      ^
// expect: error #18 expected a ")"
  c = a);
//     ^
// expect: error #66 expected a ";"
  c = a];
//     ^
// expect: error #66 expected a ";"
  return c + d + e + g + h + j[0] + k + i;
}
