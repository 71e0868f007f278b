/* Statements: switch of every form, jumps into and out of blocks, loops, labels in expressions. */
int printf(const char *format, ...);

static char trail[200], *mark = trail;
static int t(int n) {
  *mark++ = 'a' + n;
  *mark = 0;
  return n;
}
static void show(const char *what) {
  printf("%s %s\n", what, trail);
  mark = trail, *mark = 0;
}

enum color { red, green = 5, blue, white = -3 };
enum __attribute__((packed)) small { one = 1, two };

static int chars(char c) {
  switch (c) {
    case 'a' ... 'f':
      return 1;
    case 'g':
    case 'z':
      return 2;
    case '\xff':
      return 3;
    case 0:
      return 4;
    default:
      return 5;
  }
}
static int signed_chars(signed char c) {
  switch (c) {
    case -1:
      return 1;
    case -128:
      return 2;
    case 255:
      return 3;
    case 0 ... 9:
      return 4;
  }
  return 0;
}
static int longs(long long v) {
  switch (v) {
    case 0:
      return 1;
    case 1LL << 40:
      return 2;
    case -(1LL << 40):
      return 3;
    case 0x7fffffffffffffffLL:
      return 4;
    case 0x100000000LL ... 0x1000000ffLL:
      return 5;
    case 5:
      return 6;
    case -1:
      return 7;
    default:
      return 8;
  }
}
static int unsigned_longs(unsigned long long v) {
  switch (v) {
    case ~0ULL:
      return 1;
    case 0x8000000000000000ULL ... 0x8000000000000010ULL:
      return 2;
    case 1:
      return 3;
  }
  return 4;
}
static int unsigneds(unsigned v) {
  switch (v) {
    case 0xffffffff:
      return 1;
    case 0x80000000 ... 0xfffffffe:
      return 2;
    case 0 ... 100:
      return 3;
    case 101 ... 0x7fffffff:
      return 4;
  }
  return 5;
}
static int large_range(int v) {
  switch (v) {
    case -2147483647 - 1 ... - 1000:
      return 1;
    case -999 ... - 1:
      return 2;
    case 0:
      return 3;
    case 1 ... 2147483647:
      return 4;
  }
  return 5;
}
static int colors(enum color c) {
  switch (c) {
    case red:
      return 1;
    case green:
      return 2;
    case white:
      return 3;
    case blue:
      break;
  }
  return 4;
}
static int small_enum(enum small s) {
  switch (s)
  case one:
    return 10;
  return 20;
}
static int bools(_Bool b) {
  switch (b) {
    case 0:
      return 1;
    case 1:
      return 2;
  }
  return 3;
}
static int only_default(int v) {
  switch (t(v)) {
    default:
      t(1);
  }
  switch (t(v)) {}
  switch (v)
    ;
  return v;
}
static int before_cases(int v) {
  switch (v) {
    int x;
    t(9);
    case 1:
      x = 5;
      return x + v;
    default:
      x = v;
      return x;
  }
}
static int default_first(int v) {
  int r = 0;
  switch (v) {
    default:
      r += 1;
    case 1:
      r += 10;
      break;
    case 2:
      r += 100;
    case 3:
      r += 1000;
  }
  return r;
}
static int nested(int a, int b) {
  int r = 0;
  switch (a) {
    case 1:
      switch (b) {
        case 1:
          r = 11;
          break;
        case 2:
          r = 12;
        default:
          r += 100;
      }
      break;
    case 2: {
      int k;
      for (k = 0; k < b; k++)
        switch (k) {
          case 2:
            continue;
          case 4:
            goto out;
          default:
            r = r * 10 + k;
        }
    }
      r += 1000;
      break;
    case 3:
      if (b) {
        case 4:
          r = 34;
      } else {
        case 5:
          r = 35;
      }
      break;
    case 6:
      while (b-- > 0) {
        r++;
        case 7:
          r += 10;
          if (b == 3) break;
      }
  }
out:
  return r;
}
static void duff(char *to, const char *from, int count) {
  int n = (count + 3) / 4;
  switch (count % 4) {
    case 0:
      do {
        *to++ = *from++;
        case 3:
          *to++ = *from++;
        case 2:
          *to++ = *from++;
        case 1:
          *to++ = *from++;
      } while (--n > 0);
  }
}
static int coroutine(void) {
  static int state, i;
  switch (state) {
    case 0:
      for (i = 0; i < 3; i++) {
        state = 1;
        return i * 10;
        case 1:;
      }
      state = 2;
    case 2:
      return -1;
  }
  return -2;
}

static int jumps(int n) {
  int i = 0, s = 0;
  if (n == 1) goto inside;
  if (n == 2) goto in_loop;
  if (n == 3) goto in_else;
again : {
  int x = 5;
  s += x;
inside:
  x = 7;
  s += x;
}
  for (i = 0; i < 3; i++) {
    s += 100;
  in_loop:
    s += 1;
    if (s > 1000) goto done;
  }
  if (s < 0)
    s = 1;
  else {
    s++;
  in_else:
    s += 3;
  }
  while (1) {
    do {
      if (s & 1) goto both;
      s++;
    } while (0);
  }
both:
  if (n-- > 3) goto again;
done:
  return s;
}
static int out_of_many(int n) {
  int i, j, k;
  for (i = 0; i < 5; i++)
    for (j = 0; j < 5; j++) {
      k = 0;
      do {
        if (i * j + k == n) goto found;
        if (k == 3) break;
        if (k == 1) {
          k++;
          continue;
        }
      } while (++k < 5);
    }
  return -1;
found:
  return i * 100 + j * 10 + k;
}
static int loops(void) {
  int i, j, s = 0, n = 0;
  for (;;) {
    if (n++ > 3) break;
  }
  for (i = 0, j = 10; i < j; i++, j--)
    s += i * j;
  while (n--)
    if (n == 2)
      continue;
    else
      s++;
  do
    s--;
  while (0);
  do {
    if (s > 1000) break;
    s *= 2;
    if (s % 3 == 0) continue;
    s++;
  } while (s < 500);
  for (int k = 0, *p = &k; *p < 3; ++*p)
    for (int k = 5; k; k--)
      s += k;
  for (; n < 3;)
    n++;
  for (i = 0; i < 4; ({
         i++;
         t(i);
       }))
    ;
  while (i-- > 0 && t(i) != 1)
    ;
  for (struct { int a, b; } z = {1, 2}; z.a < 4; z.a++)
    s += z.b;
  return s * 10 + i;
}
static int conditions(int a, double d, char *p, float f, long long l, _Bool b) {
  int r = 0;
  if (a) r |= 1;
  if (d) r |= 2;
  if (p) r |= 4;
  if (!f) r |= 8;
  if (l)
    r |= 16;
  else
    r |= 32;
  if (b && !a || d > 1) r |= 64;
  if (!(a && d)) r |= 128;
  if (a, p) r |= 256;
  if (!p == !l) r |= 512;
  if (d != d) r |= 1024;
  if (!(d < 2)) r |= 2048;
  if (!(d >= 2)) r |= 4096;
  while (f) {
    f = 0;
    r |= 8192;
  }
  do {
    r += 16384;
  } while (l && (l = 0, r < 40000));
  for (; p; p = 0)
    r += 3;
  return (a ? r : -r) + (d ? 1 : 2) + (p ? 1 : 2) + !l + !!d;
}
static int local_labels(int n) {
  int s = 0;
#define COUNT(limit)            \
  ({                            \
    __label__ top, end;         \
    int k = 0;                  \
  top:                          \
    if (k >= (limit)) goto end; \
    k++;                        \
    s += k;                     \
    goto top;                   \
  end:                          \
    k;                          \
  })
  s += COUNT(n) * 100;
  s += COUNT(2) * 1000;
  {
    __label__ x;
    goto x;
  x:
    s++;
  }
  return s;
}
static int in_expressions(int n) {
  int r = ({
    int s = 0;
    switch (n) {
      case 1:
        s = 10;
        break;
      default:
        for (int i = 0; i < n; i++) {
          if (i == 3) break;
          s += i;
        }
    }
    s;
  });
  r += ({
    while (n > 0) {
      if (n == 2) goto leave;
      n--;
    }
    5;
  });
  return r;
leave:
  return -r;
}
static int dead(int n) {
  if (0) {
  zero:
    return 100 + n;
  }
  if (1)
    n++;
  else
    n = 0;
  while (0) {
  one:
    n += 5;
  }
  if (n == 3) goto zero;
  if (n == 4) {
    n = 10;
    goto one;
  }
  return n;
  n = 7;
}
static int typed_labels(int n) {
  typedef int a;
a:
  if (n > 0) {
    a b = n;
    n -= b;
    goto a;
  }
  {
    struct a {
      int a;
    } a = {n};
    return a.a;
  }
}
static void empty(void) {
  ;
  ;
  {} { ; }
  if (0)
    ;
  else
    ;
  for (; 0;)
    ;
  while (0)
    ;
  do
    ;
  while (0);
x:;
  goto y;
y:;
}

int main(void) {
  static const long long v[] = {
      0, 1, 5, -1, 1LL << 40, -(1LL << 40), 0x7fffffffffffffffLL, 0x1000000a0LL, 0x100000000LL};
  char copy[12] = "";
  int i, j;
  for (i = 0; i < 9; i++)
    printf("%d%d ", longs(v[i]), unsigned_longs(v[i]));
  printf("%d%d ", unsigned_longs(~0ULL), unsigned_longs(0x8000000000000008ULL));
  printf("%d%d%d%d%d%d\n", chars('a'), chars('e'), chars('z'), chars(255), chars(0), chars('h'));
  printf("%d%d%d%d%d\n", signed_chars(-1), signed_chars(-128), signed_chars(255), signed_chars(7),
         signed_chars(99));
  printf("%d%d%d%d%d ", unsigneds(-1), unsigneds(0x90000000), unsigneds(100), unsigneds(101),
         unsigneds(0x7fffffff));
  printf("%d%d%d%d\n", large_range(-5000), large_range(-5), large_range(0), large_range(99));
  printf("%d%d%d%d %d %d %d%d\n", colors(red), colors(green), colors(blue), colors(white),
         small_enum(1), small_enum(2), bools(0), bools(9));
  printf("%d ", only_default(3)), show("default"),
      printf("%d %d\n", before_cases(1), before_cases(8));
  for (i = 0; i < 5; i++)
    printf("%d ", default_first(i));
  for (i = 0; i < 8; i++)
    for (j = 0; j < 6; j += 2)
      printf("%d ", nested(i, j));
  duff(copy, "duff's one", 11), printf("\n%s\n", copy);
  for (i = 0; i < 5; i++)
    printf("%d ", coroutine());
  for (i = 0; i < 7; i++)
    printf("%d ", jumps(i));
  printf("%d %d %d %d\n", out_of_many(0), out_of_many(13), out_of_many(16), out_of_many(99));
  printf("%d ", loops()), show("loops");
  printf("%d %d\n", conditions(1, 2.5, copy, 0, 0, 1), conditions(0, 0, 0, 1.5f, 1LL << 40, 0));
  printf("%d %d %d %d\n", local_labels(3), in_expressions(1), in_expressions(5), in_expressions(0));
  printf("%d %d %d %d\n", dead(2), dead(3), dead(5), typed_labels(4)), empty();
  return 0;
}
