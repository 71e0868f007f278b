/* Variable arguments, and builtin functions that are plain code behind the front end. */
int printf(const char *format, ...);

typedef __builtin_va_list va_list;
struct pair { short a, b; };
struct wide { double d; char c; };

static double sum(const char *kinds, ...) {
  va_list list;
  double total = 0;
  __builtin_va_start(list, kinds);
  for (; *kinds; kinds++) switch (*kinds) {
      case 'i': total += __builtin_va_arg(list, int); break;
      case 'l': total += __builtin_va_arg(list, long long); break;
      case 'd': total += __builtin_va_arg(list, double); break;
      case 'p': total += *__builtin_va_arg(list, int *); break;
      case 's': total += __builtin_va_arg(list, struct pair).b; break;
      case 'w': { struct wide w = __builtin_va_arg(list, struct wide); total += w.d + w.c; } break;
    }
  __builtin_va_end(list);
  return total;
}
static int next(va_list *list) { return __builtin_va_arg(*list, int); }
static int by_value(va_list list) { return __builtin_va_arg(list, int); }
static int walk(char last, ...) {
  va_list list, copy;
  int r;
  __builtin_va_start(list, last);
  __builtin_va_copy(copy, list);
  r = next(&list) * 1000 + next(&list) * 100 + by_value(list) * 10 + next(&copy);
  __builtin_va_end(copy);
  __builtin_va_end(list);
  return r;
}
static void floats(double d, float f) {
  printf("%d %d %d %d %d %d %d\n", !!__builtin_isnan(d), !!__builtin_isinf(d), !!__builtin_isfinite(d),
         !!__builtin_isnormal(d), !!__builtin_signbit(d), !!__builtin_signbit(f),
         __builtin_fpclassify(0, 1, 4, 3, 2, d));
}
static int wanted(unsigned x, unsigned long long y) {
  return __builtin_clz(x) + __builtin_ctzll(y) * 100 + __builtin_popcountll(y) * 10000 +
         __builtin_parity(x) * 1000000 + __builtin_ffsll(y << 3) * 10000000;
}
static int never(int n) {
  if (n > 0) return 1;
  __builtin_unreachable();
}

int main(void) {
  int i = 4;
  struct pair p = {1, 2};
  struct wide w = {2.5, 1};
  double zero = 0;
  printf("%g\n", sum("ildipswd", 1, 2LL, 0.5, 3, &i, p, w, 100.0));
  printf("%d\n", walk('x', 1, 2, 3));
  floats(1.5, -1), floats(-zero, 0), floats(1 / zero, 2), floats(zero / zero, 2), floats(1e-310, -0.0f);
  printf("%d %d\n", wanted(0x1000, 0x30), never(3));
  printf("%g %g %d %g\n", __builtin_fabs(-1.5), (double)__builtin_fabsl(-2.5L), __builtin_abs(-3),
         __builtin_pow(2.0, 10.0));
  printf("%d %s\n", *(int *)__builtin_assume_aligned(&i, 4), __builtin_expect(i, 0) ? "y" : "n");
  printf("%d %d\n", (int)__builtin_strlen("four"), __builtin_constant_p(i));
  return 0;
}
