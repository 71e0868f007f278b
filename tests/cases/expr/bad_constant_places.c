// options: --c11
int v, fn(void), arr[4];
const int k = 2;
struct S { int a, b[3]; } s;
enum { N = 3 };
int *p = &v;
int a1[N], a2[sizeof(int)], a3[(int)2.5], a4[1 ? 2 : 0], a5['a' - 'Z'], a6[N == 3 ? 1 : -1];
int b1[v];
//     ^
// expect: error #28 expression must have a constant value
int b2[fn()];
//       ^
// expect: error #60 function call is not allowed in a constant expression
int b3[k];
//     ^
// expect: error #28 expression must have a constant value
int b4[2.0];
//     ^
// expect: error #159 expression must be an integral constant expression
int b5[-1];
//     ^
// expect: error #95 the size of an array must be greater than zero
int b6[0 - N];
//     ^
// expect: error #95 the size of an array must be greater than zero
int b7["abc"[0]];
//     ^
// expect: error #28 expression must have a constant value
int b8[(int)&v];
//     ^
// expect: error #28 expression must have a constant value
int b9[N ? N : v];
int b10[N && v];
//      ^
// expect: error #28 expression must have a constant value
int b11[1 / (N - 3)];
//        ^
// expect: error #40 division by zero
int b12[p];
//      ^
// expect: error #159 expression must be an integral constant expression
int b13[s];
//      ^
// expect: error #159 expression must be an integral constant expression
int b14[(1, 2)];
//        ^
// expect: error #58 this operator is not allowed in a constant expression
int b15[v = 1];
//        ^
// expect: error #58 this operator is not allowed in a constant expression
int b16[];
//  ^
// expect: warning #1951 array assumed to have one element
enum { C1 = v, C2 = C1 + 1, C3 };
//          ^
// expect: error #28 expression must have a constant value
enum { D1 = 2.5 };
//          ^
// expect: error #159 expression must be an integral constant expression
enum { D2 = (int)2.5, D3 = D2 << 3, D4 = ~D3, D5 = !D4 };
enum { D6 = 1 / 0 };
//            ^
// expect: error #40 division by zero
enum { D7 = 1 % (D5 - D5) };
//            ^
// expect: error #181 right operand of "%" is zero
enum { D8 = &v };
//          ^
// expect: error #159 expression must be an integral constant expression
enum { D9 = D9 + 1 };
//          ^
// expect: error #20 identifier "D9" is undefined
enum { D10 = undefined_name, D11 };
//           ^
// expect: error #20 identifier "undefined_name" is undefined
enum { D12 = 0 && (1 / 0), D13 = 1 || (1 % 0), D14 = 0 ? 1 / 0 : 2 };
struct B {
  int f1 : v;
//         ^
// expect: error #28 expression must have a constant value
  int f2 : 1.5;
//         ^
// expect: error #159 expression must be an integral constant expression
  int f3 : -1;
//         ^
// expect: error #106 invalid size for bit field
  int f4 : 33;
//         ^
// expect: error #106 invalid size for bit field
  int f5 : 0;
//         ^
// expect: error #108 a zero-length bit field must be unnamed
  int : 0;
  int f6 : N;
  int f7 : 1 / 0;
//           ^
// expect: error #40 division by zero
  int f8 : sizeof(char) * 4;
  int f9 : (1, 2);
//           ^
// expect: error #58 this operator is not allowed in a constant expression
};
_Static_assert(N == 3, "fine");
_Static_assert(v, "not constant");
//             ^
// expect: error #28 expression must have a constant value
_Static_assert(0, "fails");
// expect: error #1847 static assertion failed with "fails"
_Static_assert(1.5, "float");
//             ^
// expect: error #159 expression must be an integral constant expression
_Static_assert(sizeof(s) == 16 && N, "fine");
_Alignas(N) int al1;
//       ^
// expect: error #1166 invalid alignment value specified by attribute
_Alignas(v) int al2;
//       ^
// expect: error #28 expression must have a constant value
_Alignas(16) int al3;
int i1 = 1 + 2 * N, i2 = -N, i3 = sizeof s.b / sizeof *s.b;
int i4 = v;
//       ^
// expect: error #28 expression must have a constant value
int i5 = arr[1];
//       ^
// expect: error #28 expression must have a constant value
int i6 = *p;
//       ^
// expect: error #28 expression must have a constant value
int i7 = s.a;
//       ^
// expect: error #28 expression must have a constant value
int i8 = fn();
//         ^
// expect: error #60 function call is not allowed in a constant expression
int i9 = v++;
//       ^
// expect: error #58 this operator is not allowed in a constant expression
int i10 = (v, 1);
//          ^
// expect: error #58 this operator is not allowed in a constant expression
int i11 = (int)&v;
int i12 = !&v;
int i14 = &arr[3] - &arr[1];
int i15 = (char *)&arr[3] - (char *)&arr[1];
int i16 = &v - arr;
//        ^
// expect: error #28 expression must have a constant value
int *q1 = &arr[2], *q2 = arr + 1, *q3 = &s.b[1], *q4 = &*arr, *q5 = (int *)0x1000, *q6 = (int *)&s;
int *q7 = &arr[v];
//        ^
// expect: error #28 expression must have a constant value
int *q8 = p;
//        ^
// expect: error #28 expression must have a constant value
int *q9 = &p[1];
//        ^
// expect: error #28 expression must have a constant value
int *q10 = 1 ? &v : 0;
int *q11 = v ? &v : 0;
//         ^
// expect: error #28 expression must have a constant value
int (*f1)(void) = fn, (*f2)(void) = &fn, (*f3)(void) = *fn;
char *t1 = "abc" + 1, *t2 = &"abc"[1];
struct S s1 = {1, {2, 3}}, s2 = s;
//                              ^
// expect: error #28 expression must have a constant value
struct S *ps = &s, *ps2 = ps;
//                        ^
// expect: error #28 expression must have a constant value
float fl1 = 1 / 2 + 1.0f / 3, fl2 = N, fl3 = (float)N / 2;
float fl4 = v;
//          ^
// expect: error #28 expression must have a constant value
double d1 = 1.0 / 0.0, d2 = 0.0 / 0.0, d3 = -1.0 / 0.0;
