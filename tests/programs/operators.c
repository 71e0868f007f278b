/* Every operator on every arithmetic type. */
int printf(const char *format, ...);

#define SHOW(x) printf("%s = %lld\n", #x, (long long)(x))
#define FLOATS(x) printf("%s = %.9g\n", #x, (double)(x))

static signed char sc = -100;
static unsigned char uc = 200;
static short sh = -30000;
static unsigned short us = 60000;
static int in = -2000000000;
static unsigned int ui = 4000000000U;
static long lo = 123456789L;
static unsigned long ul = 3000000000UL;
static long long ll = -8000000000000000000LL;
static unsigned long long ull = 18000000000000000000ULL;
static float fl = 1.5f;
static double db = -2.25;

static int side;
static int effect(int v) {
  side = side * 10 + v;
  return v;
}

int main(void) {
  int a = 17, b = 5, *p, array[10];
  unsigned u = 17;
  long long la = -17;
  unsigned long long ua = 0x123456789abcdef0ULL;
  int i;

  SHOW(a + b), SHOW(a - b), SHOW(a * b), SHOW(a / b), SHOW(a % b);
  SHOW(-a / b), SHOW(-a % b), SHOW(a / -b), SHOW(a % -b);
  SHOW(a & b), SHOW(a | b), SHOW(a ^ b), SHOW(~a), SHOW(-a), SHOW(+a), SHOW(!a), SHOW(!!a);
  SHOW(a << 3), SHOW(a >> 2), SHOW(-a >> 2), SHOW(u >> 1), SHOW(u << 28);
  SHOW(a < b), SHOW(a > b), SHOW(a <= b), SHOW(a >= b), SHOW(a == b), SHOW(a != b);
  SHOW(a && b), SHOW(a && 0), SHOW(0 || b), SHOW(0 || 0);
  SHOW(a ? b : -1), SHOW((a, b));
  SHOW(sc + uc), SHOW(sc * uc), SHOW(uc << 4), SHOW(sc >> 1), SHOW(uc >> 1), SHOW(sh + us);
  SHOW(sh * 3), SHOW(us - sh), SHOW(us * us > 0);
  SHOW(in - 100), SHOW(ui + 500000000U), SHOW(ui / 7), SHOW(ui % 7), SHOW(ui > in), SHOW(in < lo);
  SHOW(-1 < 1u), SHOW(ui >> 3), SHOW(in >> 3), SHOW(lo * 2), SHOW(ul / 2), SHOW(ul + ul);
  SHOW(la / 5), SHOW(la % 5), SHOW(la >> 1), SHOW(la << 33), SHOW(la * la), SHOW(la < 0), SHOW(-la);
  SHOW(ll / 3), SHOW(ll % 1000), SHOW(ll + in), SHOW(ll - ull), SHOW(ull / 3), SHOW(ull % 1000);
  SHOW(ull > ll), SHOW(ull >> 40), SHOW(ua >> 4), SHOW(ua << 4), SHOW(ua & 0xff00ff00ff00ff00ULL);
  SHOW(ua ^ ~0ULL), SHOW(~ua), SHOW(ua | 1), SHOW(!ua), SHOW(ua == 0x123456789abcdef0ULL);

  FLOATS(fl + db), FLOATS(fl - db), FLOATS(fl * db), FLOATS(fl / db), FLOATS(-fl), FLOATS(-db);
  FLOATS(fl / 3), FLOATS(db / 3), FLOATS(1 / 3.0f), FLOATS(a / 4.0), FLOATS(ull * 1.0);
  FLOATS(ll * 1.0f), FLOATS(fl * fl * fl), FLOATS(ui + fl), FLOATS(0.1f + 0.2f), FLOATS(0.1 + 0.2);
  SHOW(fl < db), SHOW(fl > db), SHOW(fl == 1.5), SHOW(db != -2.25), SHOW(!fl), SHOW(fl && db);
  SHOW(fl <= 1.5f), SHOW(db >= 0.0), SHOW(fl ? 1 : 2), SHOW(0.0 ? 1 : 2), SHOW(-0.0 == 0.0);

  i = a, i += b, SHOW(i);
  i = a, i -= b, SHOW(i);
  i = a, i *= b, SHOW(i);
  i = a, i /= b, SHOW(i);
  i = a, i %= b, SHOW(i);
  i = a, i <<= b, SHOW(i);
  i = -a, i >>= 2, SHOW(i);
  i = a, i &= b, SHOW(i);
  i = a, i |= b, SHOW(i);
  i = a, i ^= b, SHOW(i);
  sc = 100, sc += 100, SHOW(sc);
  uc = 200, uc += 100, SHOW(uc);
  uc = 200, uc *= 2.7, SHOW(uc);
  sh = 1000, sh *= 100, SHOW(sh);
  us = 10, us -= 20, SHOW(us);
  uc = 3, uc <<= 7, SHOW(uc);
  sc = -128, sc >>= 1, SHOW(sc);
  i = 10, i += 2.9, SHOW(i);
  i = 10, i *= 0.55, SHOW(i);
  i = -10, i += 5u, SHOW(i);
  i = -10, i /= 3u, SHOW(i);
  ll = 5, ll -= 7u, SHOW(ll);
  ll = 1, ll <<= 40, SHOW(ll);
  ull = 1, ull -= 2, SHOW(ull >> 60);
  fl = 1, fl += 0.1, FLOATS(fl);
  fl = 1, fl /= 3, FLOATS(fl);
  db = 1, db /= 3, FLOATS(db);
  db = 7, db *= 2, db -= 0.5, FLOATS(db);

  i = 5, SHOW(i++), SHOW(i), SHOW(++i), SHOW(i--), SHOW(--i);
  uc = 255, SHOW(uc++), SHOW(uc), SHOW(--uc);
  sc = 127, SHOW(++sc), SHOW(sc--), SHOW(sc);
  us = 0, SHOW(us--), SHOW(us);
  ll = -1, SHOW(ll++), SHOW(++ll);
  fl = 1.25f, FLOATS(fl++), FLOATS(fl), FLOATS(--fl);
  db = 0.5, FLOATS(db--), FLOATS(++db);

  for (i = 0; i < 10; i++) array[i] = i * i;
  p = array;
  SHOW(*p++), SHOW(*p), SHOW(*++p), SHOW(p[2]), SHOW(2 [p]), SHOW(*(p + 3)), SHOW(p - array);
  SHOW(&array[7] - p), SHOW(p < array + 3), SHOW(p == &array[2]), SHOW(p != array), SHOW(!p);
  p += 3, SHOW(*p);
  p -= 2, SHOW(*p--), SHOW(*--p);
  SHOW((p + 4)[-1]), SHOW(&*p == p), SHOW(&p[1] > p), SHOW((char *)(p + 1) - (char *)p);
  SHOW(sizeof array), SHOW(sizeof *p), SHOW(sizeof(char)), SHOW(sizeof 'a'), SHOW(sizeof(long long));
  SHOW(sizeof array / sizeof array[0]), SHOW(sizeof(a + ll)), SHOW(sizeof(sc + sc)), SHOW(sizeof "abc");

  side = 0;
  SHOW(effect(0) && effect(1)), SHOW(side);
  side = 0;
  SHOW(effect(2) || effect(1)), SHOW(side);
  side = 0;
  SHOW(effect(2) && effect(0) || effect(3)), SHOW(side);
  side = 0;
  SHOW((effect(1), effect(2), effect(3))), SHOW(side);
  side = 0;
  SHOW(effect(0) ? effect(4) : effect(5)), SHOW(side);
  side = 0;
  array[effect(1)] += 2, SHOW(array[1]), SHOW(side);
  p = array, *p++ += 100, SHOW(array[0]), SHOW(p - array);
  i = 3, a = i + i, b = a = i = 9, SHOW(a + b + i);
  SHOW(i = a == b), SHOW((char)(a << 6)), SHOW(1 ? -1 : 0u), SHOW((1 ? -1 : 0u) > 0);
  SHOW(a > 3 ? b > 100 ? 1 : 2 : 3), SHOW(sc = 300), SHOW((uc = -1) == 255), SHOW(u - 18 > 0);
  return 0;
}
