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
