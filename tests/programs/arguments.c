/* Variable arguments of every type, lists that are copied, passed on and pointed to. */
#include <stdarg.h>
#include <stddef.h>
int printf(const char *format, ...);
int vprintf(const char *format, va_list list);
int vsprintf(char *to, const char *format, va_list list);
int vsnprintf(char *to, size_t size, const char *format, va_list list);
int sprintf(char *to, const char *format, ...);

struct small {
  char c[3];
};
struct odd {
  short s[3];
};
struct pair {
  int a, b;
};
struct wide {
  double d;
  char c;
};
union any {
  int i;
  long long l;
};
enum tiny { none, some = 200 };
enum big { large = 100000 };

static void show(const char *types, ...) {
  va_list list;
  const char *t;
  va_start(list, types);
  for (t = types; *t; t++)
    switch (*t) {
      case 'c':
        printf(" c%d", (char)va_arg(list, int));
        break;
      case 'i':
        printf(" i%d", va_arg(list, int));
        break;
      case 'u':
        printf(" u%u", va_arg(list, unsigned));
        break;
      case 'l':
        printf(" l%ld", va_arg(list, long));
        break;
      case 'L':
        printf(" L%lld", va_arg(list, long long));
        break;
      case 'U':
        printf(" U%llu", va_arg(list, unsigned long long));
        break;
      case 'd':
        printf(" d%g", va_arg(list, double));
        break;
      case 'D':
        printf(" D%g", (double)va_arg(list, long double));
        break;
      case 's':
        printf(" s%s", va_arg(list, const char *));
        break;
      case 'p':
        printf(" p%d", *va_arg(list, int *));
        break;
      case 'f':
        printf(" f%d", va_arg(list, int (*)(int))(20));
        break;
      case '3': {
        struct small v = va_arg(list, struct small);
        printf(" 3:%d,%d", v.c[0], v.c[2]);
        break;
      }
      case '6':
        printf(" 6:%d", va_arg(list, struct odd).s[2]);
        break;
      case 'P': {
        struct pair p, *q = &p;
        *q = va_arg(list, struct pair);
        printf(" P%d,%d", p.a, q->b);
        break;
      }
      case 'W':
        printf(" W%g", va_arg(list, struct wide).d);
        break;
      case 'A':
        printf(" A%lld", va_arg(list, union any).l);
        break;
      case 'e':
        printf(" e%d", va_arg(list, int));
        break;
      case 'E':
        printf(" E%d", va_arg(list, enum big));
        break;
      case 'a':
        printf(" a%d", (*va_arg(list, int(*)[3]))[1]);
        break;
    }
  va_end(list);
  printf("\n");
}
static int twice(int x) {
  return x * 2;
}
static int from_list(int n, va_list list) {
  int s = 0;
  while (n--)
    s = s * 10 + va_arg(list, int);
  return s;
}
static int from_pointer(int n, va_list *list) {
  int s = 0;
  while (n--)
    s = s * 10 + va_arg(*list, int);
  return s;
}
static int passes(int n, ...) {
  va_list a, b, c;
  int r;
  va_start(a, n);
  va_copy(b, a);
  r = from_pointer(n, &a);
  r = r * 10 + va_arg(a, int);
  va_copy(c, b);
  r -= from_list(n, c);
  va_end(c);
  r += from_pointer(2, &b) * 100000 + va_arg(b, int);
  va_end(a), va_end(b);
  va_start(a, n);
  r += va_arg(a, int) * 1000000;
  va_end(a);
  return r;
}
static void print(const char *format, ...) {
  va_list l;
  va_start(l, format);
  vprintf(format, l);
  va_end(l);
}
static int form(char *to, size_t size, const char *format, ...) {
  int n;
  va_list l;
  va_start(l, format);
  n = vsnprintf(to, size, format, l);
  va_end(l);
  va_start(l, format), vsprintf(to + 40, format, l), va_end(l);
  return n;
}
/* The last named parameter in every size and place. */
static int after_char(char c, ...) {
  va_list l;
  int r;
  va_start(l, c);
  r = va_arg(l, int) + c;
  va_end(l);
  return r;
}
static int after_short(int a, short s, ...) {
  va_list l;
  int r;
  va_start(l, s);
  r = va_arg(l, int) + s + a;
  va_end(l);
  return r;
}
static double after_double(double d, ...) {
  va_list l;
  double r;
  va_start(l, d);
  r = va_arg(l, double) + d;
  va_end(l);
  return r;
}
static long long after_long(int a, long long b, ...) {
  va_list l;
  long long r;
  va_start(l, b);
  r = va_arg(l, int) + b;
  r += va_arg(l, long long);
  va_end(l);
  return r;
}
static int after_small(struct small s, ...) {
  va_list l;
  int r;
  va_start(l, s);
  r = va_arg(l, int) + s.c[1];
  va_end(l);
  return r;
}
static int after_wide(struct wide w, ...) {
  va_list l;
  int r;
  va_start(l, w);
  r = va_arg(l, int) + w.c + va_arg(l, struct pair).b;
  va_end(l);
  return r;
}
static int after_odd(int a, float f, struct odd o, ...) {
  va_list l;
  int r;
  va_start(l, o);
  r = va_arg(l, int) + o.s[1] + (int)f;
  va_end(l);
  return r;
}
static int after_many(int a, int b, int c, int d, int e, double f, ...) {
  va_list l;
  int r;
  va_start(l, f);
  r = (int)va_arg(l, double) + e;
  va_end(l);
  return r;
}
static int recursive(int n, ...) {
  va_list l;
  int r, v;
  va_start(l, n);
  v = va_arg(l, int);
  r = n ? v + recursive(n - 1, v * 2) : v;
  va_end(l);
  return r;
}
struct holder {
  int n;
  va_list list;
};
static int held(int n, ...) {
  struct holder h = {n};
  int r;
  va_start(h.list, n);
  r = from_pointer(n, &h.list) + va_arg(h.list, int);
  va_end(h.list);
  return r;
}
static int conditional(int n, ...) {
  va_list l;
  int r;
  va_start(l, n);
  r = n > 1 ? va_arg(l, int) : (int)va_arg(l, double);
  r = n > 2 && va_arg(l, int) > 5 || va_arg(l, char *)[0] == 'x' ? r + 1 : -r;
  va_end(l);
  return r;
}

int main(void) {
  char text[80], c = -1;
  unsigned char uc = 250;
  short s = -300;
  float f = 1.25f;
  int i = 42, v[3] = {1, 2, 3};
  long double ld = 3.5L;
  int (*call)(int, ...) = passes;
  struct wide w = {1.5, 'w'};
  show("ciuldD", c, i, 7u, 123456L, 2.5, ld);
  show("iLiUidiL", 1, -2LL, 3, 4ull, 5, 6.5, 7, 0x7fffffffffffffffLL);
  show("cciid", 'a', uc, s, uc * 2, f);
  show("LdLd", -1LL, -1.0, 1LL << 40, 1e100), show("iDiD", 1, ld, 2, 0.25L);
  show("spfsa", "text", &i, twice, text + 79 ? "more" : "", &v);
  show("3i6iPiWiAi", (struct small){{1, 2, 3}}, 10, (struct odd){{4, 5, 6}}, 11,
       (struct pair){7, 8}, 12, w, 13, (union any){.l = 1LL << 35}, 14);
  show("i3W3WP", 1, (struct small){{9}}, w, (struct small){{8}}, w, (struct pair){0, -1});
  show("eEi", some, large, none), show("");
  printf("%d %d\n", passes(3, 1, 2, 3, 4), call(2, 7, 8, 9));
  print("%s %d %lld %g %c %%\n", "printed", -1, 1LL << 33, 0.5, 'z');
  printf("%d ", form(text, 5, "%d-%s", 1234, "abc")), printf("%s %s\n", text, text + 40);
  printf("%d %d %g %lld\n", after_char(200, 1), after_short(1, -2, 3), after_double(0.5, 0.25),
         after_long(1, 2, 3, 4LL));
  printf("%d %d %d %d\n", after_small((struct small){{1, 2, 3}}, 5),
         after_wide(w, 1, (struct pair){2, 3}), after_odd(1, 2.5f, (struct odd){{1, 2, 3}}, 4),
         after_many(1, 2, 3, 4, 5, 6, 7.5));
  printf("%d %d %d %d %d\n", recursive(4, 3), held(3, 4, 5, 6, 7), conditional(1, 9.5, "x"),
         conditional(3, 4, 6), conditional(3, 4, 5, "y"));
  return 0;
}
