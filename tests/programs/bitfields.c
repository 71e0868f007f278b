/* Bit-fields: widths, signs, packing, assignment forms, unions over them. */
int printf(const char *format, ...);

struct plain { unsigned a : 1, b : 2, c : 5; int d : 7; unsigned e : 17; };
struct crossing { unsigned a : 20, b : 20; int c : 20; };
struct chars { unsigned char a : 4, b : 4; signed char c : 3; unsigned short d : 9; };
struct longs { unsigned long long a : 40; long long b : 20; unsigned c : 4; };
struct __attribute__((packed)) packed { char a; int b; unsigned c : 5; unsigned d : 11; short e; };
struct aligned { char a; int b __attribute__((aligned(16))); char c; };
struct zero { unsigned a : 3; unsigned : 0; unsigned b : 3; char c; int : 5; int d : 3; };
struct boolean { _Bool a : 1; unsigned b : 3; _Bool c : 1; };
enum e { e0, e1, e2, e3 };
struct enums { enum e a : 2; unsigned b : 6; };

static struct plain s;
static volatile struct plain v;

#define SIZE(t) printf("%s %d %d\n", #t, (int)sizeof(struct t), (int)__alignof__(struct t))

int main(void) {
  struct plain *p = &s, copy;
  struct crossing x = {0xfffff, 0x12345, -1};
  struct chars c = {1, 15, -4, 511};
  struct longs l = {0x123456789aULL, -5, 9};
  struct packed k = {1, 0x12345678, 21, 1365, -2};
  struct zero z = {5, 6, 'z', -3};
  struct boolean b = {1, 5, 0};
  struct enums en = {e3, 33};
  int i;
  SIZE(plain), SIZE(crossing), SIZE(chars), SIZE(longs), SIZE(packed), SIZE(aligned), SIZE(zero);
  SIZE(boolean), SIZE(enums);
  s.a = 3, s.b = 7, s.c = 33, s.d = 100, s.e = 0x3ffff;
  printf("%d %d %d %d %d\n", s.a, s.b, s.c, s.d, s.e);
  printf("%d %d %d\n", s.d = 64, (s.b = 6) == 2, s.e += 3);
  printf("%d %d %d %d\n", s.c++, s.c, ++p->b, p->b--);
  printf("%d %d\n", s.d <<= 1, s.d >>= 2);
  s.c |= 16, s.c &= ~1, s.c ^= 5, s.e *= 3, s.e /= 2, s.e %= 1000, s.d -= 200;
  printf("%d %d %d\n", s.c, s.e, s.d);
  copy = s, copy.a = !copy.a;
  printf("%d %d %d\n", copy.a, s.a, copy.e == s.e);
  for (i = 0; i < 5; i++) v.b++, v.d--;
  printf("%d %d\n", v.b, v.d);
  printf("%x %x %d\n", x.a, x.b, x.c);
  x.b += x.a, x.c = x.b;
  printf("%x %d\n", x.b, x.c);
  printf("%d %d %d %d\n", c.a, c.b, c.c, c.d);
  c.c += 3, c.b <<= 1, c.d = c.d + 1;
  printf("%d %d %d\n", c.c, c.b, c.d);
  printf("%llx %d %d\n", (unsigned long long)l.a, (int)l.b, l.c);
  l.a += 0xf000000000ULL, l.b *= 1000;
  printf("%llx %d\n", (unsigned long long)l.a, (int)l.b);
  printf("%d %x %d %d %d\n", k.a, k.b, k.c, k.d, k.e);
  k.d++, k.b = -1, k.e = 77;
  printf("%d %x %d %d %d\n", k.a, k.b, k.c, k.d, k.e);
  printf("%d %d %c %d\n", z.a, z.b, z.c, z.d);
  printf("%d %d %d\n", b.a, b.b, b.c);
  b.c = 8, b.a = b.b == 4;
  printf("%d %d %d %d\n", b.a, b.c, b.c + 1, en.a);
  printf("%d %d %d\n", s.a - 2 < 0, (s.c - 40) < 0, en.b);
  return 0;
}
