#define f(a) a
int x = f(
