/* Every arithmetic type with every other in every operator, conversion and compound assignment. */
int printf(const char *format, ...);

typedef _Bool b;
typedef char c;
typedef signed char sc;
typedef unsigned char uc;
typedef short s;
typedef unsigned short us;
typedef int i;
typedef unsigned u;
typedef long l;
typedef unsigned long ul;
typedef long long ll;
typedef unsigned long long ull;
typedef float f;
typedef double d;
typedef long double ld;

static unsigned hash;
static void mix(unsigned v) {
  hash = (hash ^ v) * 16777619u;
}
static void mix_i(int v) {
  mix(v);
}
static void mix_u(unsigned v) {
  mix(v);
}
static void mix_ll(long long v) {
  mix((unsigned)v), mix((unsigned)(v >> 32));
}
static void mix_ull(unsigned long long v) {
  mix((unsigned)v), mix((unsigned)(v >> 32));
}
static void mix_d(double v) {
  union {
    double d;
    unsigned long long n;
  } x = {v};
  mix_ull(v != v ? 1 : x.n);
}
static void mix_f(float v) {
  mix_d(v), mix(1);
}
static void mix_ld(long double v) {
  mix_d(v), mix(2);
}
static void mix_l(long v) {
  mix(v), mix(3);
}
static void mix_ul(unsigned long v) {
  mix(v), mix(4);
}
#define MIX(e)                          \
  _Generic((e), int                     \
           : mix_i, unsigned            \
           : mix_u, long                \
           : mix_l, unsigned long       \
           : mix_ul, long long          \
           : mix_ll, unsigned long long \
           : mix_ull, float             \
           : mix_f, double              \
           : mix_d, long double         \
           : mix_ld, _Bool              \
           : mix_i, char                \
           : mix_i, signed char         \
           : mix_i, unsigned char       \
           : mix_i, short               \
           : mix_i, unsigned short      \
           : mix_i)(e)

/* Values that every type takes with a meaning, and with integers those at the ends too. */
static const int small[] = {0, 1, 3, 7, 25, 100};
static const long long wide[] = {-1,
                                 127,
                                 -128,
                                 255,
                                 32767,
                                 -32768,
                                 65535,
                                 0x7fffffff,
                                 -0x7fffffffLL - 1,
                                 0xffffffffLL,
                                 0x7fffffffffffffffLL,
                                 5,
                                 -7};
#define SMALL (int)(sizeof small / sizeof *small)
#define WIDE (int)(sizeof wide / sizeof *wide)

#define COMMON(A, B)                                                                   \
  MIX(x + y), MIX(x - y), MIX(x *y), MIX(y ? x / y : x + y), MIX(x == y), MIX(x != y); \
  MIX(x < y), MIX(x > y), MIX(x <= y), MIX(x >= y), MIX(x &&y), MIX(x || y);           \
  MIX(n ? x : y), MIX((A)y), MIX((B)x), MIX((x, y)), MIX(-x), MIX(+y), MIX(!x);        \
  MIX(v = y), MIX(v += y), MIX(v), v = x, MIX(v -= y), v = x, MIX(v *= y);             \
  if (y) v = x, MIX(v /= y), MIX(v);                                                   \
  v = x, MIX(v++), MIX(v), MIX(v--), MIX(v), MIX(++v), MIX(--v)
#define INTEGERS                                                                    \
  MIX(x &y), MIX(x | y), MIX(x ^ y), MIX(~x), MIX(x << (y & 7)), MIX(x >> (y & 7)); \
  MIX(x % (y ? y : 1)), v = x, MIX(v &= y), v = x, MIX(v |= y), v = x, MIX(v ^= y); \
  v = x, MIX(v <<= (y & 7)), v = x, MIX(v >>= (y & 7)), v = x, MIX(v %= (y ? y : 1))

#define PAIR(A, B)               \
  do {                           \
    int n, m;                    \
    for (n = 0; n < SMALL; n++)  \
      for (m = 0; m <= n; m++) { \
        A x = small[n], v = x;   \
        B y = small[m];          \
        COMMON(A, B);            \
      }                          \
  } while (0)
#define INTEGER_PAIR(A, B)         \
  do {                             \
    int n, m;                      \
    for (n = 0; n < WIDE; n++)     \
      for (m = 0; m < WIDE; m++) { \
        A x = wide[n], v = x;      \
        B y = wide[m];             \
        COMMON(A, B);              \
        INTEGERS;                  \
      }                            \
  } while (0)
#define ROW(P, A) \
  P(A, b);        \
  P(A, c);        \
  P(A, sc);       \
  P(A, uc);       \
  P(A, s);        \
  P(A, us);       \
  P(A, i);        \
  P(A, u);        \
  P(A, l);        \
  P(A, ul);       \
  P(A, ll);       \
  P(A, ull)
#define INTEGER_ROW(A)                                              \
  static void integers_##A(void) {                                  \
    hash = 0;                                                       \
    ROW(INTEGER_PAIR, A);                                           \
    printf("integers " #A " %u %08x\n", (unsigned)sizeof(A), hash); \
  }
#define ANY_ROW(A)                     \
  static void any_##A(void) {          \
    hash = 0;                          \
    ROW(PAIR, A);                      \
    PAIR(A, f);                        \
    PAIR(A, d);                        \
    PAIR(A, ld);                       \
    printf("any " #A " %08x\n", hash); \
  }
#define EACH(R) R(b) R(c) R(sc) R(uc) R(s) R(us) R(i) R(u) R(l) R(ul) R(ll) R(ull)
EACH(INTEGER_ROW)
EACH(ANY_ROW)
ANY_ROW(f)
ANY_ROW(d)
ANY_ROW(ld)
#define CALL_INTEGERS(A) integers_##A();
#define CALL_ANY(A) any_##A();

int main(void) {
  EACH(CALL_INTEGERS)
  EACH(CALL_ANY)
  any_f(), any_d(), any_ld();
  return 0;
}
