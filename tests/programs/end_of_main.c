/* The end of main is a return of 0, also behind a call with another result and out of a loop. */
int printf(const char *format, ...);

static int seven(void) {
  return 7;
}

int main(int argc, char **argv) {
  (void)argv;
  if (argc > 100) return 3;
  for (int i = 0; i < 2; i++) {
    if (i == 1) break;
    printf("%d\n", i);
  }
  seven();
}
