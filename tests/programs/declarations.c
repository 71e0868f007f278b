#include <stddef.h>
int printf(const char *, ...);

/* Composite types: each declaration knows a part. */
extern int table[];
extern int table[4];
int (*chooser())(int, int);
int (*chooser(int))(int, int);
int combine(int (*)[], int (*)(int [3]));
int combine(int (*)[4], int (*)());
int table[] = {1, 2, 3, 4};
static int sum(int a, int b) { return a + b; }
static int difference(int a, int b) { return a - b; }
int (*chooser(int which))(int, int) { return which ? sum : difference; }
static int first_of_three(int *p) { return p[0] + p[2]; }
int combine(int (*all)[4], int (*f)(int *)) { return f(*all) + (int)(sizeof *all / sizeof **all); }

static void composites(void) {
  printf("composites %d %d %d %d\n", (int)sizeof table, chooser(1)(5, 3), chooser(0)(5, 3),
         combine(&table, first_of_three));
}

/* Tentative definitions, and those that turn out to be definitions. */
int tentative;
int tentative;
extern int tentative;
static int hidden;
static int later_sized[3];
struct late;
extern struct late unseen;
struct late { int x, y; } unseen = {3, 4};
static int hidden = 7;
int tentative;

static int counter(void) {
  static int calls = 10, *last = &calls;
  return ++*last;
}

static int block_externs(void) {
  int sum = 0;
  {
    extern int tentative;
    extern int outside(int), later_variable;
    tentative = 5;
    sum = outside(tentative) + later_variable;
  }
  {
    int outside = 100, tentative = 1;
    sum += outside + tentative;
  }
  return sum;
}
int later_variable = 1000;
int outside(int x) { return x * 2; }

static void storage(void) {
  counter();
  printf("storage %d %d %d %d %d %d\n", counter(), hidden, later_sized[2], unseen.y, block_externs(),
         tentative);
}

/* Names that hide one another. */
typedef int number;
struct number { char number; };
enum { constant = 3 };
static int hide(number number) {
  int result = number;
  {
    struct number number = {'n'};
    result += number.number + (int)sizeof(struct number);
  }
  {
    typedef char number;
    number small = 300 & 255;
    enum { constant = sizeof(number) + 5 };
    result += constant * small;
    struct number { int wide[constant]; };
    result += (int)sizeof(struct number);
  }
  for (int constant = 0; constant < 2; constant++) {
    int constant = 50;
    result += constant;
  }
  return result + constant;
}
static int parameter_tags(struct number *p, int size[sizeof(struct number) + constant]) {
  return p->number + (int)sizeof(size);
}

/* Declarators. */
typedef int row[3];
typedef int function(int);
static int twice(int x) { return 2 * x; }
static int thrice(int x) { return 3 * x; }
static function *(*pick(function *a, function *b))[2] {
  static function *both[2];
  both[0] = a;
  both[1] = b;
  return &both;
}
static int last_of(const row *rows, int n) { return rows[n - 1][2]; }
static int (*(*functions[2])(function *, function *))[1];
static int old_style(c, f, s, p)
  char c;
  float f;
  short s, *p;
{
  return c + (int)(f * 10) + s + *p;
}
static int narrow(signed char, short, int, unsigned char, double, int);
static int narrow(a, b, c, d, e, f)
  signed char a, c;
  short b;
  unsigned char d;
  float e;
{
  return a * 1000000 + b + c * 10000 + d + (int)(e * 4) + f;
}
static void declarators(void) {
  row matrix[2] = {{1, 2, 3}, {4, 5, 6}}, *pointer = matrix;
  const row *constant_rows = (const row *)matrix;
  int (*(*picked)[2])(int) = pick(twice, thrice);
  char *const volatile *names[2][3] = {{0}};
  short s = 7;
  printf("declarators %d %d %d %d %d %d %d %d\n", hide(1), parameter_tags(&(struct number){'p'}, 0),
         pointer[1][1], last_of(constant_rows, 2), (*picked)[0](4) + (*picked)[1](4),
         (int)sizeof names, (int)sizeof functions, old_style('a', 1.25, s, &s));
  printf("narrow %d\n", narrow(300, 70000, 258, -1, 1.25, 1));
}

/* Layout: packed and aligned parts, anonymous members, bit-fields between them. */
struct mixed { char a; double b; char c; long long d; short e; };
struct __attribute__((packed)) tight { char a; double b; char c; long long d; short e; };
struct partly { char a; int b __attribute__((packed)); short c; int d; };
struct lifted { char a; char b __attribute__((aligned(16))); char c; };
struct pair { char a; int b; } __attribute__((packed, aligned(2)));
struct holder { char a; struct pair p; char b; struct pair q[2]; };
typedef int wide_int __attribute__((aligned(16)));
struct with_wide { char a; wide_int b; char c; };
union both { char bytes[5]; short s; };
struct with_union { char a; union both u; char b; };
struct nameless {
  int kind;
  union {
    struct { short x, y; };
    struct { char c; long long big; } named;
    float f;
  };
  char tail;
};
struct open { char n; short rest[]; };
struct bits { char a; int b : 5; int c : 20; char d; int : 0; char e; unsigned short f : 9, g : 9; };
struct __attribute__((packed)) tight_bits { char a; int b : 5; int c : 20; char d; long long e : 37; };

#define PART(s, m) (int)offsetof(struct s, m)
#define WHOLE(s) (int)sizeof(struct s), (int)__alignof__(struct s)
static void layouts(void) {
  printf("mixed %d/%d %d %d %d\n", WHOLE(mixed), PART(mixed, b), PART(mixed, d), PART(mixed, e));
  printf("tight %d/%d %d %d %d\n", WHOLE(tight), PART(tight, b), PART(tight, d), PART(tight, e));
  printf("partly %d/%d %d %d %d\n", WHOLE(partly), PART(partly, b), PART(partly, c), PART(partly, d));
  printf("lifted %d/%d %d %d\n", WHOLE(lifted), PART(lifted, b), PART(lifted, c));
  printf("pair %d/%d %d\n", WHOLE(pair), PART(pair, b));
  printf("holder %d/%d %d %d %d\n", WHOLE(holder), PART(holder, p), PART(holder, b), PART(holder, q[1].b));
  printf("wide %d/%d %d %d\n", WHOLE(with_wide), PART(with_wide, b), PART(with_wide, c));
  printf("union %d/%d %d %d\n", WHOLE(with_union), PART(with_union, u), PART(with_union, b));
  printf("nameless %d/%d %d %d %d\n", WHOLE(nameless), PART(nameless, y), PART(nameless, named.big),
         PART(nameless, tail));
  printf("open %d/%d %d\n", WHOLE(open), PART(open, rest));
  printf("bits %d/%d %d %d\n", WHOLE(bits), PART(bits, d), PART(bits, e));
  printf("tight bits %d/%d %d\n", WHOLE(tight_bits), PART(tight_bits, d));
}

static void values_in_layouts(void) {
  struct tight t = {1, 2.5, 3, 4000000000000LL, 5};
  struct partly p = {.d = 4, .b = 2, 3};
  struct holder h = {1, {2, 3}, 4, {{5, 6}, {7, 8}}}, k = h;
  struct nameless n = {1, {{2, 3}}, 'z'}, m = {.x = 4, .kind = 5, .tail = 'y'};
  struct bits b = {1, -3, -70000, 4, 5, 300, 511};
  struct tight_bits tb = {1, -3, -70000, 4, -60000000000LL};
  n.named.big = 1LL << 40;
  t.d *= 2;
  k.q[1].b++;
  b.c -= 1000;
  tb.e /= 3;
  tb.c += tb.b;
  printf("values %d %d %lld %d, %d %d %d, %d %d %d %d\n", t.a, (int)(t.b * 2), t.d, t.e, p.b, p.c,
         p.d, h.p.b, h.q[1].b, k.q[1].b, k.q[0].a);
  printf("values %d %lld %c, %d %d %c\n", n.kind, n.named.big, n.tail, m.kind, m.x + m.y, m.tail);
  printf("values %d %d %d %d %d %d, %d %d %lld\n", b.b, b.c, b.d, b.e, b.f, b.g, tb.b, tb.c, (long long)tb.e);
}

/* Objects that ask for an alignment of their own. */
static char at16 __attribute__((aligned(16))), plain1, at32[3] __attribute__((aligned(32))), plain2;
static struct open filled = {2, {30, 40, 50}};
static void alignments(void) {
  char local1 = 1;
  _Alignas(16) char local2 = 2;
  wide_int local3 = 3;
  static _Alignas(8) char local4[2];
  struct with_wide local5 = {1, 2, 3};
  printf("aligned %d %d %d %d %d %d %d\n", (int)((unsigned)&at16 % 16), (int)((unsigned)at32 % 32),
         (int)((unsigned)&local2 % 16), (int)((unsigned)&local3 % 16), (int)((unsigned)local4 % 8),
         (int)((unsigned)&local5 % 16), local1 + local2 + local3 + plain1 + plain2 + local4[0]);
  printf("open %d %d %d %d\n", filled.n, filled.rest[0], filled.rest[2], (int)sizeof filled);
}

int main(void) {
  composites();
  storage();
  declarators();
  layouts();
  values_in_layouts();
  alignments();
  return 0;
}
