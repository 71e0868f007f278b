// options: --c89
// Functions without prototypes, with and without declared parameters.
int sum(a, b, c)
  char a;
  register float b;
  int c[];
{
  return a + (int)b + c[0];
}
int none() { return 0; }
int twice(n) { return n + n; }
int (*pointer_to_old())() { return 0; }
int after_prototype(int, double);
int after_prototype(i, d)
  int i;
  double d;
{
  return i + (int)d;
}
