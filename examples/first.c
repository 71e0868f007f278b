/* The smallest program that shows something. */
int printf(const char *format, ...);

int add(int a, int b) { return a + b; }

int main(void) {
  printf("2 + 40 = %d\n", add(2, 40));
  return 0;
}
