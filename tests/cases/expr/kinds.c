// options: --c11 --gcc --remarks
// Remarks on conversions and constants, and what hides a builtin.
int *np = (int *)3;
const char *name(void) { return __func__; }
float half(void) { return 16777217; }
static int cast(int n) { return (const int)n; }
int __builtin_abs2;
int printf(const char *, ...);
double exact = 0.1;
double low = 1e-320;
int calls(int n) { return cast(n); }
float conv = (float)3e38L;
