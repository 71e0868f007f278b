// options: --c89 --gcc --report_gnu_extensions --remarks
// Forms that are extensions, with a remark where it was asked for.
struct flexible { int n; int a[]; };
int renamed(void) __asm__("other");
typedef unsigned u_t;
u_t long both;
// expect: error #85 invalid combination of type specifiers
long float lf;
// expect: error #85 invalid combination of type specifiers
int lit(void) { struct p { int a; } *q = &(struct p){1}; return q->a; }
//                                        ^
// expect: warning #1880 compound literals are nonstandard
int outer(int (*p)(struct in_prototype *));
//                        ^
// expect: warning #233 declaration is not visible outside of function
int inner(struct in_list *p);
//               ^
// expect: warning #233 declaration is not visible outside of function
int t(int i) { return sizeof(int[i]); }
//                               ^
// expect: error #1489 a variable-length array is not supported
