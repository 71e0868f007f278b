/* Structures and unions by value: in arguments, results, assignments, conditions and initializers;
   members of values; nested, packed, aligned, anonymous and flexible ones. */
#include <stdarg.h>
#include <stddef.h>
int printf(const char *format, ...);
void *malloc(size_t size);
void *memset(void *to, int c, size_t size);

struct one {
  char c;
};
struct three {
  char c[3];
};
struct pair {
  int a, b;
};
struct wide {
  long long l;
  short s;
};
struct mix {
  char c;
  double d;
  struct pair p;
  float f[2];
};
struct large {
  int v[20];
  struct mix m;
};
union number {
  int i;
  float f;
  struct pair p;
  char c[4];
};
struct empty {};
struct nested {
  struct {
    int x;
    struct {
      int y, z;
    } in;
  };
  union {
    int u;
    unsigned char bytes[4];
  };
  int w;
};
struct node {
  struct node *next;
  struct pair value;
  struct pair (*get)(struct node *, int);
};

static int steps;
static struct one make_one(int c) {
  struct one v;
  v.c = c;
  steps++;
  return v;
}
static struct three make_three(int a) {
  return (struct three){{a, a + 1, a + 2}};
}
static struct pair make_pair(int a, int b) {
  struct pair v = {a, b};
  steps++;
  return v;
}
static struct wide make_wide(long long l) {
  return (struct wide){.s = 7, .l = l};
}
static struct mix make_mix(int n) {
  struct mix m = {n, n / 2.0, {n, -n}, {n + 0.5f}};
  return m;
}
static struct large make_large(int n) {
  struct large l = {{n, [19] = n * 2}, make_mix(n)};
  return l;
}
static union number make_number(int a) {
  union number v;
  v.p = make_pair(a, a * 2);
  return v;
}
static struct pair swap(struct pair p) {
  int t = p.a;
  p.a = p.b;
  p.b = t;
  return p;
}
static int sum_large(struct large l, int k) {
  l.v[0]++;
  return l.v[0] + l.v[19] + l.m.p.b + k + (int)l.m.d;
}
static int many(struct one o, char c, struct three t, short s, struct pair p, double d,
                struct wide w, float f, struct mix m, union number n, long long l) {
  return o.c + c + t.c[2] + s + p.b + (int)d + (int)w.l + w.s + (int)(f * 2) + (int)m.f[0] + n.p.b +
         (int)l;
}
static struct pair get(struct node *n, int k) {
  return k ? swap(n->value) : n->value;
}
static struct pair fib(int n) {
  struct pair p;
  if (n == 0) return make_pair(0, 1);
  p = fib(n - 1);
  return make_pair(p.b, p.a + p.b);
}
static int variable(int count, ...) {
  va_list list, copy;
  int s = 0;
  va_start(list, count);
  va_copy(copy, list);
  while (count-- > 0) {
    struct pair p = va_arg(list, struct pair);
    s = s * 10 + p.a - p.b + va_arg(list, struct one).c + (int)va_arg(list, struct mix).d;
    s += va_arg(list, struct wide).s + va_arg(list, struct large).v[19] +
         va_arg(list, union number).p.b;
  }
  s += va_arg(copy, struct pair).a;
  va_end(list), va_end(copy);
  return s;
}
static void show(const char *what, struct pair p) {
  printf("%s %d %d\n", what, p.a, p.b);
}

static struct pair table[4] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
static int index_once(void) {
  return steps++ & 3;
}

static void assignments(void) {
  struct pair p = {1, 2}, q, r, *pp = &p, a[3] = {{1, 1}, {2, 2}, {3, 3}}, *walk = a;
  struct large l = make_large(4), m, k;
  volatile struct pair v = {8, 9};
  const struct pair fixed = {6, 5};
  struct {
    struct pair p[2];
  } w, x = {{{1, 2}, {3, 4}}};
  q = r = p, show("chain", q), show("chain", r);
  *pp = make_pair(5, 6), show("call", p);
  p = swap(p), show("self", p);
  *walk++ = *pp, *walk++ = a[0], show("walk", a[1]), printf("%d\n", (int)(walk - a));
  m = l, k = (l.v[1] = 3, l), printf("%d %d %d %g\n", m.v[19], k.v[1], m.v[1], k.m.d);
  l = make_large(9), printf("%d %d\n", l.v[0], sum_large(l, 1));
  q = p.a > 5 ? p : r, show("condition", q);
  q = p.a > 6 ? p : make_pair(3, 3), show("condition", q);
  show("value", (p.a ? swap(p) : q)), printf("%d\n", (p.a ? p : q).b);
  printf("%d %d\n", (q = p).a, (q = make_pair(11, 12), q).b);
  printf("%d %d\n", (steps++, make_pair(13, 14)).a, (steps++, p).b);
  q = v, show("volatile", q), v = p, printf("%d\n", v.b);
  q = fixed, show("const", q);
  w = x, x.p[0] = x.p[1], show("array", w.p[0]), show("array", x.p[0]);
  steps = 0, table[index_once()] = table[index_once() | 2], printf("%d\n", steps);
  steps = 1, table[index_once()].a += 100, show("once", table[1]), printf("%d\n", steps);
  steps = 2, table[index_once()].b++, show("once", table[2]), printf("%d\n", steps);
  steps = 3, (table[index_once()] = p), show("once", table[3]), printf("%d\n", steps);
  {
    struct pair table_copy[4];
    struct pair *t = table_copy;
    int n;
    for (n = 0; n < 4; n++)
      *t++ = table[n];
    show("copy", table_copy[2]);
  }
}

static void members_of_values(void) {
  struct node n = {&n, {21, 22}, get}, *p = &n;
  printf("%d %d %d\n", make_pair(1, 2).b, make_mix(3).p.a, make_large(4).m.p.b);
  printf("%d %d %g\n", make_three(5).c[2], make_large(6).v[19], make_large(7).m.f[0]);
  printf("%d %d\n", p->get(p, 1).a, p->next->next->get(p->next, 0).b);
  printf("%d %d\n", make_number(8).p.b, (*(p->get))(p, 0).a);
  printf("%c %d\n", make_one('x').c, make_one(-1).c);
  printf("%lld %d\n", make_wide(1LL << 40).l, make_wide(-1).s);
  printf("%d\n", ((struct pair){31, 32}).b + (&(struct pair){33, 34})->a);
  printf("%d %d\n", fib(20).a,
         many(make_one(1), 2, make_three(3), 4, make_pair(5, 6), 7.5, make_wide(8), 9.5f,
              make_mix(10), make_number(11), 12));
  printf("%d\n", variable(2, make_pair(9, 1), make_one(2), make_mix(8), make_wide(1), make_large(1),
                          make_number(2), make_pair(7, 8), make_one(3), make_mix(6), make_wide(2),
                          make_large(2), make_number(3)));
}

static int empties(struct empty a, int b, struct empty c) {
  struct empty d = a;
  a = c;
  return b + sizeof d + sizeof(struct empty);
}

struct __attribute__((packed)) packed {
  char c;
  int i;
  short s;
  long long l;
  double d;
};
struct packed_member {
  char c;
  int i __attribute__((packed));
  short s;
};
struct aligned {
  char c;
  int i __attribute__((aligned(16)));
} __attribute__((aligned(32)));
typedef int aligned_int __attribute__((aligned(8)));
struct with_aligned {
  char c;
  aligned_int i;
  char e;
};
struct alignas_member {
  char c;
  _Alignas(16) char d;
  _Alignas(double) char e;
};
#pragma pack(push, 2)
struct packed2 {
  char c;
  int i;
  double d;
};
#pragma pack(pop)
struct flexible {
  int n;
  short items[];
};
struct zero_array {
  char c;
  int v[0];
};

static void layouts(void) {
  struct packed k = {1, 0x01020304, -3, 0x1122334455667788LL, 2.5}, *pk = &k;
  struct packed_member pm = {'p', 77, 5};
  struct aligned al[2] = {{1, 2}, {3, 4}};
  struct packed2 p2 = {1, 2, 3.5};
  struct nested n = {{1, {2, 3}}, {0x01010101}, 4}, n2;
  struct flexible *f = malloc(sizeof *f + 4 * sizeof(short));
  static struct flexible given = {3, {4, 5, 6}};
  static _Alignas(64) char buffer[3];
  _Alignas(16) int local = 5;
  printf("%d %d %d %d\n", (int)sizeof k, (int)offsetof(struct packed, l), (int)sizeof pm,
         (int)offsetof(struct packed_member, s));
  printf("%d %d %d %d\n", (int)sizeof(struct aligned), (int)_Alignof(struct aligned),
         (int)offsetof(struct aligned, i), al[1].i);
  printf("%d %d %d\n", (int)sizeof(struct with_aligned), (int)_Alignof(aligned_int),
         (int)sizeof(struct alignas_member));
  printf("%d %d %d\n", (int)sizeof p2, (int)offsetof(struct packed2, d),
         (int)sizeof(struct zero_array));
  printf("%x %d %llx %g\n", k.i, k.s, k.l, pk->d);
  pk->i += 1, pk->l++, pk->s -= 4, pk->d *= 2, k.c = -1;
  printf("%x %d %llx %g %d\n", k.i, k.s, k.l, pk->d, k.c);
  k = *pk, pm.i *= 2, printf("%d %d %d %g\n", pm.i, p2.i, k.s, p2.d);
  printf("%d %d %d %d %d %d\n", n.x, n.in.y, n.in.z, n.u, n.bytes[2], n.w);
  n2 = n, n2.in.z = 9, n2.bytes[0] = n2.bytes[3] = 5,
  printf("%d %d %x\n", n2.in.z, n.in.z, n2.u & 0xff0000ff);
  f->n = 4, f->items[3] = 44, f->items[0] = 40,
  printf("%d %d %d %d\n", f->n, f->items[3], given.items[2], (int)sizeof given);
  printf("%d %d %d\n", (int)((unsigned)buffer & 63), (int)((unsigned)&local & 15),
         (int)((unsigned)&al[1] & 31));
  printf("%d %d\n", empties((struct empty){}, 5, (struct empty){}),
         (int)offsetof(struct large, m.p.b));
  printf("%d %d\n", (int)offsetof(struct large, v[3]), (int)offsetof(struct nested, in.z));
}

/* A union shows what was stored through another member. */
static void unions(void) {
  union number n = {.f = 1.0f}, m = n, *p = &m;
  union {
    long long l;
    struct {
      unsigned a, b;
    } w;
  } pun = {.l = 0x0000000100000001LL};
  printf("%x %d\n", n.i, m.i == p->i), p->i = 7, n = *p, printf("%d\n", n.p.a);
  printf("%u %u\n", pun.w.a, pun.w.b);
  m = make_number(5), printf("%d %d %d\n", m.i, m.p.b, (int)sizeof m);
  printf("%d\n", ((union number){.p = {1, 2}}).p.b);
  n = (union number)9, printf("%d\n", n.i);
}

int main(void) {
  assignments();
  members_of_values();
  layouts();
  unions();
  return 0;
}
