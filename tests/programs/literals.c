/* Literals of every form: characters, strings of each prefix, numbers, compound literals. */
#include <stddef.h>
int printf(const char *format, ...);
typedef __CHAR16_TYPE__ char16;
typedef __CHAR32_TYPE__ char32;

struct pair {
  int a, b;
};
struct line {
  struct pair from, to;
  const char *name;
};
static const wchar_t wide[] = L"w\u00e9\x1234\U0001F600";
static const char16 two[] = u"a\u20ac\U0001F600z";
static const char32 four[] = U"a\U0001F600";
static const char utf8[] = u8"\u00e9\u20ac\U0001F600";
static const char utf8_plain[] = "é€";
static wchar_t wide_list[4] = {L'a', L'\xff', L'x'};
static wchar_t exact[2] = L"ab";
static char joined[] =
    "one"
    " "
    "two"
    "\x41"
    "B"
    "\0"
    "hidden";
static wchar_t joined_wide[] =
    L"a"
    "b"
    L"c";
static const struct pair *static_literal = &(struct pair){.b = 2, .a = 1};
static const struct line *nested_literal =
    &(const struct line){{1, 2}, .to = {.b = 9}, .name = (char[]){"local"}};
static int (*row)[3] = &(int[3]){4, 5, 6};
static const char *strings[] = {[2] = "c",
                                [0] =
                                    "a"
                                    "b",
                                "d",
                                "e"};
static struct {
  char text[6];
  const char *pointer;
} both[] = {{"abc", "abc"}, {{'x'}, 0}, {.pointer = "p"}};

static char *writable = (char[8]){"abc"}, *sized = (char[]){"sized"},
            (*whole)[4] = &(char[4]){"xyz"};
static int sum(const int *v, int n) {
  int s = 0;
  while (n--)
    s = s * 10 + *v++;
  return s;
}
static struct pair again(struct pair *p) {
  p->a++;
  return *p;
}
static int total(struct pair p) {
  return p.a * 10 + p.b;
}

int main(void) {
  int i, x = 3, s = 0;
  struct pair *p, *kept[3];
  char *text = (char[]){'t', 'e', 'x', 't', 0};
  char *modified = (char[8]){"abc"};
  for (i = 0; i < (int)(sizeof wide / sizeof *wide); i++)
    printf("%lx ", (long)wide[i]);
  for (i = 0; i < (int)(sizeof two / sizeof *two); i++)
    printf("%x ", two[i]);
  for (i = 0; i < (int)(sizeof four / sizeof *four); i++)
    printf("%x ", (unsigned)four[i]);
  for (i = 0; i < (int)sizeof utf8; i++)
    printf("%x ", (unsigned char)utf8[i]);
  for (i = 0; i < (int)sizeof utf8_plain; i++)
    printf("%x ", (unsigned char)utf8_plain[i]);
  printf("\n%d %d %d %d\n", (int)wide_list[1], (int)wide_list[2], (int)exact[1],
         (int)(sizeof joined_wide / sizeof(wchar_t)));
  printf("%s %d %s\n", joined, (int)sizeof joined, joined + 10);
  printf("%d %d %d %d %d %d %d\n", 'a', '\n', '\0', '\'', '"', '\\', '\177');
  printf("%d %d %d %d %d %d\n", '\a', '\b', '\f', '\r', '\t', '\v');
  printf("%d %d %d %d %d\n", '\x7f', '\xff', '\377', (char)'\xe9', '\e');
  printf("%d %d %d\n", 'ab', 'abcd', '\0a');
  printf("%lx %lx %x %x\n", (long)L'\u20ac', (long)L'é', (int)u'\u20ac', (int)U'\U0001F600');
  printf("%d %d %d %d %d\n", (int)sizeof 'a', (int)sizeof L'a', (int)sizeof u'a', (int)sizeof U'a',
         (int)sizeof u8"ab");
  printf("%c%c%d %d\n", "abc"[1], 2["abc"], *"", (int)sizeof "abc" "def");
  printf("%d %d %d %u %ld %lld\n", 10, 010, 0x10, 10u, 10L, 10LL);
  printf("%d %d %llu %lld\n", 0b101, 0B11u, 0xffffffffffffffffULL, 0x7fffffffffffffff);
  printf("%d %d %d %d %d\n", (int)sizeof 2147483647, (int)sizeof 2147483648, (int)sizeof 0x80000000,
         (int)sizeof 4294967296, (int)sizeof 1lu);
  printf("%g %g %g %g %g %g\n", 1., .5, 1e3, 1E-3, 0x1p4, 0x.8p1);
  printf("%g %g %d %d %d\n", 1.5f, 2.5L, (int)sizeof 1.0f, (int)sizeof 1.0, (int)sizeof 1.0L);
  printf("%d %d\n", 0.1f == 0.1, 0.1 + 0.2 == 0.3);
  printf("%s %d %s\n", text, (int)sizeof((char[]){"sized"}), modified), modified[0] = 'A',
                                                                        printf("%s\n", modified);
  printf("%d %d %s %d\n", static_literal->a, static_literal->b, nested_literal->name,
         nested_literal->to.b);
  printf("%d %d %d\n", (*row)[2], sum((int[]){1, 2, 3}, 3), sum((int[5]){[3] = x, [1] = x * 2}, 5));
  for (i = 0; i < 3; i++) {
    p = &(struct pair){i, s};
    s += p->a + p->b;
    p->b = 100;
    kept[i] = p;
  }
  printf("%d %d\n", s, kept[0] == kept[2]);
  printf("%d %d %d\n", again(&(struct pair){4, 5}).a, total((struct pair){x, x}),
         total(*(struct pair[]){{7, 8}, {9, 9}}));
  printf("%d %g %d\n", (int){5} + (int){x}, (double){2}, *(&(int){6}));
  printf("%d %d\n", ((struct pair){1, 2}, 3), (x ? (struct pair){4, 5} : (struct pair){6}).b);
  x = ((int[]){1, 2, 3})[1] += 5, printf("%d\n", x);
  p = (struct pair[]){[1] = {.b = 3}, [0].a = 1}, printf("%d %d\n", p[1].b, p->a);
  for (i = 0; i < 3; i++)
    printf("%s ", strings[i] ? strings[i] : "-");
  for (i = 0; i < 3; i++)
    printf("%s %s ", both[i].text, both[i].pointer ? both[i].pointer : "-");
  printf("\n%d %d\n", (int)sizeof both, (int)sizeof strings);
  {
    struct line l = {.name = "l", .from = {x}, .from.b = 4, .to = *static_literal},
                m = {.from = l.to, l.from}, *q = &(struct line){m.to, m.from, "q"};
    printf("%d %d %d %d %d %d %s\n", l.from.a, l.from.b, l.to.b, m.from.a, m.to.b, q->from.b,
           q->name);
  }
  {
    const char *const local[] = {"x", "yy", [4] = "z"};
    static char *const kept_text[] = {"k", 0};
    char copy[] = "copy", rows[][3] = {"ab", "cd", {'e'}}, *q = copy;
    wchar_t wides[] = L"wide", sized[6] = L"x";
    char16 u[] = u"u", v[3] = u"vw";
    q[0] = 'C', rows[1][1] = 'D';
    printf("%s %s %s %s %d %d %d\n", copy, rows[1], local[4], kept_text[0], (int)sizeof local,
           (int)sizeof rows, local[2] == 0);
    printf("%d %d %d %d %d\n", (int)wides[3], (int)sized[5], u[0], v[2], (int)sizeof wides);
  }
  writable[6] = 'x', writable[0]++, sized[1] = 'I', (*whole)[2] = 'Z',
  printf("%s %d %s %s\n", writable, writable[5], sized, *whole);
  return 0;
}
