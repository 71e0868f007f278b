// options: --c99
// Every spelling of the arithmetic types, and the sizes they have.
#define SAME(a, b) (sizeof(a) == sizeof(b) ? 1 : -1)
int t1[SAME(unsigned long int, long unsigned)];
int t2[SAME(long long signed, signed long long int)];
int t3[sizeof(short int) == 2 ? 1 : -1];
int t4[sizeof(long double) == sizeof(double long) ? 1 : -1];
int t5[((signed char)-1 < 0) ? 1 : -1];
int t6[((unsigned char)-1 > 0) ? 1 : -1];
_Bool flag = 3;
typedef unsigned short word;
typedef const word cword;
extern cword limit;
__extension__ typedef long long big;
typedef __typeof__(flag) flag_type;
__typeof__(int *) pointer;
static __inline int add(int a, int b) { return a + b; }
int __attribute__((unused)) *unused_one, two;
enum color { red, green = 5, blue, last = -1 };
int t7[blue == 6 && last == -1 ? 1 : -1];
enum { anonymous = sizeof(enum color) };
enum big_values { top = 0x7fffffff };
struct outer {
  struct inner {
    enum inside { in_a, in_b } kind;
  } member;
  struct outer *next;
};
struct inner visible;
enum inside also_visible = in_b;
volatile const int *const volatile restricted;
//                                 ^
// expect: warning #259 const variable "restricted" requires an initializer
int f(void), g(), (*h)(int, ...);
