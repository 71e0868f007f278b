/* GNU C: compound literals as the value of objects that live for ever, and values of statement
   expressions behind which null statements stand. */
int printf(const char *, ...);
struct S { int a, b[2]; };
int from = (int){3};
int arr[] = (int[]){1, 2, 3};
int arr4[4] = (int[4]){1, 2};
char text[] = (char[]){"abc"};
struct S copy = (struct S){1, {2, 3}}, two[2] = {(struct S){4}, {5, {6}}};
struct Outer { struct S s; int t; } o = {(struct S){7, {8, 9}}, (int){10}}, o2 = {.s = (struct S){11}, .t = 12};
const struct S cs = (struct S){13};
int *ptr = (int *){&from};
struct S *sp = &(struct S){.b = {21, 22}};
int next(void) { static struct S s = (struct S){.a = 30}; static int k[] = (int[]){1, 2}; return s.a++ + k[1]++; }
int main(void) {
  printf("%d %d %d %d %s %d\n", from, (int)sizeof arr, arr[2], arr4[1], text, (int)sizeof text);
  printf("%d %d %d %d %d %d %d %d %d %d\n", copy.b[1], two[0].a, two[1].b[0], o.s.b[1], o.t, o2.s.a, o2.t, cs.a, *ptr, sp->b[1]);
  int a = ({ int x = 5; x + 1;; });
  int b = ({ a = 3; a; ; ; });
  next();
  printf("%d %d %d\n", a, b, next());
}
