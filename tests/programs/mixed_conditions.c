/* Conditional, logical and comma operators: types of the result, which operand is evaluated, and
   comparisons between types of different size and sign. */
int printf(const char *format, ...);

static char trace[64];
static int length;
static int mark(char name, int value) {
  trace[length++] = name;
  trace[length] = 0;
  return value;
}
#define SHOW(...)                                                                               \
  do {                                                                                          \
    length = trace[0] = 0;                                                                      \
    int value = (int)(__VA_ARGS__);                                                             \
    printf("%s = %d, %s\n", #__VA_ARGS__, value, trace);                                        \
  } while (0)
#define TYPE(e)                                                                          \
  _Generic((e), int: "int", unsigned: "unsigned", long: "long", unsigned long: "unsigned long", \
           long long: "long long", unsigned long long: "unsigned long long", float: "float",    \
           double: "double", char: "char", signed char: "signed char", short: "short",          \
           unsigned char: "unsigned char", unsigned short: "unsigned short", _Bool: "bool",     \
           int *: "int *", const int *: "const int *", void *: "void *",                        \
           const void *: "const void *", default: "other")

static signed char sc = -1;
static unsigned char uc = 255;
static short sh = -1;
static unsigned short us = 65535;
static int in = -1;
static unsigned ui = 4294967295u;
static long lo = -1;
static unsigned long ul = 4294967295ul;
static long long ll = -1;
static unsigned long long ull = 18446744073709551615ull;
static float fl = -1;
static double db = 4294967295.0;

static void types(void) {
  int *p = 0;
  const int *cp = 0;
  void *vp = 0;
  printf("%s %s %s %s\n", TYPE(sc + uc), TYPE(+us), TYPE(~sh), TYPE(-uc));
  printf("%s %s %s %s\n", TYPE(in + ui), TYPE(ui + lo), TYPE(ul + ll), TYPE(ll + ull));
  printf("%s %s %s %s\n", TYPE(uc << ll), TYPE(ll << 1), TYPE(fl * in), TYPE(fl + db));
  printf("%s %s %s %s\n", TYPE(in ? sc : us), TYPE(in ? in : ui), TYPE(1 ? 1 : 1LL), TYPE(0 ? 1 : 2.0f));
  printf("%s %s %s %s\n", TYPE(in ? p : 0), TYPE(in ? cp : p), TYPE(in ? p : vp), TYPE(in ? vp : cp));
  printf("%s %s %s %s\n", TYPE(!fl), TYPE(sc == uc), TYPE(p && vp), TYPE((1, sc)));
  printf("%s %s %s %s\n", TYPE('a'), TYPE((char)'a'), TYPE(sizeof 1), TYPE(p - p));
  printf("%s %s %s %s\n", TYPE(uc = 1000), TYPE(uc += 1), TYPE(uc++), TYPE(2147483648));
  printf("%s %s %s %s\n", TYPE(0x80000000), TYPE(0xffffffffff), TYPE(1ul), TYPE(4294967296u));
  uc = 255;
}

static void comparisons(void) {
#define ROW(x)                                                                                   \
  printf("%-4s %d%d%d%d %d%d%d%d %d%d%d%d\n", #x, x == sc, x == uc, x == sh, x == us, x == in, x == ui, \
         x == lo, x == ul, x == ll, x == ull, x == fl, x == db);                                 \
  printf("     %d%d%d%d %d%d%d%d %d%d%d%d\n", x<sc, x<uc, x<sh, x<us, x<in, x<ui, x<lo, x<ul, x<ll, x<ull, x<fl, x < db)
  ROW(sc); ROW(uc); ROW(sh); ROW(us); ROW(in); ROW(ui); ROW(lo); ROW(ul); ROW(ll); ROW(ull); ROW(fl); ROW(db);
}

static void taken_operands(void) {
  SHOW(mark('a', 1) && mark('b', 0) && mark('c', 1));
  SHOW(mark('a', 0) || mark('b', 2) || mark('c', 1));
  SHOW(mark('a', 0) && mark('b', 1) || mark('c', 1) && mark('d', 3));
  SHOW((mark('a', 0) || mark('b', 0)) && mark('c', 1));
  SHOW(!mark('a', 0) && !mark('b', 1));
  SHOW(mark('a', 5) ? mark('b', 6) : mark('c', 7));
  SHOW(mark('a', 0) ? mark('b', 6) : mark('c', 0) ? mark('d', 7) : mark('e', 8));
  SHOW(mark('a', 0) ?: mark('b', 9));
  SHOW(mark('a', 4) ?: mark('b', 9));
  SHOW((mark('a', 1), mark('b', 2), mark('c', 3)));
  SHOW(mark('a', 1) && (mark('b', 1), mark('c', 0)));
  SHOW(0 && mark('a', 1));
  SHOW(1 || mark('a', 1));
  SHOW(1 ? 2 : mark('a', 1));
  SHOW(mark('a', 3) * 0 && mark('b', 1));
  SHOW(-mark('a', 3) < mark('b', 2) == mark('c', 1));
  SHOW((mark('a', 1) && mark('b', 2)) + (mark('c', 0) || mark('d', 0)));
  int v = 0;
  SHOW((v = mark('a', 3)) && (v += mark('b', 4)) > 6 ? v : -v);
  SHOW(v ? v = 0, v : 1);
  double zero = -0.0, half = 0.5;
  SHOW(zero ? mark('a', 1) : mark('b', 2));
  SHOW(half && !zero && mark('a', 1));
  SHOW(0.5 || mark('a', 1));
  int *null = 0;
  SHOW(null || mark('a', 1));
  SHOW(null ? *null : mark('b', 2));
  SHOW(ull << 63 ? mark('a', 1) : 0);
  SHOW((char)256 || mark('a', 1));
}

struct pair { int a, b[3]; };
static struct pair make(int n) {
  mark('m', 0);
  return (struct pair){n, {n + 1, n + 2, n + 3}};
}

static void classes(void) {
  struct pair x = {1, {2, 3, 4}}, y = {5, {6, 7, 8}}, z;
  printf("%d %d\n", (in ? x : y).a, (in + 1 ? x : y).b[2]);
  printf("%d ", make(10).b[1]);
  printf("%d\n", (mark('q', 0), make(20)).b[2]);
  z = in ? make(30) : y;
  printf("%d\n", (x = y = z).b[0]);
  printf("%d %s\n", x.b[2] == y.b[2], trace);
  printf("%d\n", (*(in ? &x : &y)).a + (in ? &x : &y)->b[1]);
  (in ? &x : &y)->a = 99;
  printf("%d %d\n", x.a, y.a);
  int *p = in ? x.b : y.b;
  printf("%d %d\n", p[1], (0 ? (void *)0 : p)[2]);
}

int main(void) {
  types(), comparisons(), taken_operands(), classes();
  return 0;
}
