/* options: --old_c */
/* K&R C: words of later standards are names, old operators and old declarations hold. */
int const, volatile, signed;
int f(a, b, c) int a; char *b; { return a + *b + c; }
int g(x) float x; { return x; }
h(n) { return n; }
static s;
int old_init(a) { int x = 3; x = a; return x + const; }
struct a { int m; }; struct b { int k; };
int members(p) struct a *p; { return p->m + sizeof(struct b); }
int call_any() { return undeclared(1, "x", 2.0) + f(); }
/*                      ^ */
/* expect: warning #225 function "undeclared" declared implicitly */
char text[] = "a" ; int v = 0x10, o = 010, l = 5L;
int compare(p, i) char *p; int i; { return p == i; }
/*                                           ^ */
/* expect: warning #43 operand types are incompatible ("char *" and "int") */
enum e { A, B } e; void nothing() {}
int assign(p, i) int *p; { p = i; return p; }
/*                             ^ */
/* expect: warning #515 a value of type "int" cannot be assigned to an entity of type "int *" */
/*                                       ^ */
/* expect: warning #121 return value type "int *" does not match the function type "int" */
int too_large[sizeof 18446744073709551617 == 8 ? 1 : -1];
/*                   ^ */
/* expect: warning #23 integer constant is too large */
