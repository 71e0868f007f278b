// options: --c89 --gcc
// GNU spellings in C89 mode.
__inline__ static int f(int a) { return a; }
__inline int g(int a);
__const int c = 1; __volatile__ int v; __signed__ char s;
__typeof__(c) t = 3; typeof(c) u = 4;
int *__restrict p; int *__restrict__ q;
__extension__ long long ll = 5LL; long long plain;
__asm__("nop"); asm("nop");
int aligned = __alignof__(double) + __alignof(int);
int a[3] = { [1] = 2 }; struct s2 { int x; } s2 = { x: 1 };
// comment
int h(void) { int x; x = 1; int y = x; return y; }
int *lit(void) { return (int[]){1, 2}; }
inline int gnu_inline(void) { return 0; }
int e(int n) { return n ?: 3; }
void *arith(void *w) { w += 1; return w + 1; }
int size = sizeof(void) + sizeof(f);
int range(int n) { switch (n) { case 1 ... 3: return 1; } return 0; }
int z[0]; struct {} empty; unsigned char esc = '\e';
#define va(fmt, args...) f(0, ##args)
int dollar$name;
