// options: --c11 --gcc
// What holds for short lists and chains holds for long ones.
typedef int *const t0;
typedef t0 t1; typedef t1 t2; typedef t2 t3; typedef t3 t4; typedef t4 t5; typedef t5 t6;
typedef t6 t7; typedef t7 t8; typedef t8 t9; typedef t9 t10; typedef t10 t11; typedef t11 t12;
typedef t12 t13; typedef t13 t14; typedef t14 t15; typedef t15 t16; typedef t16 t17; typedef t17 t18;
typedef t18 t19; typedef t19 t20; typedef t20 t21; typedef t21 t22; typedef t22 t23; typedef t23 t24;
typedef t24 t25; typedef t25 t26; typedef t26 t27; typedef t27 t28; typedef t28 t29; typedef t29 t30;
typedef t30 t31; typedef t31 t32; typedef t32 t33; typedef t33 t34; typedef t34 t35; typedef t35 t36;
typedef t36 t37; typedef t37 t38; typedef t38 t39; typedef t39 t40; typedef volatile t40 t41; typedef t41 t42;
typedef t42 t43; typedef t43 t44; typedef t44 t45; typedef t45 t46; typedef t46 t47; typedef t47 t48;
typedef t48 t49; typedef t49 t50; typedef t50 t51; typedef t51 t52; typedef t52 t53; typedef t53 t54;
typedef t54 t55; typedef t55 t56; typedef t56 t57; typedef t57 t58; typedef t58 t59; typedef t59 t60;
typedef t60 t61; typedef t61 t62; typedef t62 t63; typedef t63 t64; typedef t64 t65; typedef t65 t66;
typedef t66 t67; typedef t67 t68; typedef t68 t69; typedef t69 t70; typedef t70 t71; typedef t71 t72;
typedef t72 t73; typedef t73 t74; typedef t74 t75; typedef t75 t76; typedef t76 t77; typedef t77 t78;
typedef t78 t79; typedef t79 t80; typedef t80 t81; typedef t81 t82; typedef t82 t83; typedef t83 t84;
typedef t84 t85; typedef t85 t86; typedef t86 t87; typedef t87 t88; typedef t88 t89; typedef t89 t90;
void chains(t90 last, t30 early, int x) {
  last = 0;
// expect: error #138 expression must be a modifiable lvalue
  early = 0;
// expect: error #138 expression must be a modifiable lvalue
  *last = x;
  int *plain = &last;
//             ^
// expect: warning #145 a value of type "t90 *" cannot be used to initialize an entity of type "int *"
  int is_volatile = _Generic(&last, int *const volatile *: 1);
  int is_not = _Generic(&early, int *const *: 1);
  int picked = _Generic(x, default: last, int: _Generic(last, char: 2, default: undeclared, int *: 1));
}
int old(n0, n1, n2, n3, n4, n5, n6, n7, n8, n9, n10, n11, n12, n13, n14, n15, n16, n17, n18, n19, n3, n19, n20)
//                                                                                                ^
// expect: error #101 parameter "n3" has already been declared
//                                                                                                    ^
// expect: error #101 parameter "n19" has already been declared
int n0, n19, n21;
//           ^
// expect: error #100 a declaration here must declare a parameter
char n19;
//   ^
// expect: error #102 "n19" has already been declared in the current scope
{ return n0 + n19 + n20; }
