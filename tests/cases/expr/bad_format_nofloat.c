// options: --c11 --gcc --printf_support=nofloat
// The library without floating conversions.
__attribute__((format(printf, 1, 2))) int print(const char *format, ...);
__attribute__((format(scanf, 1, 2))) int scan(const char *format, ...);
void f(double d, float *p, int i) {
  print("%5d %u %s %%f", i, i, "f");
  print("%5.2f", d);
//      ^
// expect: error #2631 conversion "%5.2f" is not in the library that "printf_support" selects
  print("%d %Lg", i, (long double)d);
//      ^
// expect: error #2631 conversion "%Lg" is not in the library that "printf_support" selects
  scan("%f", p);
}
