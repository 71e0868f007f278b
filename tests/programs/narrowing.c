/* Bit-fields of every type, in every operator, by value and by pointer, and objects that narrow. */
int printf(const char *format, ...);

struct plain {
  int a : 3;
  unsigned b : 5;
  signed char c : 4;
  unsigned char d : 2;
  short e : 9;
  unsigned short f : 12;
  _Bool g : 1;
  int h;
};
struct longs {
  long long a : 40;
  unsigned long long b : 24;
  long long c : 1;
  unsigned long long d : 63;
  long long e : 64;
};
struct splits {
  unsigned a : 20;
  unsigned b : 20;
  unsigned : 0;
  char c;
  unsigned d : 24;
  unsigned : 3;
  short e : 5;
};
struct enums {
  enum { small_a, small_b } e : 2;
  enum { large_a = -4, large_b = 3 } f : 4;
  enum { wide = 70000 } g : 20;
};
struct __attribute__((packed)) packed {
  unsigned a : 3;
  unsigned b : 17;
  int c : 12;
  unsigned char d;
  unsigned e : 30;
};
union parts {
  unsigned all;
  struct {
    unsigned low : 4, mid : 8, high : 20;
  };
};
struct anonymous {
  unsigned a : 1;
  struct {
    int b : 7;
    unsigned c : 9;
  };
  union {
    int d : 6;
    int e;
  };
};
struct wide_int {
  int a : 32;
  unsigned b : 32;
  int : 16;
  short c : 16;
  char d : 8;
};

static struct plain global = {-1, 31, -8, 3, -256, 4095, 1, 99};
static const struct longs constant = {-(1LL << 39), 0xffffff, -1, 1ULL << 62, -5};
static struct splits list[2] = {{0xfffff, 0x12345, 'c', 0xabcdef, -16}, {.d = 1, .e = 15}};

static void show(const struct plain *p) {
  printf("%d %u %d %d %d %d %d %d\n", p->a, p->b, p->c, p->d, p->e, p->f, p->g, p->h);
}
static struct plain make(int n) {
  struct plain p = {n, n, n, n, n, n, n, n};
  return p;
}
static int passed(struct plain p, struct longs l) {
  p.a++;
  return p.a + p.b + (int)(l.a >> 30) + l.c;
}

static void operators(void) {
  struct plain p = global, *q = &p;
  int r;
  unsigned u;
  long long ll;
  show(&p);
  printf("%d %d %d\n", p.a = 5, p.b = 33, q->c = 0x18), show(q);
  printf("%d %d %d %d\n", p.a++, ++p.b, p.c--, --p.d), show(q);
  printf("%d %d %d %d\n", q->e += 300, q->f -= 4095, q->g ^= 1, q->h *= 2), show(q);
  printf("%d %d %d\n", p.g++, p.g, (p.g = 5)), printf("%d %d\n", --p.g, p.g--),
      printf("%d\n", p.g += 7);
  printf("%d %d %d %d\n", p.a <<= 1, p.b >>= 2, p.f |= 0x1234, p.e &= 0x55), show(q);
  printf("%d %d %d %d\n", p.a /= 2, p.b %= 3, p.c *= 3, p.f += 0.5), show(q);
  r = p.a = p.b = p.c = 11, printf("%d %d %d %d\n", r, p.a, p.b, p.c);
  printf("%d %d %d\n", p.b - 40 < 0, p.f - 5000 < 0, -p.b), printf("%d %d\n", ~p.d, !p.d);
  printf("%d %d\n", (p.b, p.a), p.a ? p.b : p.c), printf("%d %d\n", p.b > -1, p.b < p.a);
  u = p.b, ll = p.a, printf("%u %lld %g %g\n", u, ll, (double)p.a, p.f / 2.0);
  p.a = 2.9, p.b = -1, p.g = 0.5, p.c = 1LL << 33 | 3, show(q);
  p = make(-1), show(&p), p = make(6), show(&p), printf("%d %d\n", make(3).b, passed(p, constant));
  for (p.b = 28, r = 0; p.b; p.b++)
    r++;
  printf("%d\n", r);
  switch (p.a) {
    case -2:
      r = 1;
      break;
    case 6:
      r = 2;
      break;
    default:
      r = 3;
  }
  printf("%d %d\n", r, p.a && p.h || p.c);
}
static void wide_fields(void) {
  struct longs l = constant, *p = &l;
  struct splits s = list[0], *t = list;
  struct wide_int w = {-1, -1, -1, 'w'};
  printf("%lld %llu %d %llu %lld\n", (long long)l.a, (unsigned long long)l.b, (int)l.c,
         (unsigned long long)l.d, (long long)l.e);
  l.a += 1, l.b++, p->d <<= 1, l.e >>= 1, l.c = 0, p->d |= 3;
  printf("%lld %llu %d %llu %lld\n", (long long)l.a, (unsigned long long)l.b, (int)l.c,
         (unsigned long long)l.d, (long long)l.e);
  l.a = 0x123456789aLL, l.b = ~0, l.d = -1,
  printf("%llx %llx %llx\n", (long long)l.a, (unsigned long long)l.b, (unsigned long long)l.d);
  printf("%lld %d %d\n", (long long)(l.a * 2), l.b == 0xffffff, l.a > 0),
      printf("%lld\n", (long long)(l.d / 3));
  printf("%x %x %c %x %d\n", s.a, s.b, s.c, s.d, s.e), s.a++, s.b -= 0x12345, s.d ^= 0xff, s.e--,
      printf("%x %x %x %d\n", s.a, s.b, s.d, s.e);
  t++, printf("%x %d %d\n", t->d, t->e, t[-1].b), *t = s, printf("%x %d\n", list[1].d, list[1].a);
  printf("%d %u %d %d\n", w.a, w.b, w.c, w.d), w.a = 1 << 30, w.a *= 2, w.b /= 2, w.c = 40000,
                                               printf("%d %u %d\n", w.a, w.b, w.c);
}
static void others(void) {
  struct enums e = {small_b, large_a, wide};
  struct packed k = {5, 0x1ffff, -2000, 200, 0x3fffffff}, *q = &k;
  struct anonymous a = {1, {-50, 400}, {-30}};
  union parts p;
  volatile struct plain v = {1, 2, 3};
  const struct plain c = {.f = 77};
  struct {
    struct plain p[2];
    unsigned last : 7;
  } nested = {{{1}, {.b = 9}}, 100}, copy;
  printf("%d %d %d %d %d\n", e.e, e.f, e.g, e.e == small_b, e.f < 0), e.f = large_b, e.e = small_a,
                                                                      printf("%d %d\n", e.f, e.e);
  printf("%d %x %d %d %x %d\n", k.a, k.b, k.c, k.d, k.e, (int)sizeof k), q->b += 2,
      q->c = -q->c, q->e -= 0x3ffffff0, printf("%x %d %x\n", k.b, k.c, k.e);
  p.low = 5, p.mid = 0xab, p.high = 0x12345, printf("%x %x %x\n", p.low, p.mid, p.high), p.mid++,
  printf("%x\n", p.mid);
  printf("%d %d %d %d\n", a.a, a.b, a.c, a.d), a.b++, a.d--, printf("%d %d\n", a.b, a.d);
  v.a++, v.b = v.a + v.c, v.g |= 4, printf("%d %d %d %d\n", v.a, v.b, v.g, c.f);
  copy = nested, copy.p[1].b--, copy.last += 30,
  printf("%d %d %d %d\n", copy.p[0].a, copy.p[1].b, copy.last, nested.last);
  printf("%d %d %d %d %d %d\n", (int)sizeof(struct plain), (int)sizeof(struct longs),
         (int)sizeof(struct splits), (int)sizeof(struct enums), (int)sizeof(struct anonymous),
         (int)sizeof(struct wide_int));
}
/* Assignments give the value that the object then has. */
static void narrow(void) {
  char c;
  signed char sc;
  unsigned char uc;
  short s;
  unsigned short us;
  _Bool b;
  int i;
  float f;
  long long ll;
  unsigned u;
  int *p = &i;
  double d = 1e10;
  char *text = "t";
  printf("%d %d %d %d %d %d\n", c = 300, sc = 200, uc = -1, s = 70000, us = -2, b = 4);
  printf("%d %d %d %d\n", b = 0.25, b = p, b = text - text, b = 0x100000000LL);
  printf("%d %lld %g %d\n", i = 3.99, ll = 1e15, f = 16777217, (int)(u = 3e9) < 0);
  printf("%d %d %d\n", (i = c = 511) + 1, (s = uc = sc = -1), (int)(f = i = 2.5f));
  c = sc = uc = 127, s = us = 32767, b = 1;
  printf("%d %d %d %d %d\n", ++c, ++sc, ++uc, ++s, ++us), printf("%d %d %d\n", b++, b--, --b);
  c = 250, printf("%d %d %d %d\n", c += 10, c -= 20, c *= 3, c <<= 4), printf("%d\n", c >>= 1);
  sc = -100, printf("%d %d %d %d\n", sc -= 100, sc *= -2, sc <<= 1, sc >>= 3),
  printf("%d\n", sc /= 3);
  s = -30000, printf("%d %d %d\n", s -= 10000, s += 1e4, s *= 1.5), us = 5,
  printf("%d %d\n", us -= 10, us >>= 1);
  uc = 200, printf("%d %d %d %d\n", uc += uc, uc *= 2.5, uc %= 7, uc ^= -1), b = 0,
  printf("%d %d %d\n", b |= 2, b <<= 3, b -= 1);
  i = 7, i += 0.5, i *= 1.5f, i -= 1LL << 32, printf("%d\n", i), i /= 2u, printf("%d\n", i), i = -7,
  i /= 2u, printf("%d\n", i), i = -7, i %= 4u, printf("%d\n", i);
  u = 1, u -= 2, u >>= 1, printf("%u\n", u), u = 1, u -= 1.5, printf("%u\n", u), ll = -1, ll >>= 1,
  ll += 1u, ll *= 1.5, printf("%lld\n", ll);
  f = 0.1f, f += 0.2, printf("%.9g\n", f), f *= 3, f -= i, printf("%.9g\n", f), d /= 3,
  d += 1LL << 53, printf("%.17g\n", d), f++, --d, printf("%.9g %.17g\n", f, d);
  printf("%d %d %d\n", (char)-1 == -1, (unsigned char)256 + (signed char)128,
         (short)(unsigned short)-1);
  printf("%d %u %lld %llu\n", (int)(char)300.7, (unsigned)-1, (long long)-1u,
         (unsigned long long)-1);
  printf("%d %d %d %d\n", (_Bool)0.1f, (_Bool)-1, (int)(_Bool)p, (_Bool)(void *)0);
  printf("%.9g %.17g %.9g %.17g\n", (float)0x7fffffff, (double)0x7fffffffffffffffLL, (float)-1ULL,
         (double)(float)0.1);
  printf("%d %d %d\n", (int)(unsigned)p == (int)p, (char *)(long)text == text,
         *(int *)(void *)(char *)p == i);
  printf("%d %d\n", -1 < 1u, -1LL < 1u),
      printf("%d %d\n", (unsigned char)255 < -1, (1 ? -1 : 1u) > 0);
}

int main(void) {
  operators(), wide_fields(), others(), narrow();
  return 0;
}
