/* What the preprocessor makes of a program: lists, pasted names, texts, lines, odd spellings. */
int printf(const char *format, ...);

/* One list, many uses. */
#define COLOURS(X) X(red, 0xff0000) X(green, 0x00ff00) X(blue, 0x0000ff)
#define AS_ENUM(name, value) colour_##name,
#define AS_VALUE(name, value) [colour_##name] = value,
#define AS_NAME(name, value) #name " = " #value,
#define AS_CASE(name, value) \
  case value:                \
    return colour_##name;
enum colour { COLOURS(AS_ENUM) num_colours };
static const long values[] = {COLOURS(AS_VALUE)};
static const char *const names[] = {COLOURS(AS_NAME)};
static int index_of(long value) {
  switch (value) { COLOURS(AS_CASE) }
  return -1;
}

/* Counting arguments, and choosing by their number. */
#define COUNT(...) COUNT_(__VA_ARGS__, 5, 4, 3, 2, 1, 0)
#define COUNT_(a, b, c, d, e, n, ...) n
#define PASTE(a, b) PASTE_(a, b)
#define PASTE_(a, b) a##b
#define SUM(...) PASTE(SUM_, COUNT(__VA_ARGS__))(__VA_ARGS__)
#define SUM_1(a) (a)
#define SUM_2(a, b) ((a) + (b))
#define SUM_3(a, ...) ((a) + SUM_2(__VA_ARGS__))
#define LOG(format, ...) printf(format "\n", ##__VA_ARGS__)
#define NAMED(format, rest...) printf("<" format ">\n", ##rest)

/* Texts. */
#define STR(x) #x
#define XSTR(x) STR(x)
#define VERSION 4.13
#define PATH /usr/include

/* Statement-like macros and hygiene. */
#define SWAP(type, a, b) \
  do {                   \
    type swap_ = (a);    \
    (a) = (b);           \
    (b) = swap_;         \
  } while (0)
#define MAX(a, b)           \
  ({                        \
    __typeof__(a) a_ = (a); \
    __typeof__(b) b_ = (b); \
    a_ > b_ ? a_ : b_;      \
  })
#define UNIQUE PASTE(unique_, __LINE__)

/* A name that stands in its own expansion is itself. */
static int guarded = 3;
#define guarded (guarded + 1)
static int twice(int x) {
  return 2 * x;
}
#define twice(x) (twice(x) + 1)

/* Packing by the operator. */
#define PACKED_STRUCT(name, fields) \
  _Pragma("pack(push, 1)") struct name fields; _Pragma("pack(pop)")
PACKED_STRUCT(packed, {
  char c;
  int i;
})
struct loose {
  char c;
  int i;
};

static int été = 7, \u00e0_b = 8;

#if VERSION_MAJOR + 0 == 0 && defined(VERSION) && \
    !defined VERSION_MAJOR && (-1 < 0u) == 0 && 'A' == 65 && 0x7fffffffffffffff > 0
#define CONDITION "taken"
#else
#error the condition was not taken
#endif

int main(void)
<%
  int digraphs<:3:> = <% 1, 2, 3 %>;
  int UNIQUE = 10; int x = 1, y = 2;
  int i;
  for (i = 0; i < num_colours; i++)
    printf("%s %lx %d\n", names[i], values[i], index_of(values[i]));
  printf("%d %d %d\n", COUNT(a), COUNT(a, b, (c, d)), COUNT(1, 2, 3, 4, 5));
  printf("%d %d %d\n", SUM(1), SUM(1, 2), SUM(1, 2, 3));
  LOG("no arguments");
  LOG("%d %s", 1, "argument");
  NAMED("alone");
  NAMED("%d-%d", 1, 2);
  printf("%s|%s|%s|%s\n", STR(VERSION), XSTR(VERSION), XSTR(PATH), STR( a  "b\n"	'\\' ));
  printf("%s|%s\n", XSTR(PASTE(VER, SION)), STR(PASTE(VER, SION)));
  printf("%s %s\n", XSTR(guarded), XSTR(twice(twice(1))));
  SWAP(int, x, y);
  printf("%d %d %d\n", x, y, MAX(x, MAX(y, 5)));
  printf("%d %d %d\n", guarded, twice(twice(1)), twice (2));
  printf("%d %d\n", (int)sizeof(struct packed), (int)sizeof(struct loose));
  printf("%d %d %d\n", été, \u00e9t\u00e9, à_b);
  printf("%s %d\n", CONDITION, digraphs<:2:>);
  printf("%d\n", __LINE__);
  pri\
ntf("spl\
iced %d\n", 1\
2\
3);
  printf("%s\n", "a" /* between */ "b" // behind
         "c");
#line 1000 "elsewhere.c"
  printf("%s %d\n", __FILE__, __LINE__);
  return x+++y == 3 ? 0 : 1;
%>
