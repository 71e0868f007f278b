// options: --c11 --gcc --abi=eabi --remarks
// Values of a call against the conversions of its format.
typedef __builtin_va_list va_list;
typedef unsigned int size_t;
typedef unsigned short wchar;
enum color { red };
struct pair { int a, b; };
__attribute__((format(printf, 1, 2))) int print(const char *format, ...);
__attribute__((__format__(__printf__, 2, 3))) int to_text(char *out, const char *format, ...);
__attribute__((format(printf, 1, 0))) int print_list(const char *format, va_list values);
__attribute__((format_arg(1))) const char *translated(const char *text);
int silent(const char *format, ...);
#define PRI "l" "d"
const char constant_format[] = "%d %s";
char variable_format[] = "%d %s";

void right(char c, short s, int i, unsigned u, long l, long long ll, size_t z, float f, double d,
           long double ld, char *p, const unsigned char *up, void *v, enum color e, _Bool b, wchar *w,
           va_list list, struct pair *sp, signed char *pc, short *ps, long *pl, long long *pll) {
  print("plain 100%%");
  print("%d %i %c %hhd %hd %x %o %u %X", c, s, c, c, s, u, u, i, e);
  print("%ld %lu %lx %lld %llu %qd %jd %zu %zd %td", l, l, l, ll, ll, ll, ll, z, i, i);
  print("%-5d|%+5d|% d|%05d|%#x|%.3d|%-*.*f|%'d", i, i, i, i, u, i, i, i, d, i);
  print("%f %e %g %a %F %lf %Lf", f, d, d, d, d, d, ld);
  print("%s %.*s %p %p %p %ls %lc", p, i, up, v, p, sp, w, i);
  print("%d %n%hhn%hn%ln%lln", b, &i, pc, ps, pl, pll);
  print("%2$s %1$d %3$*1$d", i, p, i);
  print("%s", (void *)0);
  print("%" PRI "%d" " end", l, i);
  print(i ? "%d" : "nothing", i);
  print(translated("%d"), i);
  print(constant_format, i, p);
  print(variable_format, d);
  print("-%d" + 1, i);
  print(p, i, d);
  print_list("%d %s %5.2f", list);
  silent("%d", p);
}

void wrong(int i, unsigned u, long l, long long ll, double d, long double ld, char *p,
           const int *ci, void *v, struct pair s, short *ps, va_list list) {
  print("%d", d);
//            ^
// expect: warning #183 argument of type "double" does not fit conversion "%d" of the format, which takes "int"
  print("%s%d", i, p);
//              ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
//                 ^
// expect: warning #183 argument of type "char *" does not fit conversion "%d" of the format, which takes "int"
  print("%f", i);
//            ^
// expect: warning #183 argument of type "int" does not fit conversion "%f" of the format, which takes "double"
  print("%lld", i);
//              ^
// expect: warning #183 argument of type "int" does not fit conversion "%lld" of the format, which takes "long long"
  print("%d", ll);
//            ^
// expect: warning #183 argument of type "long long" does not fit conversion "%d" of the format, which takes "int"
  print("%ld", i);
//             ^
// expect: remark #183 argument of type "int" does not fit conversion "%ld" of the format, which takes "long"
  print("%lx", u);
//             ^
// expect: remark #183 argument of type "unsigned int" does not fit conversion "%lx" of the format, which takes "unsigned long"
  print("%u", l);
//            ^
// expect: remark #183 argument of type "long" does not fit conversion "%u" of the format, which takes "unsigned int"
  print("%Lf", d);
//             ^
// expect: remark #183 argument of type "double" does not fit conversion "%Lf" of the format, which takes "long double"
  print("%f", ld);
//            ^
// expect: remark #183 argument of type "long double" does not fit conversion "%f" of the format, which takes "double"
  print("%s", v);
//            ^
// expect: warning #183 argument of type "void *" does not fit conversion "%s" of the format, which takes "char *"
  print("%ls", p);
//             ^
// expect: warning #183 argument of type "char *" does not fit conversion "%ls" of the format, which takes "unsigned short *"
  print("%p", i);
//            ^
// expect: warning #183 argument of type "int" does not fit conversion "%p" of the format, which takes "void *"
  print("%n", ci);
//            ^
// expect: warning #183 argument of type "const int *" does not fit conversion "%n" of the format, which takes "int *"
  print("%n", ps);
//            ^
// expect: warning #183 argument of type "short *" does not fit conversion "%n" of the format, which takes "int *"
  print("%d", s);
//            ^
// expect: warning #183 argument of type "struct pair" does not fit conversion "%d" of the format, which takes "int"
  print("%*d", d, i);
//             ^
// expect: warning #183 argument of type "double" does not fit conversion "%*" of the format, which takes "int"
  print("%.*s", l, p);
//              ^
// expect: remark #183 argument of type "long" does not fit conversion "%.*" of the format, which takes "int"
  print("%d %d", i);
//      ^
// expect: warning #226 conversion "%d" of the format has no argument
  print("%*d", i);
//      ^
// expect: warning #226 conversion "%*d" of the format has no argument
  print("%d");
//      ^
// expect: warning #226 conversion "%d" of the format has no argument
  print("%d", i, i, i);
//               ^
// expect: warning #227 the format has no conversion for this argument
  print("none", i);
//              ^
// expect: warning #227 the format has no conversion for this argument
  print("%", i);
//      ^
// expect: warning #228 "%" is not a valid conversion of this format
  print("%5", i);
//      ^
// expect: warning #228 "%5" is not a valid conversion of this format
  print("%ll", i);
//      ^
// expect: warning #228 "%ll" is not a valid conversion of this format
  print("%y", i);
//      ^
// expect: warning #228 "%y" is not a valid conversion of this format
  print("%#d", i);
//      ^
// expect: warning #228 "%#d" is not a valid conversion of this format
  print("%05s", p);
//      ^
// expect: warning #228 "%05s" is not a valid conversion of this format
  print("%.3c", i);
//      ^
// expect: warning #228 "%.3c" is not a valid conversion of this format
  print("%hf", d);
//      ^
// expect: warning #228 "%hf" is not a valid conversion of this format
  print("%Ln", &ll);
//      ^
// expect: warning #228 "%Ln" is not a valid conversion of this format
  print("%+x", i);
//      ^
// expect: warning #228 "%+x" is not a valid conversion of this format
  print("%5%");
//      ^
// expect: warning #228 "%5%" is not a valid conversion of this format
  print("%1$d %d", i, i);
//      ^
// expect: warning #228 "%d" is not a valid conversion of this format
  print("%0$d", i);
//      ^
// expect: warning #1674 the arguments of a format are counted from 1, not 0 as in "%0$"
  print("%100$d", i);
//      ^
// expect: warning #228 "%100$" is not a valid conversion of this format
  print("%3$d", i);
//      ^
// expect: warning #226 conversion "%3$d" of the format has no argument
  print("%2$d", i, i);
//              ^
// expect: warning #227 the format has no conversion for this argument
  print("%1$d", i, i);
//                 ^
// expect: warning #227 the format has no conversion for this argument
  print(i ? "%s" : "%d", i);
//                       ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
  print(i ? "one" : "two", i);
//                         ^
// expect: warning #227 the format has no conversion for this argument
  print(translated("%s"), i);
//                        ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
  print(constant_format, p, p);
//                       ^
// expect: warning #183 argument of type "char *" does not fit conversion "%d" of the format, which takes "int"
  to_text(p, "%s", i);
//                 ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
  print_list("%y", list);
//           ^
// expect: warning #228 "%y" is not a valid conversion of this format
  print("a\0%d", i);
//               ^
// expect: warning #227 the format has no conversion for this argument
  print("%\x7f\200", i);
//      ^
// expect: warning #228 "%?" is not a valid conversion of this format
}
