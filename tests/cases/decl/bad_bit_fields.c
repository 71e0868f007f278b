// options: --c99
enum small { one, two };
typedef unsigned word;
struct right {
  int a : 1;
  unsigned b : 32;
  signed c : 4;
  _Bool d : 1;
  char e : 8;
  unsigned short f : 16;
  long long g : 40;
  enum small h : 2;
  word i : 3;
  const int j : 2;
  volatile unsigned k : 2, : 0, l : 5;
  int : 3;
  unsigned : 0;
  int m : sizeof(int) * 2;
  int n : two + 1;
};
struct a { int x : 33; };
//                 ^
// expect: error #106 invalid size for bit field
struct b { char x : 9; };
//                  ^
// expect: error #106 invalid size for bit field
struct c { _Bool x : 2; };
//                   ^
// expect: error #106 invalid size for bit field
struct d { int x : 0; };
//                 ^
// expect: error #108 a zero-length bit field must be unnamed
struct e { int x : -1; };
//                 ^
// expect: error #106 invalid size for bit field
struct f { float x : 3; };
//               ^
// expect: error #107 invalid type for a bit field
struct g { int *x : 3; };
//              ^
// expect: error #107 invalid type for a bit field
struct h { struct right x : 3; };
//                      ^
// expect: error #107 invalid type for a bit field
struct i { int x[2] : 3; };
//             ^
// expect: error #107 invalid type for a bit field
struct j { int x() : 3; };
//             ^
// expect: error #107 invalid type for a bit field
struct k { void x : 3; };
//              ^
// expect: error #107 invalid type for a bit field
struct l { int x : 1.5; };
//                 ^
// expect: error #159 expression must be an integral constant expression
int width = 3;
struct m { int x : width; };
//                 ^
// expect: error #28 expression must have a constant value
struct n { int x : ; };
//                 ^
// expect: error #29 expected an expression
struct o { int : -3; };
//               ^
// expect: error #106 invalid size for bit field
struct p { int : 40; };
//               ^
// expect: error #106 invalid size for bit field
struct q { int : 3 = 1; };
//                 ^
// expect: error #58 this operator is not allowed in a constant expression
struct r { int x : 3 : 4; };
//                   ^
// expect: error #66 expected a ";"
struct s { short x : 17; long long y : 65; };
//                   ^
// expect: error #106 invalid size for bit field
//                                     ^
// expect: error #106 invalid size for bit field
struct t { int x : 3, x : 4; };
//                    ^
// expect: error #102 "x" has already been declared in the current scope
struct u { enum small x : 40; };
//                        ^
// expect: error #106 invalid size for bit field
int outside : 3;
//          ^
// expect: error #66 expected a ";"
struct right object;
int *use(void) {
  int local : 2;
//          ^
// expect: error #66 expected a ";"
  int *pointer = &object.a;
//                ^
// expect: error #140 taking the address of a bit-field is not allowed
  unsigned size = sizeof(object.b);
//                      ^
// expect: error #72 "sizeof" may not be applied to a bit-field
  unsigned size2 = sizeof(object.b + 0);
  __typeof__(object.c) copy;
//           ^
// expect: error #72 "sizeof" may not be applied to a bit-field
  object.a = 1;
  object.j = 1;
// expect: error #138 expression must be a modifiable lvalue
  object.k++;
  object.d = 4;
  return &object.m;
//        ^
// expect: error #140 taking the address of a bit-field is not allowed
}
int parameter(int x : 3);
//                  ^
// expect: error #18 expected a ")"
union v { int x : 3; int : 5; unsigned y : 30; };
