/* GNU C and the later standards: typeof, _Generic, builtins, attributes, statement expressions. */
#include <stddef.h>
int printf(const char *format, ...);
void *memcpy(void *to, const void *from, size_t n);
int strcmp(const char *a, const char *b);

_Static_assert(sizeof(int) == 4, "int");
struct asserted {
  int a;
  _Static_assert(sizeof(char) == 1, "char");
  int b;
};
#define KIND(x) \
  _Generic((x), int : "int", unsigned : "unsigned", char : "char", signed char : "signed char", \
    unsigned char : "unsigned char", short : "short", unsigned short : "unsigned short", long : "long", \
    unsigned long : "unsigned long", long long : "long long", unsigned long long : "unsigned long long", \
    float : "float", double : "double", long double : "long double", _Bool : "_Bool", char * : "char *", \
    const char * : "const char *", int * : "int *", void * : "void *", int (*)(int) : "int (*)(int)", \
    struct asserted : "struct", struct asserted * : "struct *", int (*)[3] : "int (*)[3]", default : "other")
#define MAX(a, b)           \
  ({                        \
    __typeof__(a) _a = (a); \
    __typeof__(b) _b = (b); \
    _a > _b ? _a : _b;      \
  })
#define SWAP(a, b)             \
  do {                         \
    __typeof__(a) swap_ = (a); \
    (a) = (b);                 \
    (b) = swap_;               \
  } while (0)

typedef __typeof__(int[4]) four_ints;
typedef __typeof__(struct asserted) renamed;
extern __typeof__(printf) printf;
static __typeof__(1 + 1LL) long_sum = 1LL << 40;
static int effects;
static int effect(int n) {
  effects += n;
  return n;
}
static int twice(int x) {
  return 2 * x;
}
static int aliased(int x) __attribute__((alias("target_of_alias")));
int target_of_alias(int x) {
  return x + 1000;
}
static int unused_one __attribute__((unused)), kept __attribute__((used)) = 4;
static void before_main(void) __attribute__((constructor));
static int ran;
static void before_main(void) {
  ran++;
}
__attribute__((noinline)) static int not_inlined(int x) {
  return x + 1;
}
static inline __attribute__((always_inline)) int inlined(int x) {
  return x + 2;
}
__attribute__((const)) static int pure_function(int x) {
  return x * x;
}
__attribute__((weak)) int weak_function(void) {
  return 5;
}
extern int absent(void) __attribute__((weak));
extern int absent_object __attribute__((weak));
__extension__ typedef struct {
  int a;
  __extension__ union {
    int b;
    float c;
  };
} extended;
typedef int aligned8 __attribute__((aligned(8)));
struct bits {
  unsigned a : 3;
  int b : 4;
  _Bool c : 1;
  unsigned long long d : 40;
};
static int zero_length[0];
struct trailing {
  int n;
  char text[0];
};
enum { one = 1, two, big = 0x7fffffff } e;
enum byte { b0, b255 = 255 };
enum half { h0 = -1, h200 = 200 };
enum negative { n0 = -128, n127 = 127 };
enum word { w0 = 70000 };

static const char *name(void) {
  return __FUNCTION__;
}
static int nested_expressions(int n) {
  return ({
    int a = n;
    ({
      int b = a * 2;
      a += b;
      b;
    }) + a;
  });
}
static int defaults(int a, int b) {
  return a ?: b;
}
static struct asserted value(int n) {
  struct asserted v = {n, n + 1};
  return ({
    struct asserted w = v;
    w.b *= 2;
    w;
  });
}
static int with_ranges(int n) {
  static const int table[100] = {[0 ... 9] = 1, [10 ... 19] = 2, [50] = 5, 6, [90 ... 99] = 9};
  return table[n];
}

int main(void) {
  int i = 3, j = 9, array[5] = {1, 2, 3, 4, 5}, (*pa)[5] = &array;
  char c = 'c';
  short s = -1;
  float f = 1.5f;
  double d = -2.5;
  long long ll = -5;
  unsigned u = 7;
  const char *text = "text";
  const int ci = 4;
  volatile int vi = 5;
  struct bits bits = {5, -3, 1, 1ULL << 39};
  struct asserted st = {1, 2};
  __typeof__(i) ti = 4, *tp = &ti;
  __typeof__(array) ta = {[2] = 7};
  __typeof__(*pa) tq = {1};
  __typeof__(twice) *tf = twice;
  __typeof__(ci) tc = 6;
  const __typeof__(&twice) tcf = twice;
  four_ints fours = {1, 2, 3, 4};
  renamed r = {5, 6};
  printf("%s %s %s %s %s %s\n", KIND(i), KIND(c), KIND((char)1), KIND(s), KIND(+c), KIND(s + s));
  printf("%s %s %s %s %s %s\n", KIND(u + ll), KIND(f), KIND(f + f), KIND(f * 2.0), KIND(1.0L),
         KIND(1.0f + i));
  printf("%s %s %s %s %s\n", KIND(text), KIND("literal"), KIND(array), KIND(&array),
         KIND((void *)0));
  printf("%s %s %s %s %s\n", KIND(&st), KIND(st), KIND(twice), KIND(&twice), KIND((int(*)[3])0));
  printf("%s %s %s %s %s %s\n", KIND(1u), KIND(1l), KIND(1ul), KIND(1ll), KIND(1ull), KIND('a'));
  printf("%s %s %s %s %s\n", KIND((_Bool)1), KIND(!i), KIND(i == j), KIND(sizeof i), KIND(tp - tp));
  printf("%s %s\n", KIND(1 ? u : i), KIND(i ? 1 : 1.0f));
  printf("%s %s %s %s\n", KIND(u << ll), KIND(ll >> 1), KIND(c << 1), KIND(2147483648));
  printf("%s %s %s %s\n", KIND(ci), KIND(vi), KIND((const int)1), KIND(*&ci));
  printf("%s %s %s %s\n", KIND(e), KIND(one), KIND((enum byte)1 + 1), KIND(big));
  printf("%d %d %d %d %d %d\n", (int)sizeof(enum byte), (int)sizeof(enum half),
         (int)sizeof(enum negative), (int)sizeof(enum word), (int)sizeof e, (int)sizeof one);
  printf("%d %d %d %d %d\n", ti + *tp, ta[2] + tq[0], tf(4) + tcf(5), tc,
         (int)sizeof(ta) + (int)sizeof(four_ints));
  printf("%d %lld %d\n", fours[3] + r.b, long_sum, (int)sizeof(__typeof__(c + c)));
  printf("%d %g %lld\n", MAX(i, j), MAX(f, d), MAX(ll, (long long)i));
  SWAP(i, j);
  printf("%d %d\n", i, j);
  printf("%d %d %d %d\n", nested_expressions(5), defaults(0, 4), defaults(3, effect(5)),
         effect(2) ?: 9),
      printf("%d\n", effects);
  printf("%d %d %g %s\n", value(4).b, i ?: j, d ?: 1.0, (char *)0 ?: text);
  printf("%d %d %d %d\n", with_ranges(9), with_ranges(19), with_ranges(51), with_ranges(95));
  printf("%d %d %d %d %d\n", aliased(1), ran, not_inlined(1), inlined(1), pure_function(9));
  printf("%d %d %d %d\n", weak_function(), absent == 0, &absent_object == 0, kept);
  printf("%s %s %d %d\n", name(), __func__, (int)sizeof(__PRETTY_FUNCTION__),
         (int)sizeof(zero_length));
  printf("%d %d %d %d\n", (int)_Alignof(double), (int)__alignof__(aligned8), (int)__alignof__(c),
         (int)_Alignof(struct bits));
  printf("%d %d %d %d %d\n", (int)sizeof(void), (int)sizeof(twice), (int)sizeof(struct trailing),
         (int)sizeof(extended), (int)sizeof bits);
  printf("%d %d\n", (int)((char *)((void *)tp + 4) - (char *)tp), ((extended){.a = 1, .b = 2}).b);
  printf("%u %d %d %llu\n", bits.a, bits.b, bits.c, (unsigned long long)bits.d);
  printf("%d %d %d\n", __builtin_constant_p(4), __builtin_constant_p(i),
         __builtin_constant_p("a"[0]) >= 0);
  printf("%d %d %d\n", __builtin_types_compatible_p(int, int),
         __builtin_types_compatible_p(int, long), __builtin_types_compatible_p(const int, int));
  printf("%d %s\n", __builtin_choose_expr(1, 4, "x"), __builtin_choose_expr(0, 4, "x"));
  printf("%d %d %d\n", (int)__builtin_offsetof(struct asserted, b),
         (int)offsetof(struct trailing, text),
         (int)__builtin_offsetof(
             struct { int a[4]; }, a[2]));
  printf("%d %d %d %d\n", __builtin_clz(1), __builtin_clz(0xffff), __builtin_ctz(8),
         __builtin_popcount(0xff00ff));
  printf("%d %d %d %d\n", __builtin_clzll(1), __builtin_ctzll(1ULL << 40),
         __builtin_popcountll(~0ULL), __builtin_parity(7));
  printf("%d %d %d %d\n", __builtin_ffs(0), __builtin_ffs(16), __builtin_ffsll(1LL << 35),
         __builtin_clz(u) + __builtin_ctz(u + 1));
  printf("%d %d %g %g\n", __builtin_abs(-4), (int)__builtin_labs(-5L), __builtin_fabs(-1.5),
         (double)__builtin_fabsf(-2.5f));
  printf("%d %d %d %d\n", __builtin_isnan(d), __builtin_isinf(d / 0.0) != 0,
         __builtin_signbit(d) != 0, __builtin_isfinite(d));
  printf("%g %d %d\n", __builtin_inf(), __builtin_nan("") != __builtin_nan(""),
         __builtin_huge_val() > 1e308);
  printf("%d %d\n", (int)__builtin_expect(i, 9), (int)__builtin_expect(i == 9, 1));
  printf("%d %d %d\n", (int)__builtin_strlen("four"), __builtin_strcmp("a", "a"),
         (int)__builtin_strlen(text));
  {
    char copy[8];
    __builtin_memcpy(copy, "copied", 7), __builtin_memset(copy + 1, '-', 2),
        printf("%s %d\n", copy, __builtin_memcmp(copy, "c--ied", 7));
  }
  printf("%d %d\n", __builtin_isgreater(1.0, 2.0), __builtin_isunordered(1.0, __builtin_nan("")));
  {
    volatile unsigned word = 0x12345678;
    volatile unsigned short half = 0xabcd;
    volatile unsigned long long wide = 0x1122334455667788ULL;
    printf("%x %x %llx\n", (unsigned)__builtin_bswap32(word), __builtin_bswap16(half),
           (unsigned long long)__builtin_bswap64(wide));
  }
  {
    int steps = 0;
    __builtin_prefetch(text, steps++), __builtin_prefetch(&text[steps++]);
    printf("%d\n", steps);
  }
  if (i == 1000) __builtin_unreachable();
  printf("%d %d %d\n", ({ 5; }), ({
           int k = 6;
           k;
         }),
         ({
           goto skip;
         skip:
           7;
         }));
  {
    auto int k = 1;
    register int m = 2;
    printf("%d\n", k + m);
  }
  return 0;
}
