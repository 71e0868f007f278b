// options: --c11 --abi=eabi
// Calls: what travels as what, prototypes and none, direct and through pointers.
struct pair { int a, b; };
struct pair make(int a, int b);
int take(struct pair p, char c, short s, float f, double d);
int old();
int many(const char *format, ...);
extern int (*table[4])(int);

int narrow(char c, unsigned short s, float f) { return take(make(c, s), c, s, f, f); }
void unprototyped(char c, float f) { old(c, f, 1L); }
int variable(char c, float f, long long q) { return many("%d %f %lld", c, f, q); }
int indirect(int i) { return table[i](i) + (*table[0])(1) + (&narrow)(1, 2, 3); }
struct pair copied(struct pair *p) { struct pair q = *p; q = make(1, 2); return q; }
int member(void) { return make(3, 4).b; }
void dropped(void) { make(5, 6); (void)narrow(1, 2, 3); }
