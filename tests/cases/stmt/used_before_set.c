// options: --gcc --c99
// What is read in front of everything that could set it, once a variable.
int use(int), get(int *);
int plain(void) { int a; use(a); return a; }
//                           ^
// expect: warning #551 variable "a" is used before its value is set
int increment(void) { int a; a++; return 1; }
// expect: warning #551 variable "a"
int compound(void) { int a; a += 1; return 1; }
// expect: warning #551 variable "a"
int early(int p) { int a; if (p) return a; a = 1; return a; }
//                                      ^
// expect: warning #551 variable "a"
int behind_a_loop(int p) { int a; while (p--) ; return a; }
// expect: warning #551 variable "a"
int in_a_loop(int p) { while (p--) { int a; use(a); a = 1; } return 1; }
// expect: warning #551 variable "a"
int through(void) { int *p; *p = 1; return 0; }
// expect: warning #551 variable "p"
int function(void) { int (*f)(int); return f(1); }
// expect: warning #551 variable "f"
double floating(void) { double d, e; e = d; return e; }
// expect: warning #551 variable "d"

// Set, or perhaps set, or not read.
int parameter(int p) { return p; }
int kept(void) { static int a; return a; }
int by_address(void) { int a; get(&a); return a; }
int branch(int p) { int a; if (p) a = 1; return a; }
int order(void) { int a, b; return (a = get(0)) && use(a) ? b = a : (a = b = 2); }
int statement(void) { int a; return (a = 1) && ({ use(a); }); }
int voided(void) { int a; (void)a; return (int)sizeof a + (int)sizeof(a + 1); }
int last_time(int p) { int a; while (p--) { if (p) use(a); a = 1; } return 1; }
int come_back(int p) { int a; again: if (p) use(a); a = 1; if (p--) goto again; return a; }
int clause(void) { int i; for (int j = 0; j < 3; j++, i++) { i = j; } return 1; }
int unreached(int p) { int a; return p; use(a); }
// expect: warning #112
int parts(void) { struct { int x, y; } s; int a[2]; s.x = 1; return s.x + s.y + a[0]; }
int changing(void) { volatile int a; return a; }
int variable(int n, ...) {
  __builtin_va_list ap;
  int r;
  __builtin_va_start(ap, n);
  r = __builtin_va_arg(ap, int);
  __builtin_va_end(ap);
  return r;
}
