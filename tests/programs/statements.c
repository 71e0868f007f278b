/* Every statement form, and jumps into and out of each. */
#include <stdarg.h>
int printf(const char *format, ...);

static int loops(int n) {
  int sum = 0, i, j;
  for (i = 0; i < n; i++) sum += i;
  for (i = 0; i < n; i++) {
    if (i == 2) continue;
    for (j = 0;; j++) {
      if (j > i) break;
      sum += 10 * j;
    }
    if (i == 5) break;
  }
  i = n;
  while (i-- > 0) {
    if (i & 1) continue;
    sum += 100;
  }
  do {
    sum++;
    if (sum % 7 == 0) continue;
    sum += 2;
  } while (sum < 1000);
  do
    sum--;
  while (0);
  for (;;) {
    if (sum++ > 1010) break;
  }
  return sum;
}

static const char *kind(int c) {
  switch (c) {
    case 0:
      return "zero";
    case 1:
    case 2:
      return "small";
    case -1:
      return "minus";
    case 'a' ... 'f':
      return "letter";
    case 1000 ... 100000:
      return "wide range";
    case 0x7fffffff:
      return "most";
    default:
      return "other";
  }
}

static int fall(int n) {
  int r = 0;
  switch (n) {
    case 3:
      r += 3;
    case 2:
      r += 2;
    case 1:
      r += 1;
      break;
    default:
      r = -1;
    case 7:
      r += 70;
  }
  return r;
}

/* A switch whose cases stand inside a loop. */
static int copy_by_device(char *to, const char *from, int count) {
  int n = (count + 3) / 4, rounds = 0;
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
          rounds++;
      } while (--n > 0);
  }
  return rounds;
}

static int only_default(int n) {
  switch (n) {
    default:
      return n * 2;
  }
}

static int no_cases(int n) {
  switch (n++)
    ;
  switch (n) {
  }
  return n;
}

static int jumps(int n) {
  int count = 0;
again:
  count++;
  if (n-- > 0) goto again;
  {
    int inner = count;
    if (inner > 100) {
      goto out;
    }
    count += inner;
  }
  goto into;
  while (count < 0) {
  into:
    count += 1000;
    break;
  }
out:
  return count;
}

static unsigned long long wide_switch(unsigned long long v) {
  switch (v) {
    case 0x100000000ULL:
      return 1;
    case 0xffffffffffffffffULL:
      return 2;
    case 5:
      return 3;
  }
  return 4;
}

static int shadow(int a) {
  int b = a;
  {
    int a = 10, c = b;
    {
      int b = a + c;
      a += b;
    }
    b += a;
  }
  return a + b;
}

static int count_calls(void) {
  static int calls;
  static int step = 3;
  calls += step++;
  return calls;
}

static void nothing(void) {
  return;
}

int main(void) {
  int i;
  char copy[12] = "...........";
  for (i = 0; i < 12; i += 3) printf("loops(%d) = %d\n", i, loops(i));
  {
    static const int tests[] = {0, 1, 2, -1, 'a', 'c', 'f', 'g', 1000, 50000, 100001, 0x7fffffff, -7};
    for (i = 0; i < (int)(sizeof tests / sizeof *tests); i++)
      printf("kind(%d) = %s\n", tests[i], kind(tests[i]));
  }
  for (i = 0; i < 5; i++) printf("fall(%d) = %d\n", i, fall(i));
  printf("fall(7) = %d\n", fall(7));
  printf("device %d", copy_by_device(copy, "Hello world", 11));
  printf(" %s\n", copy);
  printf("%d %d %d\n", only_default(4), no_cases(3), jumps(3));
  printf("%d\n", jumps(200));
  printf("%llu %llu %llu %llu\n", wide_switch(0x100000000ULL), wide_switch(~0ULL), wide_switch(5),
         wide_switch(0));
  printf("%d\n", shadow(1));
  for (i = 0; i < 3; i++) printf("%d ", count_calls());
  printf("\n");
  nothing();
  if (i == 3)
    printf("then\n");
  else
    printf("else\n");
  if (i != 3)
    printf("then\n");
  else if (i == 4)
    printf("middle\n");
  else
    printf("last\n");
  return 0;
}
