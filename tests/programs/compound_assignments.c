/* Compound assignments and steps where the two sides have different types: the operation is done in
   the common type, the result is narrowed, the left side is evaluated once. */
int printf(const char *format, ...);

static int calls;
static int cell[4] = {10, 20, 30, 40};
static int *next_cell(void) {
  return &cell[calls++ & 3];
}
static int index_of(int v) {
  calls++;
  return v;
}

struct bits {
  signed s : 5;
  unsigned u : 5;
  _Bool b : 1;
  unsigned long long w : 40;
};

#define EACH(OP, V)                                                                          \
  do {                                                                                       \
    signed char sc = 100;                                                                    \
    unsigned char uc = 200;                                                                  \
    short sh = -3000;                                                                        \
    unsigned short us = 60000;                                                               \
    int in = -123456;                                                                        \
    unsigned ui = 3000000000u;                                                               \
    long long ll = -5000000000LL;                                                            \
    unsigned long long ul = 10000000000000000000ULL;                                         \
    sc OP V, uc OP V, sh OP V, us OP V, in OP V, ui OP V, ll OP V, ul OP V;                  \
    printf("%-10s %d %d %d %d %d %u %lld %llu\n", #OP " " #V, sc, uc, sh, us, in, ui, ll, ul); \
  } while (0)

static void integers(void) {
  EACH(+=, 100); EACH(-=, 101u); EACH(*=, 3); EACH(/=, 7); EACH(%=, 7); EACH(/=, -7);
  EACH(&=, 0x0ff0); EACH(|=, 0x11); EACH(^=, -1); EACH(<<=, 3); EACH(>>=, 2);
  EACH(+=, 10000000000LL); EACH(*=, 10000000000LL); EACH(/=, 3u); EACH(%=, 1000u);
  EACH(+=, 'a'); EACH(&=, ~0ULL); EACH(<<=, 1LL); EACH(>>=, (unsigned char)1);
}

static void floats(void) {
  signed char sc = 10;
  unsigned short us = 1000;
  int in = 7;
  long long ll = 1LL << 40;
  float f = 1.5f;
  double d = 2.25;
  sc *= 2.5, us += 0.75, in /= 0.3, ll *= 1.5, in -= 0.5f;
  printf("%d %d %d %lld\n", sc, us, in, ll);
  f += 1, f *= 3, f /= 7, f -= 0.1;
  d += f, d *= in, d -= ll, d /= 3;
  printf("%.6g %.9g\n", f, d);
  f += 16777216LL, f += 1, in = f, in += f;
  printf("%.9g %d\n", f, in);
  unsigned char uc = 3;
  uc = uc * 0.9 + 1.2, uc += 250.0;
  printf("%d\n", uc);
  f = 5, f++, ++f, d = -0.5, d--, --d;
  double e = -f--, g = f++;
  printf("%g %g %g %g\n", f, d, e, g);
}

static void left_side_once(void) {
  *next_cell() += 5;
  *next_cell() *= 3;
  *next_cell() -= 25;
  (*next_cell())++;
  printf("%d: %d %d %d %d\n", calls, cell[0], cell[1], cell[2], cell[3]);
  int a[3] = {1, 2, 3}, i = 0;
  a[i++] += 10;
  a[i++] <<= i;
  a[index_of(2)] -= a[index_of(0)]--;
  printf("%d %d: %d %d %d\n", i, calls, a[0], a[1], a[2]);
  int *p = a, *q = a;
  *p++ |= 0x40, *p-- ^= 7, *++p += *q++, p -= 1, p += (char)1;
  printf("%d %d %d %d %d\n", (int)(p - a), (int)(q - a), a[0], a[1], a[2]);
  char *c = (char *)&a[2];
  c -= sizeof(int) * 2, c += 4u;
  printf("%d\n", c == (char *)&a[1]);
  int x = 5, y = 2, z = 3;
  z -= y *= x += 4;
  printf("%d %d %d\n", x, y, z);
  x = 3, x <<= x;
  printf("%d\n", x);
}

static void small_fields(void) {
  struct bits v = {.s = 15, .u = 31, .b = 1, .w = 0xffffffffffULL};
  v.s++, v.u++, v.w++;
  printf("%d %u %d %llu\n", v.s, v.u, v.b, (unsigned long long)v.w);
  v.s -= 20, v.u -= 1, v.b += 1, v.w -= 2;
  printf("%d %u %d %llu\n", v.s, v.u, v.b, (unsigned long long)v.w);
  v.s *= 3, v.u <<= 2, v.b ^= 1, v.w >>= 3;
  printf("%d %u %d %llu\n", v.s, v.u, v.b, (unsigned long long)v.w);
  printf("%d %u %d\n", v.s++, --v.u, v.b--);
  printf("%d %u %d\n", v.s = 17, v.u = 100, v.b = 0x100);
  printf("%d %d\n", v.s = v.u = 50, (v.b = 0.25, v.b));
  _Bool b = 0;
  b++, b++, b += 5;
  printf("%d ", b), b--, printf("%d ", b), b--, printf("%d ", b), b -= 1, printf("%d ", b);
  b |= 4, printf("%d ", b), b &= 2, printf("%d ", b), b = 0.1, printf("%d ", b), b <<= 3;
  printf("%d %d\n", b, b = (void *)&b);
}

int main(void) {
  integers(), floats(), left_side_once(), small_fields();
  return 0;
}
