// options: --c11 --gcc --abi=eabi
// The routine behind the pragma takes a format as its last named parameter.
typedef __builtin_va_list va_list;
#pragma __printf_args
int to_text(char *out, const char *format, ...);
#pragma __scanf_args
int from_text(const char *in, const char *format, ...);
#pragma __printf_args
int list_to_text(char *out, const char *format, va_list values);
#pragma __printf_args
int wide(const unsigned short *format, ...);
#pragma __printf_args
void nothing(void);
void f(char *p, int i, va_list list) {
  to_text(p, "%d", i);
  to_text(p, "%s", i);
//                 ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
  from_text("%s", "%d", &i);
  from_text(p, "%d", i);
//                   ^
// expect: warning #183 argument of type "int" does not fit conversion "%d" of the format, which takes "int *"
  list_to_text(p, "%d", list);
  list_to_text(p, "%k", list);
//                ^
// expect: warning #228 "%k" is not a valid conversion of this format
  wide(L"%d %s", i, p);
  wide(L"%d %s", p, i);
//               ^
// expect: warning #183 argument of type "char *" does not fit conversion "%d" of the format, which takes "int"
//                  ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
  nothing();
}
