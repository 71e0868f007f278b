#define v(...) __VA_ARGS__
#define w(a...) a
#define e(a, b) a b
int e(y,);
int e(,z);
long long ll = 1LL;
int h = 0x1p3;
int b = 0b1;
int digraph[1];
int dollar$ = 1;
char esc = '\e';
void *str = "a" L"b";
#ifdef x y
#endif junk
#warning told too
#if 0
#bogus
#endif
#ifdef 1
#endif
#define redefined 1
#define redefined 2
int inline_;
int quotient = 8 //* not a comment */ 2
;
int x = 1 // told once
;
