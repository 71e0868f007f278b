// options: --c11 --gcc
// Builtin forms with arguments that they do not take.
struct s { int a; int b : 3; char c[4]; } s;
int offsets[] = {
  __builtin_offsetof(struct s, a), __builtin_offsetof(struct s, c[2]),
  __builtin_offsetof(struct s, b),
//                             ^
// expect: error #1699 cannot take the offset of a bit-field
  __builtin_offsetof(struct s, none),
//                             ^
// expect: error #137 struct "s" has no field "none"
  __builtin_offsetof(int, a),
//                   ^
// expect: error #156 expression must have struct or union type
  __builtin_offsetof(struct s, a.b),
//                             ^
// expect: error #156 expression must have struct or union type
  __builtin_offsetof(struct s),
//                           ^
// expect: error #255 expected a ","
};
int compatible[] = { __builtin_types_compatible_p(int, const int), __builtin_types_compatible_p(int, 5) };
//                                                                                                   ^
// expect: error #80 expected a type specifier
int choose(int n) {
  int ok = __builtin_choose_expr(1, n, "text");
  int bad = __builtin_choose_expr(n, 1, 2);
//                                ^
// expect: error #159 expression must be an integral constant expression
  int few = __builtin_choose_expr(1, 2);
//                                    ^
// expect: error #255 expected a ","
  return ok + bad + few;
}
double classify(double d, int i) {
  return __builtin_fpclassify(0, 1, 2, 3, 4, d) + __builtin_fpclassify(0, 1, 2, 3, 4, i) + __builtin_isnan(i) +
//                                                ^
// expect: error #2149 the last argument of __builtin_fpclassify must have a real floating-point type
//                                                                                         ^
// expect: error #2079 the call needs an argument of real floating-point type
         __builtin_isnan() + __builtin_isless(d, &i) + __builtin_isgreater(d);
//       ^
// expect: error #2078 the call needs exactly one argument
//                                               ^
// expect: error #32 expression must have arithmetic type
//                                                                          ^
// expect: error #255 expected a ","
}
void *aligned(void *p, float f) { p = __builtin_assume_aligned(p, 16); return __builtin_assume_aligned(p, 16, f); }
//                                                                            ^
// expect: error #2754 the third argument must have an integral type
int arguments(int n, ...) {
  __builtin_va_list list;
  __builtin_va_start(list, n);
  int a = __builtin_va_arg(list, int) + __builtin_va_arg(n, int);
//                                                       ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  __builtin_va_start(n, n);
//                   ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  __builtin_va_copy(list, n);
//                        ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  __builtin_va_end(list);
  return a;
}
int no_ellipsis(int n) { __builtin_va_list list; __builtin_va_start(list, n); return n; }
//                                                                  ^
// expect: error #1239 va_start is only allowed in a function with an ellipsis
int unknown(int n) { return __builtin_no_such(n) + __builtin_expect(n) + __builtin_constant_p(); }
//                          ^
// expect: error #1494 builtin function __builtin_no_such not supported
//                                                                   ^
// expect: error #167 too few arguments in function call
//                                                                                            ^
// expect: error #29 expected an expression
int prefetch(char *p) { __builtin_prefetch(p, 0, 3); __builtin_unreachable(); }
//                                                                            ^
// expect: warning #994 missing return statement at end of non-void function "prefetch"
