/* Conversions between all scalar types, by cast, assignment, argument and return. */
int printf(const char *format, ...);

static signed char to_sc(int v) { return v; }
static unsigned char to_uc(long v) { return v; }
static short to_sh(double v) { return v; }
static unsigned short to_us(unsigned v) { return v; }
static int to_in(long long v) { return v; }
static unsigned to_ui(float v) { return v; }
static long long to_ll(unsigned v) { return v; }
static unsigned long long to_ull(int v) { return v; }
static float to_fl(double v) { return v; }
static double to_db(float v) { return v; }
static _Bool to_bool(double v) { return v; }
static _Bool pointer_to_bool(void *v) { return v; }

static void take(char c, signed char s, short h, float f, long long l, _Bool b) {
  printf("%d %d %d %g %lld %d\n", c, s, h, f, l, b);
}

enum color { red, green = 5, blue };

int main(void) {
  static const double doubles[] = {0.0, 0.9, -0.9, 1.5, -1.5, 127.7, -128.2, 300.0, 65535.5, 1e9};
  static const long long integers[] = {0, 1, -1, 127, 128, 255, 256, -128, -129, 32767, 32768,
                                       65535, 65536, 2147483647, 2147483648LL, 4294967295LL,
                                       4294967296LL, -2147483648LL, 0x123456789abcdefLL};
  unsigned i;
  float f;
  double d;
  _Bool b;
  enum color c = green;
  int n = 7;
  char *text = "xyz";
  for (i = 0; i < sizeof integers / sizeof *integers; i++) {
    long long v = integers[i];
    printf("%lld: %d %u %d %u %d %u %ld %lu %d %.10g %.10g\n", v, (signed char)v, (unsigned char)v,
           (short)v, (unsigned short)v, (int)v, (unsigned)v, (long)v, (unsigned long)v, (_Bool)v,
           (float)v, (double)v);
    printf("  %.10g %.10g %llu\n", (float)(unsigned long long)v, (double)(unsigned)v,
           (unsigned long long)v);
  }
  for (i = 0; i < sizeof doubles / sizeof *doubles; i++) {
    double v = doubles[i];
    printf("%g: %d %d %lld %d", v, (int)v, (short)(int)v, (long long)v, (_Bool)v);
    if (v >= 0) printf(" %u %llu", (unsigned)v, (unsigned long long)v);
    printf(" %g\n", (float)v);
  }
  printf("%u %llu\n", (unsigned)3e9, (unsigned long long)1.5e19);
  printf("%d %d %d %d\n", to_sc(200), to_uc(-1), to_sh(-7.9), to_us(70000));
  printf("%d %u %lld %llu\n", to_in(0x1ffffffffLL), to_ui(3e9f), to_ll(-1), to_ull(-1));
  printf("%.10g %.10g %d %d %d %d\n", to_fl(0.1), to_db(0.1f), to_bool(0.25), to_bool(0.0),
         pointer_to_bool(&n), pointer_to_bool(0));
  take(321, 200, 70000, 0.1, -1, 256);
  take('a', -1.5, 3.99, 7, 1u << 31, &n != 0);
  f = 16777217, d = 16777217;
  printf("%.10g %.10g\n", f, d);
  b = 2, printf("%d ", b);
  b += 5, printf("%d ", b);
  b = 0.1, printf("%d ", b);
  b = !b, printf("%d ", b);
  b |= 4, printf("%d ", b);
  b--, printf("%d ", b);
  b++, b++, printf("%d\n", b);
  printf("%d %d %d %d\n", c, blue, c == 5, (enum color)6 == blue);
  c = n, printf("%d %d\n", c, sizeof(enum color) <= sizeof(int));
  printf("%c %d %d\n", *text, text[3], (int)sizeof(text[0] + 0));
  printf("%d %d\n", (int)(unsigned char)(char)200, (char)200 > 0 ? 200 == (char)200 : -56 == (char)200);
  printf("%d\n", (int)((unsigned)(void *)&n == (unsigned)&n));
  printf("%d %d\n", (int)(char *)100, (int)((int *)0 + 3));
  printf("%lld %lld\n", (long long)-1, (long long)0xffffffff);
  printf("%d %u %lld\n", 'a' * 2, 'b' + 0u, 'c' + 0LL);
  printf("%d %d %d\n", 1.9 > 1, (int)1.9 + (int)-1.9, -7 / 2 * 2);
  return 0;
}
