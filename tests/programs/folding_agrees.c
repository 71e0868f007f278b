/* Conversions of constants at compile time agree with those of the same values at run time. */
int printf(const char *format, ...);

typedef signed char sc;
typedef unsigned char uc;
typedef short sh;
typedef unsigned short us;
typedef unsigned ui;
typedef long long ll;
typedef unsigned long long ul;

static int errors;
static void compare(const char *what, ll folded, ll computed) {
  if (folded == computed) return;
  errors++;
  printf("%s: %lld folded, %lld computed\n", what, folded, computed);
}

#define UNARY(T, OP, A)                            \
  do {                                             \
    volatile T a = (T)(A);                         \
    enum { is = sizeof(OP a) };                    \
    static const ll folded = (ll)(OP(T)(A));       \
    compare(#OP "(" #T ")" #A, folded, (ll)(OP a)); \
    sum = sum * 31 + folded + is;                  \
  } while (0)
#define BINARY(T, A, OP, U, B)                                                    \
  do {                                                                            \
    volatile T a = (T)(A);                                                        \
    volatile U b = (U)(B);                                                        \
    static const ll folded = (ll)((T)(A)OP(U)(B));                                \
    compare("(" #T ")" #A " " #OP " (" #U ")" #B, folded, (ll)(a OP b));          \
    sum = sum * 31 + folded;                                                      \
  } while (0)
#define CAST(T, U, A)                                           \
  do {                                                          \
    volatile U a = (U)(A);                                      \
    static const ll folded = (ll)(T)(U)(A);                     \
    compare("(" #T ")(" #U ")" #A, folded, (ll)(T)a);           \
    sum = sum * 31 + folded;                                    \
  } while (0)

static ul sum;

#define UNARIES(T, A) UNARY(T, -, A); UNARY(T, ~, A); UNARY(T, !, A); UNARY(T, +, A)
#define ARITHMETIC(T, A, U, B)                                                                  \
  BINARY(T, A, /, U, B); BINARY(T, A, %, U, B); BINARY(T, A, &, U, B); BINARY(T, A, |, U, B);    \
  BINARY(T, A, ^, U, B); BINARY(T, A, <, U, B); BINARY(T, A, <=, U, B); BINARY(T, A, ==, U, B);  \
  BINARY(T, A, !=, U, B); BINARY(T, A, >, U, B); BINARY(T, A, >=, U, B); BINARY(T, A, &&, U, B); \
  BINARY(T, A, ||, U, B); BINARY(T, A, +, U, B); BINARY(T, A, -, U, B)
#define SHIFTS(T, A, B) BINARY(T, A, >>, uc, B); BINARY(T, A, <<, sh, B)
#define CASTS(U, A)                                                                          \
  CAST(sc, U, A); CAST(uc, U, A); CAST(sh, U, A); CAST(us, U, A); CAST(int, U, A); CAST(ui, U, A); \
  CAST(ll, U, A); CAST(ul, U, A); CAST(_Bool, U, A); CAST(float, U, A); CAST(double, U, A)

static void integers(void) {
  UNARIES(sc, -100); UNARIES(uc, 200); UNARIES(sh, -32768); UNARIES(us, 65535); UNARIES(int, 2147483647);
  UNARIES(ui, 2147483648u); UNARIES(ll, -0x7fffffffffffffffLL); UNARIES(ul, 0x8000000000000000ULL);
  UNARIES(_Bool, 5);
  ARITHMETIC(sc, -100, uc, 200); ARITHMETIC(int, -7, int, 2); ARITHMETIC(int, -7, ui, 2);
  ARITHMETIC(us, 65535, sh, -1); ARITHMETIC(ll, -7, ui, 2); ARITHMETIC(ll, -7, ul, 2);
  ARITHMETIC(ui, 4000000000u, int, -3); ARITHMETIC(ul, 0xfedcba9876543210ULL, sc, -5);
  ARITHMETIC(ll, -0x7fffffffffffffffLL, int, 10); ARITHMETIC(int, 0, ll, 0x100000000LL);
  ARITHMETIC(_Bool, 2, uc, 1); ARITHMETIC(uc, 255, uc, 1); ARITHMETIC(sh, 0x7fff, us, 0x8000);
}

static void shifts_and_casts(void) {
  SHIFTS(uc, 200, 7); SHIFTS(us, 65535, 12); SHIFTS(ui, 0x80000001u, 31); SHIFTS(ul, 0x8000000000000001ULL, 63);
  SHIFTS(ll, 0x123456789abcdefLL, 4); SHIFTS(int, 0x1234567, 3); BINARY(int, -5, >>, ll, 1);
  BINARY(sc, -128, >>, uc, 3); BINARY(ll, -1, >>, int, 40);
  CASTS(sc, -1); CASTS(uc, 255); CASTS(sh, -32768); CASTS(us, 40000); CASTS(int, -2147483647);
  CASTS(ui, 4294967295u); CASTS(ll, 0x123456789abcdefLL); CASTS(ll, -0x123456789LL); CASTS(ui, 16777217);
  CASTS(int, 16777219); CASTS(float, 3.99f); CASTS(double, 100.5); CASTS(double, 0.25); CASTS(_Bool, 0.5);
}

#define FLOAT_ROW(T, A, OP, U, B)                                                   \
  do {                                                                              \
    volatile T a = (T)(A);                                                          \
    volatile U b = (U)(B);                                                          \
    static const double folded = (T)(A)OP(U)(B);                                    \
    double computed = a OP b;                                                       \
    if (folded != computed) errors++, printf(#A " " #OP " " #B ": %.17g %.17g\n", folded, computed); \
  } while (0)
#define FLOATS(T, A, U, B) \
  FLOAT_ROW(T, A, +, U, B); FLOAT_ROW(T, A, -, U, B); FLOAT_ROW(T, A, *, U, B); FLOAT_ROW(T, A, /, U, B)

static void floats(void) {
  FLOATS(float, 0.1, float, 0.2); FLOATS(float, 16777216, int, 1); FLOATS(double, 0.1, float, 0.1);
  FLOATS(double, 1e300, double, 1e-10); FLOATS(float, 3e38, double, 3e38); FLOATS(int, 7, float, 3);
  FLOATS(ul, 0xffffffffffffffffULL, float, 3); FLOATS(ll, -0x7fffffffffffffffLL, double, 7);
  FLOATS(ui, 4294967295u, float, 0.5); FLOATS(double, 5e-324, int, 3); FLOATS(float, 1e-38, float, 1e-5);
  FLOATS(double, 1.0 / 3, double, 2.0 / 3); FLOATS(uc, 255, double, 1e-3); FLOATS(float, 1e30, float, 1e30);
}

int main(void) {
  integers(), shifts_and_casts(), floats();
  printf("%d errors, %llx\n", errors, sum);
  return errors != 0;
}
