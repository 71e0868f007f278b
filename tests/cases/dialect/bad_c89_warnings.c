/* options: --c89 --strict_warnings --remarks */
/* What the first standard does not have is warned of. */
struct f { int n; int a[]; };
/*                    ^ */
/* expect: warning #71 incomplete type is not allowed */
long long ll = 1LL;
typedef void V;
int g(V);
/*    ^ */
/* expect: warning #496 a typedef name of void as parameter list is nonstandard */
int m(void) { struct { int a; } s = {.a = 1}; return s.a; }
/*                                   ^ */
/* expect: warning #1489 a designator in this dialect is not supported */
typedef unsigned U; U long x;
/*                  ^ */
/* expect: error #85 invalid combination of type specifiers */
void t(int (*p)(struct tag *));
/*                     ^ */
/* expect: warning #233 declaration is not visible outside of function */
double c = (int){3};
/*              ^ */
/* expect: error #29 expected an expression */
int f(a) { return a; }
/*    ^ */
/* expect: remark #1105 parameter "a" is not declared, "int" assumed */
enum { A = 3000000000u };
/*         ^ */
/* expect: warning #67 enumeration value is out of "int" range */
int h(const void) { return 0; }
/*    ^ */
/* expect: error #2770 a qualified void parameter list is nonstandard */
volatile void q(void);
/*             ^ */
/* expect: warning #1234 void return type cannot be qualified */
char main(void) { return 1; }
/*   ^ */
/* expect: warning #1005 return type of function "main" must be "int" */
