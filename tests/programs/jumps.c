/* setjmp and longjmp, atexit, and the status of the program. */
int printf(const char *format, ...);
typedef int jmp_buf[64];
int setjmp(jmp_buf buffer);
void longjmp(jmp_buf buffer, int value);
int atexit(void (*routine)(void));
void exit(int status);

static jmp_buf outer, inner;
static int depth(int n) {
  if (n == 0) longjmp(outer, 5);
  return depth(n - 1) + 1;
}
static int nested(void) {
  int r = setjmp(inner);
  if (r == 0) longjmp(inner, 0);
  if (r == 1) longjmp(inner, 3);
  return r;
}
static void first(void) { printf("first\n"); }
static void second(void) { printf("second\n"); }

int main(void) {
  volatile int count = 0;
  switch (setjmp(outer)) {
    case 0:
      printf("set\n");
      depth(10);
      printf("never\n");
      break;
    case 5:
      printf("back %d\n", count++);
      longjmp(outer, 6);
    default:
      printf("again %d\n", count);
  }
  printf("%d\n", nested());
  atexit(first), atexit(second);
  exit(3);
}
