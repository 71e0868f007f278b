/* Extensions: statement expressions, typeof, local labels' kin, conditional without a middle, ranges. */
int printf(const char *format, ...);
void *memcpy(void *to, const void *from, __SIZE_T_TYPE__ size);

#define MAX(a, b) ({ __typeof__(a) x_ = (a); __typeof__(b) y_ = (b); x_ > y_ ? x_ : y_; })

static int calls;
static int get(int v) { calls++; return v; }
static int early(int n) { int r = ({ if (n > 5) return 99; n * 2; }); return r + 1; }
static int nested(int n) { return ({ int t = ({ int u = n; u + 1; }); t * t; }); }
static int loop(int n) {
  int total = 0;
  while (({ n--; n >= 0; })) total += ({ int k; for (k = 0; k < n; k++) if (k == 3) break; k; });
  return total;
}
struct pair { int a, b; };
static int from_struct(void) { return ({ struct pair p = {4, 5}; p; }).b; }
static void cast_union(void) {
  union u { int i; float f; } u;
  u = (union u)7;
  printf("%d ", u.i);
  u = (union u)1.5f;
  printf("%g\n", u.f);
}
static int empty_struct(void) { struct {} e; return sizeof e; }
static int zero_array(void) { struct { int n; int z[0]; } s; return sizeof s; }
static void *volatile sink;
static __attribute__((noinline)) int attributes(int x __attribute__((unused))) { return 3; }
static int builtin_constant(int n) { return __builtin_constant_p(4) * 10 + __builtin_constant_p(n); }
static int binary = 0b1011;
static long long counted(unsigned x) {
  return __builtin_clz(x) + __builtin_ctz(x) * 100 + __builtin_popcount(x) * 10000 + __builtin_ffs(x) * 1000000 + __builtin_parity(x) * 100000000;
}

// A jump in a controlling expression leaves what is around the loop or switch.
static int jumps_in_conditions(int n) {
  int steps = 0;
  while (n) {
    while (({ if (n > 3) break; n++; steps++; 1; })) steps += 10;
    do n += 3; while (({ if (n == 7) continue; if (n > 20) break; 0; }));
    switch (({ if (n == 11) break; n; })) { default: return steps + n; }
  }
  return steps * 1000 + n;
}
struct nothing {};
static struct { struct nothing none; int a, b; } short_of_room = {1, 2};

int main(void) {
  int i = 3, j = 8;
  double d = 2.5;
  __typeof__(d) e = d;
  __typeof__(int *) p = &i;
  int array[3] = {1, 2, 3};
  __typeof__(array) other;
  printf("%d %g %d\n", MAX(i, j), MAX(e, i), *p);
  printf("%d %d %d\n", get(0) ?: 7, get(5) ?: 7, calls);
  printf("%d %d %d %d %d\n", early(2), early(9), nested(4), loop(8), from_struct());
  cast_union();
  printf("%d %d\n", empty_struct(), zero_array());
  memcpy(other, array, sizeof other);
  printf("%d %d\n", other[2], (int)(sizeof(void) + sizeof(get)));
  sink = (char *)&i + 1;
  printf("%d\n", (int)((char *)sink - (char *)&i));
  printf("%d %d %d\n", attributes(1), builtin_constant(i), binary);
  printf("%lld %lld\n", counted(0x00f0), counted(1u << 31 | 1));
  printf("%d %d\n", __builtin_types_compatible_p(int, __typeof__(i)), __builtin_types_compatible_p(int, long));
  printf("%d\n", __builtin_choose_expr(1, i, "text"));
  printf("%d\n", (int)__builtin_offsetof(struct pair, b));
  printf("%s %s\n", __func__, __FUNCTION__);
  printf("%d\n", __builtin_expect(i == 3, 1) ? 1 : 0);
  for (i = 0; i < 12; i++) printf("%d ", jumps_in_conditions(i));
  printf("%d %d\n", short_of_room.a, short_of_room.b);
  return 0;
}
