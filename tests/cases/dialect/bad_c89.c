/* options: --c89 --strict */
/* What came later than C89. */
inline int f(void) { return 1; }
/* expect: error #20 identifier "inline" is undefined */
long long ll;
int vla(int n) { int a[n]; return sizeof a; }
/*                     ^ */
/* expect: error #28 expression must have a constant value */
int mixed(void) { int a; a = 1; int b; b = a; return b; }
/*                              ^ */
/* expect: error #270 declaration may not appear after executable statement in block */
int loop(void) { for (int i = 0; i < 3; i++) ; return 0; }
/*                    ^ */
/* expect: error #256 type name is not allowed */
int *compound = (int[]){1, 2};
/*                     ^ */
/* expect: error #29 expected an expression */
int designated[3] = {[1] = 2};
/*                   ^ */
/* expect: error #1489 a designator in this dialect is not supported */
struct s { int a, b; } s = {.b = 1};
/*                          ^ */
/* expect: error #1489 a designator in this dialect is not supported */
struct flexible { int n; int a[]; };
/*                           ^ */
/* expect: error #71 incomplete type is not allowed */
int restrict x; int *restrict p;
/*           ^ */
/* expect: error #66 expected a ";" */
/*                   ^ */
/* expect: error #148 declaration is incompatible with variable "restrict" */
/*                            ^ */
/* expect: error #66 expected a ";" */
_Bool b; _Complex double c;
/* expect: error #20 identifier "_Bool" is undefined */
enum e { A, B, };
/*           ^ */
/* expect: error #230 extra comma is nonstandard */
#define VARIADIC(...) __VA_ARGS__
#define EMPTY(a) a
int empty = EMPTY() 1;
/*                ^ */
/* expect: warning #77 argument to macro is empty */
double hex = 0x1.8p3;
/*           ^ */
/* expect: error #1593 hexadecimal floating-point constants are not allowed */
long long big = 123LL;
unsigned u = 4294967296;
/*           ^ */
/* expect: warning #70 integer conversion resulted in truncation */
char *name(void) { return (char *)__func__; }
/*                                ^ */
/* expect: error #20 identifier "__func__" is undefined */
int implicit(void) { return undeclared(1); }
/*                          ^ */
/* expect: warning #225 function "undeclared" declared implicitly */
noint(void) { return 0; }
static nointvar;
/*     ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
int k(a) { return a; }
_Pragma("once")
int ucn\u00e9;
/*     ^ */
/* expect: error #7 unrecognized token */
int zero[0];
/*       ^ */
/* expect: error #95 the size of an array must be greater than zero */
struct { int a; union { int b; int c; }; } anonymous;
/*              ^ */
/* expect: error #65 declaration does not declare anything */
int statement = ({ 1; });
/*               ^ */
/* expect: error #29 expected an expression */
_Static_assert(1, "");
/*             ^ */
/* expect: error #80 expected a type specifier */
_Alignas(8) int aligned;
/*       ^ */
/* expect: error #80 expected a type specifier */
_Noreturn void stops(void);
/* expect: error #20 identifier "_Noreturn" is undefined */
int generic = _Generic(1, int: 2);
/*            ^ */
/* expect: warning #225 function "_Generic" declared implicitly */
/*                        ^ */
/* expect: error #256 type name is not allowed */
/*                           ^ */
/* expect: error #18 expected a ")" */
