/* options: --c89 --strict */
struct s { int a[3]; } make(void);
int first(void) { return make().a[0]; }
/*                       ^ */
/* expect: error #298 invalid use of non-lvalue array */
