// options: --c11 --gcc
extern int errno_like;
__zvn_size_type__ size;
__zvn_ptrdiff_type__ difference;
__zvn_bool_type__ truth;
_Static_assert(sizeof(__zvn_size_type__) == 4 && sizeof(__zvn_ptrdiff_type__) == 4, "word");
_Static_assert(__ALIGNOF__(long long) == __alignof__(long long), "same");
__const__ int constant = 1;
__volatile int changing;
__signed int negative = -1;
__typeof(negative) *pointer = &negative;
__thread int own;
__declspec(dllexport) int shown;
// expect: warning #1489 the attribute "dllexport" is not supported
_declspec(dllexport) int shown_too;
// expect: warning #1489 the attribute "dllexport" is not supported
__interrupt void handler(void) { changing = 1; }
int table[4] __attribute((aligned(8)));
struct s { int a, b; };
unsigned offset = __INTADDR__(&((struct s *)0)->b);
unsigned offset_too = __intaddr__(&((struct s *)0)->b);
int *address = __builtin_addressof(negative);
int same = __builtin_types_compatible_p__(int, __signed);
void f(int n, ...) {
  char *p = (char *)__va_parmadr(n);
  char *q = (char *)__va_argref(n);
  int r = __va_argcsu(n);
  (void)p, (void)q, (void)r;
}
