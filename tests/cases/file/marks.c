// options: --c99 --abi=eabi --visibility=hidden
// Marks for the linker that nobody wrote at the entity: the visibility of definitions, the floating
// point of interfaces, the inline functions of a file that asks for all of them.
#pragma ALWAYS_INLINE
struct three { float a, b, c; };
struct four { double a[1]; };
struct five { float a, b, c, d, e; };
struct mixed { float a; double b; };
extern int outside;
int value = 1;
static int kept;
static inline int square(int x) { return x * x; }
int by_struct(struct three v) { return 1; }
int by_memory(struct five v, struct mixed m, struct four f, float *p) { return square(kept); }
long double result(int a) { return a; }
float copied(int a) { return a; }
int by_call(void) { return copied(2) > (float)result(3) ? outside : 0; }
int by_intrinsic(double *p) { return (int)fabs(*p); }
