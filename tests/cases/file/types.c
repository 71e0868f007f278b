// options: --c11 --abi=eabi
// Types of all kinds, each used once.
typedef int number; typedef number *numbers; typedef struct node node;
struct node { node *next; struct inner { char c; short s; } inner; number n; };
union either { float f; unsigned bits; node *p; };
enum color { red, green = 5, blue = -1 }; enum small { one = 1 };
typedef enum { anonymous } unnamed; typedef struct { int only; } wrapped;
typedef int callback(node *, const char *), (*pointer)(int, ...);
volatile number counter; const char *const names[2] = {0}; numbers list;
node head; union either either; enum color color; enum small small; unnamed u; wrapped w;
callback *call; pointer print; int matrix[3][4]; struct opaque *hidden;
long l; unsigned char uc; long double ld; signed char sc; unsigned long long ull; _Bool b;
int old_style(); void nothing(void); char *restrict_it(char *restrict to);
int use(void) { nothing(); return old_style() + *restrict_it(0); }
