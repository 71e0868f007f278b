// options: --c11 --abi=eabi
// Places and values: assignments, increments, compound assignments, addresses, members.
struct s { int a; char b[4]; struct s *next; } s, *p;
int i; char c; unsigned u; short h; float f; int *q; volatile int v;
void assign(void) { i = c = 3; s = *p; p->a = s.a; *q = i; q[2] = 5; p->next->b[i] = 'x'; }
void step(void) { i++; ++c; q--; --p; h++; f++; (*q)++; p->a--; v++; }
void compound(void) { c += i; i <<= c; u >>= 2; q += i; p -= 1; f *= i; h %= 3; i |= u; v ^= 1; u /= c; }
int *addresses(void) { return i ? &s.a : &p->a; }
int chain(int a, int b) { return (i = a, b) && !(a || b) ? a & ~b : -a; }
long distance(int *a, int *b) { return b - a + (a < b) + (a == 0); }
