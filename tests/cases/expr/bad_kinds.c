// options: --c11 --gcc --remarks
const char *outside = __func__;
int abs(int, int);
//  ^
// expect: warning #1853 declaration hides built-in function "abs"
struct s { int a[3]; } make(void);
int *array = make().a;
//               ^
// expect: error #60 function call is not allowed in a constant expression
int same(void) { return make().a == array; }
typedef int f_t(void);
f_t wrong { return 0; }
//  ^
// expect: error #94 a function definition cannot take its function type from a typedef
int designated = { .a = 1 };
//                 ^
// expect: error #1099 invalid designator kind
inline int lost(void);
static int never(int);
//         ^
// expect: warning #115 function "never" was used but never defined
int user(void) { return lost() + never(1); }
struct incomplete; 
int outer(int (*p)(struct in_prototype *));
//                        ^
// expect: warning #233 declaration is not visible outside of function
