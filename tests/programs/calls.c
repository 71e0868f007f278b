/* Calls: classes by value and as results, function pointers, recursion, variable arguments, K&R. */
#include <stdarg.h>
int printf(const char *format, ...);
int vprintf(const char *format, va_list list);

struct small { char c; };
struct pair { int a, b; };
struct big { int v[10]; double d; };
union either { int i; double d; };
struct nested { struct pair p; struct small s; short h; };

static struct small make_small(int c) { struct small s = {(char)c}; return s; }
static struct pair make_pair(int a, int b) { struct pair p; p.a = a; p.b = b; return p; }
static struct big make_big(int start) {
  struct big b;
  int i;
  for (i = 0; i < 10; i++) b.v[i] = start + i;
  b.d = start / 2.0;
  return b;
}
static union either make_either(double d) { union either e; e.d = d; return e; }
static int sum_big(struct big b, int k) { int i, s = 0; for (i = 0; i < 10; i++) s += b.v[i]; b.v[0] = 0; return s * k; }
static struct pair swap(struct pair p) { return make_pair(p.b, p.a); }
static struct nested make_nested(struct pair p, struct small s, short h) { struct nested n = {p, s, h}; return n; }

static int add(int a, int b) { return a + b; }
static int sub(int a, int b) { return a - b; }
static int apply(int (*f)(int, int), int a, int b) { return f(a, b); }
static int (*choose(int which))(int, int) { return which ? add : sub; }
static int fib(int n) { return n < 2 ? n : fib(n - 1) + fib(n - 2); }
static int odd(int n);
static int even(int n) { return n == 0 ? 1 : odd(n - 1); }
static int odd(int n) { return n == 0 ? 0 : even(n - 1); }

static long long narrow(char c, unsigned char u, short s, unsigned short w, float f, _Bool b) {
  c++, u++, s--, w--;
  return c + u * 10 + s * 100 + w * 1000LL + (long long)(f * 10) * 100000000 + b;
}
static int old_style(a, c, f, p) int a; char c; float f; struct pair p;
{ return a + c + (int)f + p.b; }
static old_default(x) { return x * 2; }

static int sum(int count, ...) {
  va_list list;
  int total = 0;
  va_start(list, count);
  while (count-- > 0) total += va_arg(list, int);
  va_end(list);
  return total;
}
static double mixed(const char *format, ...) {
  va_list list, copy;
  double total = 0;
  va_start(list, format);
  va_copy(copy, list);
  for (; *format; format++) switch (*format) {
      case 'i': total += va_arg(list, int); break;
      case 'l': total += va_arg(list, long long); break;
      case 'd': total += va_arg(list, double); break;
      case 's': total += *va_arg(list, char *); break;
      case 'p': total += va_arg(list, struct pair).b; break;
      case 'b': total += va_arg(list, struct big).v[9]; break;
      case 'c': total += va_arg(list, struct small).c; break;
      case 'u': total += va_arg(list, unsigned); break;
    }
  total += va_arg(copy, int) * 1000;
  va_end(copy);
  va_end(list);
  return total;
}
static int after_char(char c, ...) { va_list l; int r; va_start(l, c); r = va_arg(l, int) * 10 + c; va_end(l); return r; }
static double after_double(double d, ...) { va_list l; double r; va_start(l, d); r = d + va_arg(l, double) + va_arg(l, int); va_end(l); return r; }
static int after_class(struct pair p, ...) { va_list l; int r; va_start(l, p); r = p.a + p.b + va_arg(l, int); va_end(l); return r; }
static void print(const char *format, ...) { va_list l; va_start(l, format); vprintf(format, l); va_end(l); }
static int through(int n, va_list l) { return n ? va_arg(l, int) + through(n - 1, l) : 0; }
static int forward(int n, ...) { va_list l; int r; va_start(l, n); r = through(n, l); va_end(l); return r; }

inline static int inlined(int x) { return x + 1; }
static int order;
static int note(int v) { order = order * 10 + v; return v; }

int main(void) {
  struct pair p = make_pair(1, 2), q;
  struct big b = make_big(5);
  int (*table[])(int, int) = {add, sub, &add};
  int (**f)(int, int) = table;
  printf("%d %d %d\n", make_small('x').c, make_pair(3, 4).b, make_big(7).v[3]);
  printf("%g %d\n", make_either(2.5).d, sum_big(b, 2));
  printf("%d %d\n", b.v[0], sum_big(make_big(1), 1));
  q = swap(swap(swap(p)));
  printf("%d %d %d\n", q.a, q.b, swap(p).a * 10 + swap(q).a);
  p = q = make_pair(8, 9);
  printf("%d %d\n", p.a, (p = make_pair(6, 7)).b);
  printf("%d %d %d\n", make_nested(p, make_small(5), -3).p.b, make_nested(p, make_small(5), -3).s.c, make_nested(p, make_small(5), -3).h);
  printf("%d %d %d %d\n", apply(add, 5, 3), apply(&sub, 5, 3), choose(1)(1, 2), (*choose(0))(1, 2));
  printf("%d %d %d\n", table[1](9, 4), (**f)(2, 2), (***table)(3, 3));
  printf("%d %d %d\n", fib(15), even(10), odd(10));
  printf("%lld\n", narrow(-2, 255, -32768, 0, 1.75f, 5));
  printf("%lld\n", narrow(300, 511, 70000, 65536, 0.1, 0.5));
  printf("%d %d\n", old_style(1, 'a', 2.5, p), old_default(21));
  printf("%d %d %d\n", sum(0), sum(3, 1, 2, 3), sum(8, 1, 2, 3, 4, 5, 6, 7, 8));
  printf("%g\n", mixed("iidlds", 1, 2, 3.5, 4LL, 5.5, "A"));
  printf("%g\n", mixed("ipbcl", 1, p, b, make_small(3), 1LL << 33));
  printf("%g\n", mixed("icdil", 1, make_small(4), 0.25, 7, -9LL));
  printf("%d %g %d\n", after_char('a', 7), after_double(1.5, 2.5, 3), after_class(p, 100));
  print("%d %s %g %lld %c\n", 1, "two", 3.0, 4LL, '5');
  printf("%d %d\n", forward(3, 10, 20, 30), inlined(41));
  note(1) + note(2) * note(3), printf("%d\n", order % 10 != 0);
  printf("%d\n", (order = 0, add(note(1), 2), order));
  (void)add(1, 2);
  return sum(2, 20, 22) - 42;
}
