// options: --c11
struct S { int s, u, b, w; };
void f(int n) {
  struct S v = {.s = 15, .b ; = 1, .w = 3};
//                          ^
// expect: error #705 expected an "="
  struct S v2 = {.s = 15, .b 1, .w = 3};
//                           ^
// expect: error #705 expected an "="
  struct S v3 = {.s = 15, .b, .w = 3};
//                          ^
// expect: error #705 expected an "="
  struct S v4 = {.s = 15, .b = , .w = 3};
//                             ^
// expect: error #29 expected an expression
  struct S v5 = {1, 2; };
//                   ^
// expect: error #68 expected a "}"
  int a1[] = {[0] 5, [1, 3}, n2 = 4;
//                     ^
// expect: error #17 expected a "]"
  int a2[] = {[0 = 5, 2};
//               ^
// expect: error #58 this operator is not allowed in a constant expression
//                  ^
// expect: error #17 expected a "]"
  int a3[3] = {1, 2 };;
  int a4[3] = {1, 2, };
  int a5[3] = {, 2, };
//             ^
// expect: error #29 expected an expression
  int a6[3] = {1,, 2};
//               ^
// expect: error #29 expected an expression
  undef = 1;
// expect: error #20 identifier "undef" is undefined
}
