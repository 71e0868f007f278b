// options: --c11 --gcc --abi=eabi
// GNU forms that lowering rewrites.
#define max(a, b) ({ __typeof__(a) x_ = (a), y_ = (b); x_ > y_ ? x_ : y_; })
int get(void);
int biggest(int a, int b) { return max(a, b) + max(get(), 3); }
int missing_middle(int a) { return get() ?: a; }
int literal(void) { return ((int[]){1, 2, 3})[get()]; }
struct p { int x, y; }; struct p compound(int a) { return (struct p){.y = a}; }
void local(int a) { int t[4] = {a, [2] = 5}; struct p q = {a}, r = q; char s[6] = "hi"; static int n = 1; t[n] = q.x + r.y + s[1]; }
int evaluated(int n) { return __builtin_expect(n, 1) + __builtin_constant_p(n) + (int)sizeof(n++); }
const char *name(void) { return __func__; }
