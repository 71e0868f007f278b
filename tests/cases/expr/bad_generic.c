// options: --c11
struct Open;
struct S { int a; } s;
int i, arr[3], n, fn(int), *p;
const int ci = 1;
char c;
float f;
double d;
#define KIND(x) _Generic((x), char: 1, int: 2, float: 3, double: 4, int *: 5, default: 0)
_Static_assert(KIND('a') == 2 && KIND((char)1) == 1 && KIND(1.0f) == 3, "scalars");
_Static_assert(KIND(1L) == 0 && KIND(1.0) == 4, "others");
_Static_assert(_Generic(1, default: 1, int: 2) == 2, "default first");
_Static_assert(_Generic(1u, default: _Generic(2, int: 7), int: 2) == 7, "nested");
enum { G = _Generic(0, int: 5) };
int bits[_Generic(1.0, double: 2, float: 3)];
int k1 = _Generic(s, struct S: 1, int: 2);
int k2 = _Generic(&s, struct S *: 1, void *: 2);
int k3 = _Generic(fn(1), int: 1);
int k4 = _Generic(1, int: 1, default: undefined_here);
//                                    ^
// expect: error #20 identifier "undefined_here" is undefined
void bad(int m) {
  i = _Generic(1, char: 1, float: 2);
//    ^
// expect: error #2895 no association matches the selector type "int"
  i = _Generic(1, int: 1, signed int: 2);
//                        ^
// expect: error #2894 type "int" appears more than once in the association list
  i = _Generic(1, default: 1, default: 2);
//                            ^
// expect: error #2892 the default association may appear only once
  i = _Generic(1, struct Open: 1, int: 2);
//                ^
// expect: error #71 incomplete type is not allowed
  i = _Generic(1, void: 1, int: 2);
//                ^
// expect: error #71 incomplete type is not allowed
  i = _Generic(1, int(int): 1, int: 2);
//                ^
// expect: error #358 type must be an object type
  i = _Generic(1, int[]: 1, int: 2);
//                ^
// expect: error #71 incomplete type is not allowed
  i = _Generic(1, int[3]: 1, int: 2);
  i = _Generic(1, int[m]: 1, int: 2);
//                    ^
// expect: error #1489 a variable-length array is not supported
  i = _Generic(1);
//    ^
// expect: error #2895 no association matches the selector type "int"
  i = _Generic(1,);
//               ^
// expect: error #80 expected a type specifier
  i = _Generic(int, int: 1);
//             ^
// expect: error #256 type name is not allowed
  i = _Generic(1, 2: 1);
//                ^
// expect: error #80 expected a type specifier
  i = _Generic(1, int 1);
//                    ^
// expect: error #54 expected a ":"
  i = _Generic(1, int: );
//                     ^
// expect: error #29 expected an expression
  i = _Generic(1, int: 1, );
//                        ^
// expect: error #80 expected a type specifier
  i = _Generic(1, int: 1;
//                      ^
// expect: error #18 expected a ")"
  i = _Generic(nothing, int: 1);
//             ^
// expect: error #20 identifier "nothing" is undefined
  i = _Generic(1, int: s, default: 1);
//    ^
// expect: error #515 a value of type "struct S" cannot be assigned to an entity of type "int"
  i = _Generic(1, int: i, default: 1) + 1;
  _Generic(1, int: i) = 5;
  _Generic(1, int: 3) = 5;
// expect: error #138 expression must be a modifiable lvalue
  p = &_Generic(1, int: i, char: c);
  i = _Generic(1, int: fn, default: i)(3);
  i = _Generic(i++, int: 1);
  i = _Generic(1, int: 1, default: s.missing);
//                                   ^
// expect: error #137 struct "S" has no field "missing"
}
