/* What has no form of its own behind the front end: statement expressions wherever an expression can
   stand, _Bool, places that are computed, members of values. */
int printf(const char *format, ...);

#define BLOCK(v) ({ int t_ = (v); trace(t_); t_; })

static char order[64];
static int length;
static int trace(int v) {
  order[length++] = (char)('a' + v);
  order[length] = 0;
  return v;
}
static void show(const char *what, int v) {
  printf("%s: %d %s\n", what, v, order);
  length = 0;
  order[0] = 0;
}
static int three(int a, int b, int c) { return a * 100 + b * 10 + c; }

static int conditions(int n) {
  int total = 0;
  if (BLOCK(n) && BLOCK(n + 1)) total++;
  if (BLOCK(0) || BLOCK(n)) total += 10;
  if (BLOCK(0) && BLOCK(9)) total += 100;
  total += (n > 2 ? BLOCK(1) : BLOCK(2)) * 1000;
  return total;
}

static int loops(void) {
  int i = 0, total = 0;
  while (BLOCK(i) < 3) {
    i++;
    if (i == 2) continue;
    total += i;
  }
  do {
    if (i == 4) continue;
    total += 10;
  } while (BLOCK(++i) < 6);
  for (i = BLOCK(0); BLOCK(i) < 4; i += BLOCK(1)) {
    if (i == 1) continue;
    if (i == 3) break;
    total += 100;
  }
  return total;
}

static int leave(int n) {
  int v = 1 + ({ if (n == 1) return 7; if (n == 2) goto out; if (n == 3) goto again; n; });
  return v;
again:
  return 50;
out:
  return 60;
}

static int in_loop(void) {
  int i, sum = 0;
  for (i = 0; i < 6; i++) {
    sum += ({ if (i == 1) continue; if (i == 4) break; i; });
  }
  return sum * 10 + i;
}

static int selected(int n) {
  switch (({ int k = n; k + 1; })) {
    case 1:
      return 10;
    case 2 ... 900:
      return 20;
    default:
      return 30;
  }
}

struct pair { int a, b; };
struct nest { struct pair p; int array[3]; unsigned bits : 5; };
static struct nest made(int n) {
  struct nest v = {{n, n + 1}, {n * 2, n * 3, n * 4}, n};
  return v;
}
static int members(int n) {
  struct nest other = made(9), target;
  int c = n;
  return made(n).p.b + made(n).array[2] * 10 + (c ? made(1) : made(2)).p.a * 1000 +
         (target = other).p.a * 10000 + (c++, other).array[0] * 100000 + (int)made(n).bits;
}

static void booleans(void) {
  _Bool b = 0, c = 1, d;
  struct { _Bool f : 1; unsigned g : 3; } s = {0, 7};
  int n = 256;
  d = n;
  b++;
  printf("%d %d", b, d);
  printf(" %d", b++);
  printf(" %d", b--), printf(" %d", b--), printf(" %d", b);
  printf(" %d %d", --c, ++c);
  b += 2, c *= 0;
  printf(" %d %d", b, c);
  s.f += 5, s.g++;
  printf(" %d %d", s.f, s.g);
  d = 0.25, c = &n;
  printf(" %d %d", d, c);
  d ^= 3, c |= n;
  printf(" %d %d %d\n", d, c, (int)(_Bool)n + !n);
}

static int *moving(int *p) { static int calls; calls++; return p + calls; }
static void places(void) {
  int a[4] = {1, 2, 3, 4}, *p = a, x = 1;
  _Bool flags[4] = {0};
  _Bool *q = flags;
  *moving(a) += 10;
  *q++ += 4, *q++ |= 1;
  printf("%d %d %d %d %d\n", a[1], flags[0], flags[1], flags[2], (int)(q - flags));
  *p++ = ({ int t = x; t + 40; });
  a[({ x++; x; })] += ({ x + 1; });
  printf("%d %d %d\n", a[0], a[2], (int)(p - a));
  printf("%d\n", +x + +(char)3);
}

static struct pair *later;
static int literals(int n) {
  struct pair *p = &(struct pair){n, n + 1};
  int *v = (int[]){n, 2, [4] = n * 2}, sum = 0, i;
  for (i = 0; i < 5; i++) sum = sum * 10 + v[i];
  later = &(struct pair){.b = 4};
  p->a += 5;
  return sum + p->a + p->b + later->a + later->b + (struct pair){n, 3}.b + *(int[2]){1};
}

static int aggregates(int n) {
  int i, sum = 0;
  for (i = 0; i < 3; i++) {
    struct nest v = {.array = {[1] = i, n}, .p.b = ({ int t = n; t * i; }), .p = {.a = 1}};
    struct pair w[2] = {[1] = {n, i}, [1].a = 5, [0].b = 2};
    sum = sum * 3 + v.p.a + v.p.b + v.array[0] + v.array[1] + v.array[2] + w[1].a + w[1].b + w[0].b;
    v.array[0] = w[0].a = 77;
  }
  return sum;
}
static struct { char text[2][4]; int v[10]; struct pair p[3]; } overlaid = {
    {"abc", "xyz", [0][1] = '-'}, {[2 ... 8] = 1, [4] = 2, [0] = 9}, {[0 ... 2] = {1, 2}, [1].b = 7}};

int main(void) {
  int i, x = 5;
  show("order", three(trace(1), BLOCK(2), trace(3)));
  show("operators", trace(1) + BLOCK(2) * trace(3) - BLOCK(4));
  show("comma", (trace(1), BLOCK(2), trace(3), BLOCK(4)));
  show("void", ((void)BLOCK(6), 1));
  show("conditions", conditions(1)), show("conditions", conditions(3));
  show("loops", loops());
  printf("%d %d %d %d %d\n", leave(0), leave(1), leave(2), leave(3), in_loop());
  printf("%d %d %d\n", selected(0), selected(500), selected(2000));
  printf("%d\n", members(3));
  booleans();
  places();
  printf("%d %d\n", literals(1), literals(4));
  printf("%d\n", aggregates(2));
  printf("%s %s", overlaid.text[0], overlaid.text[1]);
  for (i = 0; i < 10; i++) printf(" %d", overlaid.v[i]);
  for (i = 0; i < 3; i++) printf(" %d/%d", overlaid.p[i].a, overlaid.p[i].b);
  printf("\n%d", ({ int y = x; x = 9; y; }) + 9);
  printf(" %d\n", x ?: 3);
  return 0;
}
