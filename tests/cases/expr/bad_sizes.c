// options: --c11
struct Open;
struct S { int a; char c; int bits : 3; int arr[4]; struct { short in; }; struct S *next; } s;
struct Flex { int n; int tail[]; } fl;
extern int unbounded[];
void v(void);
int i;
typedef unsigned size;
int n1 = sizeof(struct S), n2 = sizeof s.arr / sizeof *s.arr, n3 = sizeof(s).a;
_Static_assert(sizeof(char) == 1 && sizeof 'a' == sizeof(int), "c");
_Static_assert(sizeof(struct Flex) == 4, "flex");
_Static_assert(sizeof "abc" == 4 && sizeof L"ab" == 3 * sizeof *L"", "strings");
_Static_assert(_Alignof(double) == 8 || _Alignof(double) == 4, "align");
_Static_assert(sizeof(int[2][3]) == 24, "arrays");
_Static_assert(sizeof(char) - 2 > 0, "unsigned");
_Static_assert(sizeof((char)1 + (char)1) == sizeof(int), "promoted");
_Static_assert(sizeof(1 ? 1.0f : 1) == sizeof(float), "float");
size z[] = {
  sizeof(struct Open),
//      ^
// expect: error #71 incomplete type is not allowed
  sizeof v,
  sizeof(void(void)),
  sizeof v(),
  sizeof(void),
  sizeof unbounded,
//       ^
// expect: error #71 incomplete type is not allowed
  sizeof(int[]),
//      ^
// expect: error #71 incomplete type is not allowed
  sizeof fl.tail,
//       ^
// expect: error #71 incomplete type is not allowed
  sizeof s.bits,
//       ^
// expect: error #72 "sizeof" may not be applied to a bit-field
  sizeof(s.bits + 0),
  sizeof(nothing),
//       ^
// expect: error #20 identifier "nothing" is undefined
  sizeof(i),
  sizeof i++,
  sizeof,
//      ^
// expect: error #29 expected an expression
  sizeof(int) * 2,
  sizeof -1,
  sizeof(int) - 1,
  sizeof & i,
  sizeof(int) & 7,
  sizeof(struct S *) + sizeof s.next->next->next->a,
  _Alignof(struct Open),
//        ^
// expect: error #71 incomplete type is not allowed
  _Alignof(void(void)),
  _Alignof(int[5]),
  _Alignof(int[]),
  _Alignof(void),
  _Alignof(struct S),
  sizeof(int)1,
//           ^
// expect: error #68 expected a "}"
  sizeof(lost),
};
#define offsetof(t, m) __builtin_offsetof(t, m)
_Static_assert(offsetof(struct S, c) == 4, "offset");
_Static_assert(offsetof(struct S, arr[2]) == offsetof(struct S, arr) + 8, "element");
_Static_assert(offsetof(struct S, in) == offsetof(struct S, next) - 4, "anonymous");
size y[] = {
  offsetof(struct S, bits),
// expect: error #1699 cannot take the offset of a bit-field
  offsetof(struct S, missing),
// expect: error #137 struct "S" has no field "missing"
  offsetof(struct Open, a),
// expect: error #71 incomplete type is not allowed
  offsetof(int, a),
// expect: error #156 expression must have struct or union type
  offsetof(struct S *, a),
// expect: error #156 expression must have struct or union type
  offsetof(struct S, a.b),
// expect: error #156 expression must have struct or union type
  offsetof(struct S, next->a),
// expect: error #18 expected a ")"
  offsetof(struct S, a[1]),
// expect: error #45 expression must have pointer type
  offsetof(struct S, arr[i]),
// expect: error #28 expression must have a constant value
  offsetof(struct S, arr[-1]),
  offsetof(struct S, 3),
// expect: error #135 expected a field name
  __builtin_offsetof(struct S),
//                           ^
// expect: error #255 expected a ","
};
