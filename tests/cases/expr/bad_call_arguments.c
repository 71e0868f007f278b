// options: --c11
struct S { int a; } s;
struct T { int a; } t;
enum E { E0 } e;
int i, *p, arr[3];
const int *pc;
char *c;
const char *cc;
float f;
void v(void), none(), pi(int *), pci(const int *), pvoid(void *), pf(int (*)(int)), pd(double), ps(struct S), pps(struct S *);
void pe(enum E), parr(int [static 3]), p2(int (*)[3]), pb(_Bool), pchar(char), pvar(int, ...), ppc(const char **);
int fn(int), fv(void);
volatile int *pvol;
int old();
void (*tab[2])(int *);
struct H { void (*cb)(int, int); int (*mk)(void); } h, *ph;
void call(void) {
  v();
  v(1);
//  ^
// expect: error #141 too many arguments in function call
  none(1, 2.0, s, p);
  none(v());
//     ^
// expect: error #71 incomplete type is not allowed
  pi(p), pi(arr), pi(&arr[1]), pi(0), pi((void *)0);
  pi(i);
//   ^
// expect: warning #169 argument of type "int" is incompatible with parameter of type "int *"
  pi(pc);
//   ^
// expect: warning #169 argument of type "const int *" is incompatible with parameter of type "int *"
  pi(c);
//   ^
// expect: warning #169 argument of type "char *" is incompatible with parameter of type "int *"
  pi(f);
//   ^
// expect: error #169 argument of type "float" is incompatible with parameter of type "int *"
  pi(s);
//   ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "int *"
  pi(&arr);
//   ^
// expect: warning #169 argument of type "int (*)[3]" is incompatible with parameter of type "int *"
  pi(pvol);
//   ^
// expect: warning #169 argument of type "volatile int *" is incompatible with parameter of type "int *"
  pi(fn);
//   ^
// expect: warning #169 argument of type "int (*)(int)" is incompatible with parameter of type "int *"
  pci(p);
  pci(pc);
  pvoid(p), pvoid(c), pvoid(&s);
  pvoid(pc);
//      ^
// expect: warning #169 argument of type "const int *" is incompatible with parameter of type "void *"
  pvoid(fn);
  pvoid(i);
//      ^
// expect: warning #169 argument of type "int" is incompatible with parameter of type "void *"
  pf(fn);
  pf(&fn);
  pf(0);
  pf(fv);
//   ^
// expect: warning #169 argument of type "int (*)(void)" is incompatible with parameter of type "int (*)(int)"
  pf(old);
  pf(p);
//   ^
// expect: warning #169 argument of type "int *" is incompatible with parameter of type "int (*)(int)"
  pd(i), pd(f), pd(e), pd('c');
  pd(p);
//   ^
// expect: error #169 argument of type "int *" is incompatible with parameter of type "double"
  pd(s);
//   ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "double"
  ps(s);
  ps(t);
//   ^
// expect: error #169 argument of type "struct T" is incompatible with parameter of type "struct S"
  ps(&s);
//   ^
// expect: error #169 argument of type "struct S *" is incompatible with parameter of type "struct S"
  pps(&s);
  pps(&t);
//    ^
// expect: warning #169 argument of type "struct T *" is incompatible with parameter of type "struct S *"
  pps(s);
//    ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "struct S *"
  pe(E0), pe(1), pe(2.5);
  parr(arr), parr(p), parr(0);
  p2(&arr);
  p2(arr);
//   ^
// expect: warning #169 argument of type "int *" is incompatible with parameter of type "int (*)[3]"
  pb(p), pb(f), pb(i);
  pb(s);
//   ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "_Bool"
  pchar(300);
//      ^
// expect: warning #70 integer conversion resulted in truncation
  pvar(1, 2, 3.0, s, p, "x");
  pvar();
//     ^
// expect: error #167 too few arguments in function call
  pvar(s);
//     ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "int"
  pvar(1, v());
//        ^
// expect: error #71 incomplete type is not allowed
  ppc(&cc);
  ppc(&c);
//    ^
// expect: warning #169 argument of type "char **" is incompatible with parameter of type "const char **"
  tab[0](p);
  tab[1](s);
//       ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "int *"
  (*tab[0])(p, 1);
//             ^
// expect: error #141 too many arguments in function call
  h.cb(1, 2), ph->cb(1, 2), (*ph->cb)(1, 2), (**h.cb)(1, 2);
  h.cb(1);
//      ^
// expect: error #167 too few arguments in function call
  h.mk()();
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  h.mk(2);
//     ^
// expect: error #141 too many arguments in function call
  i = fv() + fn(fn(fn(1)));
  i = fn(fn(fn(1, 2)));
//                ^
// expect: error #141 too many arguments in function call
  i = v();
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  i = fn;
//    ^
// expect: warning #515 a value of type "int (*)(int)" cannot be assigned to an entity of type "int"
  "abc"(1);
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  3(1);
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  (i ? fn : 0)(1);
  i += (i ? fn : fv)(1);
//        ^
// expect: warning #43 operand types are incompatible ("int (*)(int)" and "int (*)(void)")
//     ^
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  (fn)(1);
  (&fn)(1);
  (*****fn)(1);
  implicit(1, 2);
// expect: warning #225 function "implicit" declared implicitly
  i = implicit2() + 1;
//    ^
// expect: warning #225 function "implicit2" declared implicitly
}
