// options: --c11 --gcc --printf_support=minimal
// The library with a few bare conversions.
__attribute__((format(printf, 1, 2))) int print(const char *format, ...);
void f(int i, long l) {
  print("%d %o %x %c %s %%", i, i, i, i, "s");
  print("%u", i);
//      ^
// expect: error #2631 conversion "%u" is not in the library that "printf_support" selects
  print("%5d", i);
//      ^
// expect: error #2632 conversion "%5d" has a flag, width or length that is not in the library that "printf_support" selects
  print("%ld %-x", l, i);
//      ^
// expect: error #2632 conversion "%ld" has a flag, width or length that is not in the library that "printf_support" selects
//      ^
// expect: error #2632 conversion "%-x" has a flag, width or length that is not in the library that "printf_support" selects
  print("%f %[%]");
//      ^
// expect: warning #226 conversion "%f" of the format has no argument
//      ^
// expect: error #2631 conversion "%f" is not in the library that "printf_support" selects
//      ^
// expect: error #2631 conversion "%[%]" is not in the library that "printf_support" selects
}
