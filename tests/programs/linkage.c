/* Functions and objects: storage classes, tentative definitions, K&R definitions and calls, tables
   of function pointers, recursion, inline functions, declarations in blocks. */
#include <stdarg.h>
int printf(const char *format, ...);
double sqrt(double);

int tentative;
int tentative;
extern int tentative;
static int hidden;
static int hidden = 4;
static int later[];
extern int defined_below[], *const constant_pointer;
int incomplete[];
int counter = 1;
const int fixed = 10;
static const char *const names[] = {"zero", "one", "two"};
volatile int device;
extern int outer_value;

/* Old definitions: the arguments come promoted. */
old_sum(a, b, c, d, e, f) char a;
short b;
unsigned char c;
float d;
long e;
{ return a + b + c + (int)(d * 2) + e + f; }
static double old_float(x, y)
float x;
double y;
{
  x = x / 3;
  return x * y;
}
old_array(v, n, call) int v[], n;
int (*call)();
{
  int i, s = 0;
  for (i = 0; i < n; i++)
    s += call(v[i], i);
  return s;
}
static struct pair { int a, b; } old_struct(p, k) struct pair p;
char k;
{
  p.a += k;
  return p;
}
old_nothing() {
  return 5;
}
old_order(a, b, c) {
  return a * 100 + b * 10 + c;
}
static int plain(int a, int b) {
  return a * b;
}
static unsigned char narrow_result(int x) {
  return x;
}
static _Bool bool_result(int x) {
  return x;
}
static short short_result(x)
long x;
{ return x; }
static signed char signed_parameter(signed char c) {
  return c;
}
static int bool_parameter(_Bool b) {
  return b;
}
static float float_parameter(float f) {
  return f / 3;
}
static unsigned short unsigned_short(unsigned short s) {
  s++;
  return s;
}

static int add(int a, int b) {
  return a + b;
}
static int sub(int a, int b) {
  return a - b;
}
static int mul(int a, int b) {
  return a * b;
}
typedef int binary(int, int);
typedef binary *binary_pointer;
static binary declared_by_typedef;
static binary *const operations[] = {add, sub, &mul, declared_by_typedef};
static struct {
  const char *name;
  binary_pointer call;
} commands[] = {{"add", add}, {"sub", sub}, {"mul", *mul}};
static binary_pointer choose(int n) {
  return n < 3 ? commands[n].call : 0;
}
static int (*choose_again(int n, int (*fallback)(int, int)))(int, int) {
  return n ? operations[n] : fallback;
}
static int (*(*chooser)(int, binary *))(int, int) = choose_again;
static int (*matrix_of_calls[2][2])(int, int) = {{add, sub}, {mul}};
static int declared_by_typedef(int a, int b) {
  return a << b;
}
static void nothing(void) {}
static void (*volatile nothing_pointer)(void) = nothing;
static int apply(int f(int, int), int a, int b) {
  return f(a, b) + (*f)(a, b) + (**f)(b, a) + (&*f)(1, 1);
}

static int ackermann(int m, int n) {
  return m == 0 ? n + 1 : n == 0 ? ackermann(m - 1, 1) : ackermann(m - 1, ackermann(m, n - 1));
}
static int is_odd(int n);
static int is_even(int n) {
  return n == 0 ? 1 : is_odd(n - 1);
}
static int is_odd(int n) {
  return n == 0 ? 0 : is_even(n - 1);
}
static int hanoi(int n, int from, int to, int via) {
  return n == 0 ? 0 : hanoi(n - 1, from, via, to) + 1 + hanoi(n - 1, via, to, from);
}

static inline int inlined(int x) {
  static int calls;
  return ++calls * x;
}
inline int inlined_extern(int x) {
  return x * 3;
}
extern int inlined_extern(int x);
static int next(void) {
  static int n = 100, *p = &n;
  return (*p)++;
}
static int other_next(void) {
  static int n;
  {
    static int n = 50;
    n++;
    if (n > 52) return -n;
  }
  return ++n;
}
static int *address_of_static(void) {
  static int kept[3] = {7, 8, 9};
  return kept;
}
_Noreturn void exit(int);
static _Noreturn void leave(int status) {
  exit(status);
}
static const char *name_of_function(void) {
  return __func__;
}
int apart(), (*pointer_to_apart)() = apart;

static int shadows(int x) {
  int r = x;
  {
    int x = 2;
    r = r * 10 + x;
    {
      extern int counter;
      int x = counter;
      r = r * 10 + x;
    }
    r = r * 10 + x;
  }
  for (int x = 7, y = 1; y; y--)
    r = r * 10 + x;
  {
    enum { x = 8 };
    r = r * 10 + x;
  }
  {
    struct x {
      int x;
    } y = {9};
    r = r * 10 + y.x;
  }
  {
    typedef int x;
    x y = 3;
    r = r * 10 + y;
  }
  return r;
}
static int declared_in_block(void) {
  int apart(int, int);
  extern int outer_value;
  return apart(2, 3) + outer_value;
}
static int register_locals(register int a, register const int *p) {
  register int s = a;
  auto int i;
  for (i = 0; i < 3; i++)
    s += *p++;
  return s;
}

int main(int argc, char **argv) {
  int v[] = {1, 2, 3};
  char c = -1;
  float f = 2.5f;
  struct pair p = {1, 2};
  printf("%d %d %d %d %d\n", tentative, hidden, incomplete[0], later[1], defined_below[2]);
  printf("%d %s %s %d\n", fixed, names[0], names[2], *constant_pointer);
  printf("%d %d\n", old_sum(c, (short)-2, (unsigned char)3, f, 100000L, 7),
         old_sum('a', -1, 300, 1.5, 1L, 0));
  printf("%g %d\n", old_float(1.0f, 6.0), old_array(v, 3, plain));
  p = old_struct(p, 'A'), printf("%d %d %d %d\n", p.a, p.b, old_nothing(), old_order(1, 2, 3));
  printf("%d %d %d %d\n", narrow_result(300), bool_result(256), short_result(70000L),
         signed_parameter(200));
  printf("%d %g %d\n", bool_parameter(0x100), float_parameter(1), unsigned_short(65535));
  for (int i = 0; i < 4; i++)
    printf("%d ", operations[i](7, 2));
  for (int i = 0; i < 3; i++)
    printf("%s %d ", commands[i].name, (*commands[i].call)(5, 6));
  printf("\n%d %d %d\n", choose(1)(9, 4), choose(3) == 0, choose_again(0, sub)(1, 5));
  printf("%d %d %d\n", chooser(3, add)(1, 4), matrix_of_calls[1][0](3, 4),
         matrix_of_calls[1][1] == 0);
  printf("%d %d\n", apply(sub, 9, 4), apply(operations[0], 1, 2)), nothing_pointer(),
      (*nothing_pointer)();
  printf("%d %d %d %d\n", ackermann(2, 3), is_even(10), is_odd(7), hanoi(5, 1, 2, 3));
  printf("%d %d ", inlined(2), inlined_extern(4)), printf("%d\n", inlined(5));
  next(), next(), printf("%d ", next()), other_next(), other_next(), printf("%d\n", other_next());
  address_of_static()[1] = 80,
  printf("%d %d %s\n", address_of_static()[1], address_of_static() == address_of_static(),
         name_of_function());
  printf("%d %d %d\n", shadows(1), declared_in_block(), register_locals(1, v));
  printf("%d %d\n", pointer_to_apart(1, 1), argc > 0), device = 3, device += device,
                                                       printf("%d\n", device);
  printf("%d %d\n", sizeof(main(0, 0)) == sizeof(int),
         (add == add) + (add != sub) + (operations[0] == add) + !add);
  if (c) leave(3);
  return 1;
}

static int later[] = {1, 2, 3};
int defined_below[] = {4, 5, 6}, *const constant_pointer = &defined_below[1];
int outer_value = 1000;
int apart(int a, int b) {
  return a + b;
}
