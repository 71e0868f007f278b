// options: --c11 --gcc --report_gnu_extensions --remarks
// With this option every extension is told where it is used.
int empty_array[0];
//              ^
// expect: warning #1890 an array of length zero is a GNU extension
int f(int n) {
  int a = ({ n; });
//        ^
// expect: warning #1881 statement expressions are a GNU extension
  __typeof__(a) b = a ?: n;
// expect: warning #1888 typeof is a GNU extension
  int *p = &(int){3};
  switch (n) { case 1 ... 3: b++; }
  void *q = p; q++;
  return b + sizeof(void) + sizeof(f) + __alignof__(n) + *p + (int)(long)q;
}
int g(void) asm("named");
struct e { };
union cast { int i; float f; };
union cast u(void) { return (union cast)5; }
int designated[] = { [0 ... 2] = 1 };
struct old { int a; } old = { a: 1 };
int restrict_word(char *__restrict p) { asm volatile("nop"); return *p; }
//                      ^
// expect: warning #1887 this spelling of "restrict" is nonstandard
//                                          ^
// expect: warning #1885 a volatile asm is a GNU extension
