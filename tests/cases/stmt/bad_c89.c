// options: --c89
int i, *p;
struct S { int a; } s;
int fn();
int g(int);
int f(int n) {
  int a = 1;
  i = 2;
  int b = 3;
  for (int k = 0; k < n; k++) i += k;
//     ^
// expect: error #256 type name is not allowed
  return;
// expect: warning #118 non-void function "f" should return a value
}
implicit_int(void) { return 1; }
int h(x) { return x; }
int k(void) { undeclared(1, 2); return undeclared2() + g(); }
//            ^
// expect: warning #225 function "undeclared" declared implicitly
//                                     ^
// expect: warning #225 function "undeclared2" declared implicitly
//                                                       ^
// expect: error #167 too few arguments in function call
const j = 3;
//    ^
// expect: warning #262 type specifier is missing, "int" assumed
int l(n) double n; { return n; }
int m(void) { if (i) return 1; }
//                             ^
// expect: warning #994 missing return statement at end of non-void function "m"
main() { }
long long ll = 1LL;

struct S lit(void) { return (struct S){1}; }
struct S des = {.a = 1};
inline int inl(void) { return 1; }
int q(int n) { switch (n) { case 1: int z; } return fn(1, 2, s) + fn(); }
//                                  ^
// expect: warning #1148 a declaration cannot have a label
enum { E1, E2, };
