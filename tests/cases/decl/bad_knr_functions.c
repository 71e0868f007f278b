// options: --c89
int f(a, b)
  int a, c;
//       ^
// expect: error #100 a declaration here must declare a parameter
  int a;
//    ^
// expect: error #102 "a" has already been declared in the current scope
{
  return a + b;
}
int g(x) int x = 1;
//             ^
// expect: error #79 a parameter declaration may not have an initializer
{
  return x;
}
int no_brace(a, b)
  int a, b;
  return a + b;
// expect: error #131 expected a "{"
}
// expect: warning #994 missing return statement at end of non-void function "no_brace"
