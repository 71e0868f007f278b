/* Initial values of every shape, static and automatic. */
int printf(const char *format, ...);

struct point {
  int x, y;
};
struct rect {
  struct point corner[2];
  const char *name;
  unsigned char flags;
};
union number {
  int i;
  float f;
  char bytes[8];
};
struct bits {
  unsigned a : 3;
  int b : 5;
  unsigned : 4;
  unsigned c : 12;
  unsigned : 0;
  unsigned char d;
  unsigned e : 1, f : 7;
};
struct tree {
  struct tree *left, *right;
  int value;
};
struct mixed {
  char c;
  double d;
  short s[3];
  struct {
    int inner;
    union {
      long l;
      char t[4];
    };
  };
  long long ll;
};

static int zero;
int one = 1;
static int table[] = {1, 2, 3, [7] = 8, 9, [4] = 5};
static int ranges[10] = {[2 ... 4] = 7, 8, [8 ... 9] = 1};
static int matrix[3][4] = {{1, 2}, {3, 4, 5, 6}, 7, 8};
static int flat[2][2][2] = {1, 2, 3, 4, 5};
static char text[] = "hello";
static char exact[5] = "hello";
static char longer[8] = "hi";
static char braces[] = {"in braces"};
static char list[] = {'a', 'b', 0};
static const char *names[] = {"alpha", "beta", 0, [5] = "zeta"};
static char rows[][4] = {"one", "two", "six"};
static struct point origin = {0}, p = {3, 4}, q = {.y = 9, .x = 8}, old = {y : 2, x : 1};
static struct rect r = {{{1, 2}, {3, 4}}, "rect", 255}, s = {1, 2, 3, 4, "flat", 7},
                   t = {.corner[1].y = 6, .name = "designated", .corner[0] = {1}};
static struct rect array[2] = {[1] = {.name = "second", .flags = 1}, [0].name = "first"};
static union number n = {42}, m = {.f = 1.5f}, k = {.bytes = "bytes"};
static struct bits bits = {5, -3, 0xabc, 200, 1, 100}, some = {.c = 77, .a = 1};
static struct tree leaf = {0, 0, 1}, node = {&leaf, &node, 2};
static struct mixed mixed = {'m', 2.5, {1, 2, 3}, {4, {5}}, -6};
static int *pointer = &table[3];
static int *behind = table + 9;
static char *middle = &text[1] + 1;
static int *member = &q.y;
static int difference = &table[7] - &table[2];
static int (*function)(const char *, ...) = printf;
static void *self = &self;
static unsigned address_size = sizeof(&table) + sizeof(table);
static const double doubles[] = {1, -2.5, 1e300, 1.0f / 3, 7 / 2, 'a'};
static float floats[] = {0.1, 1e-10, 3};
static long long longs[] = {-1, 1LL << 40, 0xffffffff, 4000000000u};
static short shorts[] = {-1, 40000 - 65536, 'x'};
static int constants = (3 + 4 * 5 - 6 / 2) << 1 | (7 > 3 ? 1 : 0);
static enum { first, second = 10, third } kinds[] = {first, third, second};
static struct point *points[] = {&p, &q, &(struct point){5, 6}};
static int *literal = (int[]){10, 20, 30};
static struct {
  int count;
  int items[];
} flexible = {3, {7, 8, 9}};

#define COUNT(a) (int)(sizeof(a) / sizeof *(a))

static void show_ints(const char *name, const int *v, int count) {
  int i;
  printf("%s:", name);
  for (i = 0; i < count; i++) printf(" %d", v[i]);
  printf("\n");
}

static void show_rect(const struct rect *v) {
  printf("%d %d %d %d %s %d\n", v->corner[0].x, v->corner[0].y, v->corner[1].x, v->corner[1].y,
         v->name ? v->name : "-", v->flags);
}

static void locals(int a, int b) {
  int v = a + b, w[4] = {a, b, v}, z[5] = {0}, u[] = {[3] = b, [0] = a};
  struct point p = {a, b}, q = p, l = (struct point){.y = a, .x = b};
  struct rect r = {{p, {b, a}}, "local", 3};
  union number n = {.f = 0.5f};
  char text[] = "changed", empty[6] = "", four[4] = {'a' + 1};
  struct bits bits = {a, b, v};
  struct mixed mixed = {.ll = v, .s = {[1] = 9}};
  const struct point fixed = {7, 8};
  static struct point kept = {1, 1};
  double d[2] = {a / 2.0};
  text[0] = 'C';
  kept.x += a;
  show_ints("w", w, 4), show_ints("z", z, 5), show_ints("u", u, 4);
  printf("%d %d %d %d %d %d\n", p.x, q.y, l.x, l.y, fixed.x + fixed.y, kept.x);
  show_rect(&r);
  printf("%g %s %d %d %d\n", n.f, text, empty[5], four[0], four[3]);
  printf("%d %d %d %d\n", bits.a, bits.b, bits.c, bits.d);
  printf("%lld %d %d %d\n", mixed.ll, mixed.s[1], mixed.s[2], mixed.c);
  printf("%g %g\n", d[0], d[1]);
}

/* An initializer runs each time its declaration is reached. */
static int again(void) {
  int count = 0, total = 0;
back : {
  int fresh[3] = {1, 2, 3};
  struct point point = {count};
  total += fresh[0] + fresh[2] + point.y;
  fresh[0] = 100, point.y = 100;
}
  if (++count < 3) goto back;
  return total;
}

/* Strings that reach an array of characters through classes without braces, and single characters of strings. */
static struct { char s[4]; } elided[] = { "ab", { "cd" }, ("ef"), [0].s[3] = 'd' };
static struct { struct { char s[2]; } m; int k; } deeper[] = { [1] = "gg", 5, [0].m = "hh", 7 };
static struct { const char *p; char s[3]; } beside[] = { "ij", "kl", "mn"[0] ? "op" : "", "qr" };
static int letters[] = { "ab"[1], 0["ab"], 0["c"], "\377"[0], u"\xfedc"[0], "ab"[2] };

int main(void) {
  int i;
  printf("%d %d\n", zero, one);
  show_ints("table", table, COUNT(table)), show_ints("ranges", ranges, 10);
  show_ints("matrix", matrix[0], 12), show_ints("flat", flat[0][0], 8);
  printf("%s %d %.5s %d %s %s %d %s\n", text, (int)sizeof text, exact, (int)sizeof exact, longer,
         braces, (int)sizeof braces, list);
  for (i = 0; i < COUNT(names); i++) printf("%s ", names[i] ? names[i] : "-");
  printf("%s%s%s %d\n", rows[0], rows[1], rows[2], (int)sizeof rows);
  printf("%d %d %d %d %d %d\n", origin.x, p.x, p.y, q.x, q.y, old.x * 10 + old.y);
  show_rect(&r), show_rect(&s), show_rect(&t), show_rect(&array[0]), show_rect(&array[1]);
  printf("%d %g %s\n", n.i, m.f, k.bytes);
  printf("%u %d %u %d %u %u\n", bits.a, bits.b, bits.c, bits.d, bits.e, bits.f);
  printf("%u %u\n", some.a, some.c);
  printf("%d %d %d\n", node.left->value, node.right->value, node.right->right == &node);
  printf("%c %g %d %d %d %ld %lld\n", mixed.c, mixed.d, mixed.s[0], mixed.s[2], mixed.inner, mixed.l,
         mixed.ll);
  printf("%d %d %s %d %d\n", *pointer, behind == table + 9, middle, *member, difference);
  function("%s %d %u\n", "by pointer", self == &self, address_size);
  for (i = 0; i < COUNT(doubles); i++) printf("%.12g ", doubles[i]);
  for (i = 0; i < COUNT(floats); i++) printf("%.9g ", floats[i]);
  for (i = 0; i < COUNT(longs); i++) printf("%lld ", longs[i]);
  for (i = 0; i < COUNT(shorts); i++) printf("%d ", shorts[i]);
  printf("\n%d %d %d %d\n", constants, kinds[0], kinds[1], kinds[2]);
  printf("%d %d %d %d %d\n", points[0]->x, points[1]->y, points[2]->x, literal[1], flexible.items[2]);
  locals(3, 4), locals(1, -2);
  printf("%d\n", again());
  for (i = 0; i < 2; i++)
    printf("%s %.2s %d %s %s ", elided[i].s, deeper[i].m.s, deeper[i].k, beside[i].p, beside[i].s);
  printf("%s %d %c\n", elided[2].s, elided[0].s[3], "xyz"[i]);
  show_ints("letters", letters, COUNT(letters));
  return 0;
}
