struct s { int m; };
enum e { k = 2 };
int g, *p;
extern int g;
static int f(int a) {
  int l = a;
  g++;
  g += k;
  p = &l;
  return f(l) + sizeof(struct s);
}
int h(void) { int (*q)(int) = f; return q(*p); }
#define MAX(a, b) ((a) > LIMIT ? LIMIT : (b))
#define LIMIT 3
#if defined LIMIT && LIMIT > 2
struct s w = {.m = MAX(1, LIMIT)};
#endif
#undef MAX
int j(struct s *t) {
again:
  t->m++;
  w.m = t->m;
  p = &w.m;
  goto again;
}
