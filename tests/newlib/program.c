/* Uses the C library; what it prints must not depend on who compiled the library. */
#include <errno.h>
#include <limits.h>
#include <math.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int by_int(const void *a, const void *b) {
  int x = *(const int *)a, y = *(const int *)b;
  return (x > y) - (x < y);
}
static int by_char(const void *a, const void *b) {
  return *(const unsigned char *)a - *(const unsigned char *)b;
}
static int by_text(const void *a, const void *b) {
  return strcmp(*(char *const *)a, *(char *const *)b);
}
struct record {
  char name[7];
  short key;
  double value;
};
static int by_record(const void *a, const void *b) {
  const struct record *x = a, *y = b;
  if (x->key != y->key) return x->key - y->key;
  return strcmp(x->name, y->name) != 0 ? strcmp(x->name, y->name)
                                       : (x->value > y->value) - (x->value < y->value);
}

static unsigned seed = 12345;
static unsigned next(void) {
  return seed = seed * 1664525u + 1013904223u;
}

static void sorting(void) {
  static int numbers[500];
  static char bytes[300];
  const char *words[] = {"pear", "apple", "fig", "banana", "cherry", "apple", "date"};
  struct record records[40], wanted, *found;
  unsigned sum = 0, i;
  for (i = 0; i < 500; i++)
    numbers[i] = (int)(next() >> 8) % 1000 - 500;
  qsort(numbers, 500, sizeof *numbers, by_int);
  for (i = 0; i < 500; i++)
    sum = sum * 31 + (unsigned)numbers[i];
  for (i = 1; i < 500; i++)
    if (numbers[i - 1] > numbers[i]) printf("not sorted at %u\n", i);
  printf("%d %d %d %u\n", numbers[0], numbers[250], numbers[499], sum);
  for (i = 0; i < 300; i++)
    bytes[i] = (char)(next() >> 24);
  qsort(bytes, 300, 1, by_char);
  for (i = 0, sum = 0; i < 300; i++)
    sum = sum * 31 + (unsigned char)bytes[i];
  printf("%u\n", sum);
  qsort(words, 7, sizeof *words, by_text);
  for (i = 0; i < 7; i++)
    printf("%s ", words[i]);
  for (i = 0; i < 40; i++) {
    records[i].key = (short)(next() >> 20 & 15);
    sprintf(records[i].name, "r%u", next() >> 24);
    records[i].value = i / 4.0;
  }
  qsort(records, 40, sizeof *records, by_record);
  for (i = 0; i < 40; i += 3)
    printf("%d:%s:%g ", records[i].key, records[i].name, records[i].value);
  wanted = records[17];
  found = bsearch(&wanted, records, 40, sizeof *records, by_record);
  printf("\n%s %d\n", found ? found->name : "none", found != NULL && found->key == wanted.key);
}

static void numbers(void) {
  static const char *const texts[] = {"0",
                                      "1.5",
                                      "-2.25e10",
                                      "3.14159265358979323846",
                                      "1e308",
                                      "2e308",
                                      "-1e400",
                                      "4.9e-324",
                                      "2.2250738585072011e-308",
                                      "0x1.8p3",
                                      "0x.1p-4",
                                      "inf",
                                      "-INFINITY",
                                      "nan",
                                      "1e",
                                      "+.5",
                                      ".",
                                      "e5",
                                      "  12abc",
                                      "123456789012345678901234567890",
                                      "0.1",
                                      "0.2",
                                      "0.30000000000000004",
                                      "9007199254740993",
                                      "9007199254740992.5",
                                      "179769313486231580793e289",
                                      "1e23",
                                      "8.5e-5",
                                      ""};
  static const char *const integers[] = {"0",
                                         "42",
                                         "-17",
                                         "0x1f",
                                         "077",
                                         "2147483647",
                                         "2147483648",
                                         "-2147483649",
                                         "zz",
                                         "  +9 ",
                                         "9223372036854775808",
                                         "18446744073709551616",
                                         "0b1",
                                         "1010"};
  char *end;
  unsigned i;
  for (i = 0; i < sizeof texts / sizeof *texts; i++) {
    double d;
    errno = 0;
    d = strtod(texts[i], &end);
    printf("%.17g %d %d\n", d, (int)(end - texts[i]), errno == ERANGE && (d > 1 || d < -1));
  }
  for (i = 0; i < sizeof integers / sizeof *integers; i++) {
    long l = strtol(integers[i], &end, 0);
    printf("%ld %d ", l, (int)(end - integers[i]));
    printf("%lu %lld %llu ", strtoul(integers[i], NULL, 10), strtoll(integers[i], NULL, 16),
           strtoull(integers[i], &end, 36));
    printf("%ld %d %d\n", strtol(integers[i], NULL, 2), i < 5 ? atoi(integers[i]) : 0,
           (int)(end - integers[i]));
  }
  printf("%.9g %.9g\n", strtof("0.1", NULL), (double)strtof("3.4028236e38", NULL)),
      printf("%g\n", atof("6.02e23"));
}

static int form(char *to, size_t size, const char *format, ...) {
  va_list list;
  int n;
  va_start(list, format);
  n = vsnprintf(to, size, format, list);
  va_end(list);
  return n;
}

static void formats(void) {
  static const double values[] = {
      0,    -0.0,     1,       -1,  0.5, 123456.789, 1e-5,   9.9999e-5,
      1e15, 1e17,     1.0 / 3, 2.5, 3.5, 1e100,      1e-300, 1.7976931348623157e308,
      0.1,  999998.5, 99999.95};
  static const char *const floats[] = {"%f",     "%e",       "%g",       "%.0f",  "%.3e",  "%#g",
                                       "%+.10g", "% 012.4f", "%-14.2E|", "%.15g", "%.17g", "%a",
                                       "%.3a",   "%#.0f",    "%020.3f",  "%G"};
  static const int ints[] = {0, 1, -1, 42, 255, INT_MAX, INT_MIN};
  static const char *const integers[] = {
      "%d",  "%5d|", "%-5d|", "%05d", "%+d", "% d",  "%.4d", "%8.3d|", "%u",     "%o",
      "%#o", "%x",   "%#X",   "%08x", "%hd", "%hhu", "%i",   "%.0d|",  "%-#10x|"};
  char text[400];
  unsigned i, k;
  int n;
  for (i = 0; i < sizeof values / sizeof *values; i++)
    for (k = 0; k < sizeof floats / sizeof *floats; k++) {
      n = snprintf(text, sizeof text, floats[k], values[i]);
      printf("%s(%d) ", text, n);
    }
  printf("\n");
  for (i = 0; i < sizeof ints / sizeof *ints; i++)
    for (k = 0; k < sizeof integers / sizeof *integers; k++) {
      n = sprintf(text, integers[k], ints[i]);
      printf("%s(%d) ", text, n);
    }
  printf("\n%s|%10s|%-10s|%.2s|%*s|%-*s|%.*s\n", "abc", "abc", "abc", "abc", 6, "abc", 6, "abc", 1,
         "abc");
  printf("%c%c%% %5c|%-5c| %s\n", 'x', 'y', 'z', 'w', "end");
  printf("%lld %llu %llx %#llo %+lld\n", LLONG_MIN, ULLONG_MAX, 0x123456789abcdefULL, 01234567ULL,
         5LL);
  printf("%ld %lu %zu %td %jd\n", LONG_MIN, ULONG_MAX, sizeof text, &text[9] - text, (intmax_t)-7);
  printf("%f %g %e %F\n", HUGE_VAL, -HUGE_VAL, HUGE_VAL, -HUGE_VAL),
      printf("%Lg %Lf\n", 2.5L, -1e10L);
  n = form(text, 10, "%s %d", "truncated", 12345), printf("%s %d\n", text, n),
  n = form(text, 0, "%d", 77), printf("%d\n", n);
  n = printf("%s%n%d", "count", &k, 9), printf(" %d %u\n", n, k);
  n = form(text, sizeof text, "%5.1f|%-8s|%08.3f|%x", 3.14159, "left", -2.5, 48879),
  printf("%s %d\n", text, n);
}

static void strings(void) {
  char a[64] = "first", b[64], *p, *state;
  char text[] = "one,two;;three four";
  unsigned i;
  printf("%u %u %d %d\n", (unsigned)strlen(a), (unsigned)strlen(""), strcmp("a", "b") < 0,
         strcmp("b", "a") > 0);
  printf("%d %d %d\n", strncmp("abcd", "abce", 3), strcmp("same", "same"),
         memcmp("ab\0c", "ab\0d", 4) < 0);
  strcpy(b, a), strcat(b, "-second"), printf("%s %s\n", b, strcpy(a, "copied"));
  strncpy(b, "xy", 10), printf("%s %d\n", b, b[9]), strncat(b, "abcdef", 3), printf("%s\n", b);
  printf("%s %s %d\n", strchr("hello", 'l'), strrchr("hello", 'l'), strchr("hello", 'z') == NULL);
  printf("%s %d %s\n", strstr("needle in haystack", "in h"), strstr("abc", "d") == NULL,
         strpbrk("query?x", "x?"));
  printf("%u %u\n", (unsigned)strspn("aabbc", "ab"), (unsigned)strcspn("hello, x", ", "));
  for (p = strtok_r(text, ",;", &state); p; p = strtok_r(NULL, ",; ", &state))
    printf("[%s]", p);
  memset(b, '#', 20), b[20] = 0, memcpy(b + 3, "copy", 4), printf("\n%s\n", b),
                      memmove(b + 5, b + 3, 6), printf("%s\n", b);
  memmove(b + 1, b + 4, 6), printf("%s %d\n", b, (int)((char *)memchr(b, 'c', 20) - b));
  for (i = 0; i < 40; i++)
    b[i] = (char)('a' + i % 26);
  for (i = 0; i < 12; i++)
    memcpy(a + (i & 3), b + (i * 5 & 7), 3 * i), a[(i & 3) + 3 * i] = 0, printf("%s ", a + (i & 3));
  for (i = 1; i < 9; i++)
    printf("%d", memcmp(b + i, b + i, 20) + strncmp(b + i, b + i, 11));
  printf("\n");
}

int main(void) {
  sorting();
  numbers();
  formats();
  strings();
  return 0;
}
