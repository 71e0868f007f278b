// options: --c11
// A word that no dialect or only another one knows, in front of specifiers.
foo static int a;
// expect: error #20 identifier "foo" is undefined
foo const b;
// expect: error #20 identifier "foo" is undefined
//        ^
// expect: warning #262 type specifier is missing, "int" assumed
//        ^
// expect: warning #259 const variable "b" requires an initializer
int f(void) { foo int c; c = 1; return c; }
//            ^
// expect: error #20 identifier "foo" is undefined
int g(foo int a) { return a; }
//    ^
// expect: error #20 identifier "foo" is undefined
struct s { foo int m; };
//         ^
// expect: error #20 identifier "foo" is undefined
h(n) int n; { return n; }
// expect: warning #262 type specifier is missing, "int" assumed
k(n, m) long m; { return n; }
// expect: warning #262 type specifier is missing, "int" assumed
