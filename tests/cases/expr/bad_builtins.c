// options: --c11
typedef __builtin_va_list va_list;
struct S { int a; char c; } s;
int i, *p, arr[3], fn(int);
unsigned u;
double d;
float f;
enum { K1 = __builtin_constant_p(3), K2 = __builtin_constant_p("x"), K3 = __builtin_types_compatible_p(int, signed) };
_Static_assert(K1 == 1 && K3 == 1, "folded");
_Static_assert(!__builtin_types_compatible_p(int, unsigned), "kinds");
_Static_assert(__builtin_types_compatible_p(int[], int[3]), "arrays");
_Static_assert(__builtin_types_compatible_p(const int, int), "qualifiers");
_Static_assert(!__builtin_types_compatible_p(struct S, int), "class");
_Static_assert(__builtin_choose_expr(1, 2, i) == 2, "chosen");
_Static_assert(sizeof(__builtin_choose_expr(0, 1, (char)1)) == 1, "chosen");
_Static_assert(__builtin_clz(1) == 31 && __builtin_ctz(8) == 3 && __builtin_popcount(255) == 8, "bits");
_Static_assert(__builtin_offsetof(struct S, c) == 4, "offset");
_Static_assert(__builtin_classify_type(1) == 1 && __builtin_classify_type(1.0) == 8, "class");
double inf = __builtin_inf(), big = __builtin_huge_val(), nan = __builtin_nan("");
int var(int n, ...) {
  va_list ap, ap2;
  __builtin_va_start(ap, n);
  i = __builtin_va_arg(ap, int);
  i = __builtin_va_arg(ap);
//                       ^
// expect: error #255 expected a ","
  i = __builtin_va_arg(ap, 3);
//                         ^
// expect: error #80 expected a type specifier
  i = __builtin_va_arg(i, int);
//                     ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  i = __builtin_va_arg(ap, struct Open);
//                         ^
// expect: error #71 incomplete type is not allowed
  i = __builtin_va_arg(ap, char);
//                         ^
// expect: warning #1221 a value of type "char" arrives as "int" among variable arguments
  i = __builtin_va_arg(ap, float);
//                         ^
// expect: warning #1221 a value of type "float" arrives as "double" among variable arguments
  i = __builtin_va_arg(ap, int[3]);
//    ^
// expect: warning #515 a value of type "int *" cannot be assigned to an entity of type "int"
  i = __builtin_va_arg(ap, int(void));
//                         ^
// expect: error #358 type must be an object type
  i = __builtin_va_arg(ap, void);
//                         ^
// expect: error #71 incomplete type is not allowed
  __builtin_va_copy(ap2, ap);
  __builtin_va_copy(ap2);
//                     ^
// expect: error #255 expected a ","
  __builtin_va_copy(i, ap);
//                  ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  __builtin_va_end(ap);
  __builtin_va_end();
//                 ^
// expect: error #29 expected an expression
  __builtin_va_end(i);
//                 ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  __builtin_va_start(ap);
//                     ^
// expect: error #255 expected a ","
  __builtin_va_start(ap, n, n);
//                        ^
// expect: error #18 expected a ")"
  __builtin_va_start(ap, missing);
//                       ^
// expect: error #20 identifier "missing" is undefined
  __builtin_va_start(i, n);
//                   ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "struct __zvn_va_list"
  return __builtin_va_arg(ap, struct S).a;
}
int fixed(int n) {
  va_list ap;
  __builtin_va_start(ap, n);
//                   ^
// expect: error #1239 va_start is only allowed in a function with an ellipsis
  return n;
}
void calls(int n) {
  i = __builtin_expect(n, 1);
  i = __builtin_expect(n);
//                      ^
// expect: error #167 too few arguments in function call
  i = __builtin_expect(n, 1, 2);
//                           ^
// expect: error #141 too many arguments in function call
  i = __builtin_constant_p(n);
  i = __builtin_constant_p();
//                         ^
// expect: error #29 expected an expression
  i = __builtin_constant_p(n, n);
//                          ^
// expect: error #18 expected a ")"
  i = __builtin_types_compatible_p(int, 3);
//                                      ^
// expect: error #80 expected a type specifier
  i = __builtin_types_compatible_p(int);
//                                    ^
// expect: error #255 expected a ","
  i = __builtin_types_compatible_p(typeof(i), int);
  i = __builtin_choose_expr(n, 1, 2);
//                          ^
// expect: error #159 expression must be an integral constant expression
  i = __builtin_choose_expr(1, 2);
//                              ^
// expect: error #255 expected a ","
  i = __builtin_choose_expr(1, i, s) + 1;
  __builtin_choose_expr(1, i, s) = 1;
  i = __builtin_clz(s);
//                  ^
// expect: error #169 argument of type "struct S" is incompatible with parameter of type "unsigned int"
  i = __builtin_clz(1, 2);
//                     ^
// expect: error #141 too many arguments in function call
  i = __builtin_clz();
//                  ^
// expect: error #167 too few arguments in function call
  i = __builtin_unknown_thing(n);
//    ^
// expect: error #1494 builtin function __builtin_unknown_thing not supported
  i = __builtin_isnan(d) + __builtin_isinf(f) + __builtin_signbit(d);
  i = __builtin_isnan(p);
//    ^
// expect: error #2079 the call needs an argument of real floating-point type
  __builtin_unreachable();
  i = 1;
  i = __sync_fetch_and_add(&i, 1);
  i = __sync_fetch_and_add(&s, 1);
//                         ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  i = __sync_fetch_and_add(i, 1);
//                         ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  i = __sync_fetch_and_add();
//                         ^
// expect: error #29 expected an expression
  __builtin_expect;
// expect: warning #176 expression has no effect
  i = typeof(i);
//    ^
// expect: error #256 type name is not allowed
  typeof(i) t = 1;
  typeof(missing2) t2;
//       ^
// expect: error #20 identifier "missing2" is undefined
  typeof(int *) t3 = p;
  typeof t4;
//       ^
// expect: error #126 expected a "("
  i = sizeof(typeof(arr)) + t + *t3;
  i = __alignof__(double) + __alignof__ d;
  i = __func__[0];
  __func__[0] = 'x';
// expect: error #138 expression must be a modifiable lvalue
  i = __func__;
//    ^
// expect: warning #515 a value of type "const char *" cannot be assigned to an entity of type "int"
  i = __real__ i + __imag__ d;
  i = _Generic(__func__, const char *: 1, char *: 2);
}
const char *at_file = __func__;
