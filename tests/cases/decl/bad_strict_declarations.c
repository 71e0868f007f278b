/* options: --c89 --strict */
long long a1;
unsigned long long int a2;
long float a3;
/* expect: error #85 invalid combination of type specifiers */
int static a4;
/*  ^ */
/* expect: warning #83 storage class is not first */
const const int a5;
/*    ^ */
/* expect: error #84 type qualifier specified more than once */
/*              ^ */
/* expect: warning #259 const variable "a5" requires an initializer */
typedef const int a6;
const a6 a7;
/* expect: error #84 type qualifier specified more than once */
/*       ^ */
/* expect: warning #259 const variable "a7" requires an initializer */
enum a8 { a9, b1, };
/*              ^ */
/* expect: error #230 extra comma is nonstandard */
enum b2;
/*   ^ */
/* expect: error #103 forward declaration of an enum type is nonstandard */
struct b3 { int : 3; };
/*        ^ */
/* expect: error #621 struct or union declares no named members */
struct b4 { long x : 3; unsigned char y : 3; int z : 3; unsigned w : 3; signed v : 1; };
/*               ^ */
/* expect: error #232 nonstandard type for a bit field */
/*                                    ^ */
/* expect: error #232 nonstandard type for a bit field */
struct b5 { int n; int rest[]; };
/*                     ^ */
/* expect: error #71 incomplete type is not allowed */
struct b6 { int n; struct { int a; }; };
/*                 ^ */
/* expect: error #65 declaration does not declare anything */
struct b7 { int a; };;
/*                   ^ */
/* expect: error #383 extra ";" ignored */
struct b8 { int a;; };
/*                ^ */
/* expect: error #383 extra ";" ignored */
int b9[0];
/*     ^ */
/* expect: error #95 the size of an array must be greater than zero */
int c1(...);
/*     ^ */
/* expect: error #671 ellipsis with no explicit parameters is nonstandard */
c2;
/* expect: warning #78 this declaration has no storage class or type specifier */
static c3;
/*     ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
extern c4(void);
/*     ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
c5(void) { return 0; }
const c6;
/*    ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
/*    ^ */
/* expect: warning #259 const variable "c6" requires an initializer */
int c7 = {1};
int c8[2] = {{1}, {{2}}};
/*                 ^ */
/* expect: error #1045 extra braces are nonstandard */
char c9[] = ("abc");
/*          ^ */
/* expect: error #1857 a parenthesized string literal as an initializer is nonstandard */
struct d1 { int x, y; } d2 = {.x = 1};
/*                            ^ */
/* expect: error #1489 a designator in this dialect is not supported */
int d3[] = {[1] = 2};
/*          ^ */
/* expect: error #1489 a designator in this dialect is not supported */
int d4(int n) { struct d1 local = {n, n}; int array[2] = {1, n}; return local.x + array[0]; }
/*                                 ^ */
/* expect: error #28 expression must have a constant value */
/*                                    ^ */
/* expect: error #28 expression must have a constant value */
/*                                                           ^ */
/* expect: error #28 expression must have a constant value */
void d5(void) { return; int late; }
/*                      ^ */
/* expect: error #270 declaration may not appear after executable statement in block */
int d6(void) { int a; a = 1; int b = a; return b; }
/*                           ^ */
/* expect: error #270 declaration may not appear after executable statement in block */
typedef struct { int x; } d7, d8;
typedef int;
/* expect: error #377 declaration requires a typedef name */
typedef struct d9 { int x; };
/* expect: error #377 declaration requires a typedef name */
static struct e1 { int x; };
/* expect: warning #1054 a storage class requires a function or variable */
const struct e2 { int x; };
/* expect: warning #21 type qualifiers are meaningless in this declaration */
int;
/* expect: error #65 declaration does not declare anything */
struct e3 *e4;
static e5(int);
/*     ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
int e6(int x) { extern e7(); return e7(x); }
/*                     ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
void e8(void) { int x = x, *y = &x, z[2] = {0}; }
extern int e9 = 1;
static int f1[];
/*         ^ */
/* expect: warning #1951 array assumed to have one element */
struct f2;
static struct f2 f3;
/*               ^ */
/* expect: error #71 incomplete type is not allowed */
int f4(register x) { return x; }
/*     ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
int f5(void) { auto x = 1; return x; }
/*                  ^ */
/* expect: warning #262 type specifier is missing, "int" assumed */
int f7(int a[const]);
/*           ^ */
/* expect: error #752 type qualifier is not allowed */
