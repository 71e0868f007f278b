// options: --c11 --gcc --abi=eabi --remarks
// What scanf stores against where it shall be stored.
typedef __builtin_va_list va_list;
typedef unsigned short wchar;
__attribute__((format(scanf, 1, 2))) int scan(const char *format, ...);
__attribute__((format(scanf, 1, 0))) int scan_list(const char *format, va_list places);

void right(char *p, unsigned char *up, short *ps, int *pi, unsigned *pu, long *pl, long long *pll,
           float *pf, double *pd, long double *pld, void **pv, wchar *w, va_list list) {
  scan("%d %u %x %i %hhd %hd %ld %lld %jd %zu %td", pi, pi, pu, pi, up, ps, pl, pll, pll, pu, pi);
  scan("%f %lf %Lf %5s %c %ls %p %n", pf, pd, pld, p, p, w, pv, pi);
  scan("%*d %*[a-z]%s", p);
  scan("%[]abc] %[^]x] %3[^\n]%d", p, p, up, pi);
  scan("%ms %m[a-z]", &p, &p);
  scan("%2$d %1$s", p, pi);
  scan("100%% %d", pi);
  scan_list("%d %s", list);
}

void wrong(char *p, const char *cp, short *ps, int i, int *pi, const int *ci, long *pl, float *pf,
           double *pd, void *v, va_list list) {
  scan("%d", i);
//           ^
// expect: warning #183 argument of type "int" does not fit conversion "%d" of the format, which takes "int *"
  scan("%d", ps);
//           ^
// expect: warning #183 argument of type "short *" does not fit conversion "%d" of the format, which takes "int *"
  scan("%d", pl);
//           ^
// expect: remark #183 argument of type "long *" does not fit conversion "%d" of the format, which takes "int *"
  scan("%hd", pi);
//            ^
// expect: warning #183 argument of type "int *" does not fit conversion "%hd" of the format, which takes "short *"
  scan("%f", pd);
//           ^
// expect: warning #183 argument of type "double *" does not fit conversion "%f" of the format, which takes "float *"
  scan("%lf", pf);
//            ^
// expect: warning #183 argument of type "float *" does not fit conversion "%lf" of the format, which takes "double *"
  scan("%s", cp);
//           ^
// expect: warning #183 argument of type "const char *" does not fit conversion "%s" of the format, which takes "char *"
  scan("%d", ci);
//           ^
// expect: warning #183 argument of type "const int *" does not fit conversion "%d" of the format, which takes "int *"
  scan("%s", &p), (void)v;
//           ^
// expect: warning #183 argument of type "char **" does not fit conversion "%s" of the format, which takes "char *"
  scan("%ms", p);
//            ^
// expect: warning #183 argument of type "char *" does not fit conversion "%ms" of the format, which takes "char **"
  scan("%p", p);
//           ^
// expect: warning #183 argument of type "char *" does not fit conversion "%p" of the format, which takes "void **"
  scan("%d %d", pi);
//     ^
// expect: warning #226 conversion "%d" of the format has no argument
  scan("%*d", pi);
//            ^
// expect: warning #227 the format has no conversion for this argument
  scan("%[abc", p);
//     ^
// expect: warning #228 "%[abc" is not a valid conversion of this format
  scan("%[", p);
//     ^
// expect: warning #228 "%[" is not a valid conversion of this format
  scan("%[]", p);
//     ^
// expect: warning #228 "%[]" is not a valid conversion of this format
  scan("%.3d", pi);
//     ^
// expect: warning #228 "%." is not a valid conversion of this format
  scan("%0d", pi);
//     ^
// expect: warning #228 "%0d" is not a valid conversion of this format
  scan("%*n");
//     ^
// expect: warning #228 "%*n" is not a valid conversion of this format
  scan("%1$*d", pi);
//     ^
// expect: warning #228 "%1$*d" is not a valid conversion of this format
  scan_list("%y", list);
//          ^
// expect: warning #228 "%y" is not a valid conversion of this format
}
