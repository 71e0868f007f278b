// options: --c11 --gcc
#define f(x) x
#define g() 1
#define v(a, ...) a __VA_ARGS__
int a1 = f();
//          ^
// expect: error #29 expected an expression
int a2 = f(1, 2);
//          ^
// expect: error #56 too many arguments in invocation of macro "f"
int a3 = g(1);
//          ^
// expect: error #56 too many arguments in invocation of macro "g"
int a4 = g( );
int a5 = v();
//          ^
// expect: error #29 expected an expression
int a6 = v(1);
int a7 = f((1, 2));
//       ^
// expect: error #58 this operator is not allowed in a constant expression
int a8 = f(1)(2);
//       ^
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
int a9 = f;
//       ^
// expect: error #20 identifier "f" is undefined
int b1 = f (3);
int b2 = f
(4);
int b3 = f(f)(5);
int b4 = f(g)();
int b5 = f(#);
//       ^
// expect: error #10 "#" not expected here
int b6 = f(
#define inside 6
inside);
int b7 = f(
#ifdef inside
7
#else
8
#endif
);
int b8 = f("a)" ")"[0]);
int b9 = f(')');
int c2 = f({1});
int c3 = f(/* ) */ 1 // )
);
int c4 = f('a);
//       ^
// expect: error #8 missing closing quote
int c5 = f(1);
