// options: --c11 --gcc --remarks
void f(int n) {
  switch (3) { case 3: ; }
//        ^
// expect: remark #239 the expression that selects in this switch is a constant
  int set; set = 3;
//    ^
// expect: remark #552 variable "set" was set but its value was never used
  for (int i = 0; i < 3; i++) { int i = 2; n += i; }
  return;
  for (; n;) ;
// expect: warning #129 loop is not reachable
}
void a(int n) { goto *n; }
//              ^
// expect: error #1489 GCC-style assigned goto not supported
//                    ^
// expect: warning #1177 an assigned goto needs an expression of type "void *", not "int"
int g(int n) {
  { int a[n]; return a[0]; }
//        ^
// expect: error #1489 a variable-length array is not supported
}
struct fields { int b : 1; signed c : 1; unsigned d : 1; };
//                  ^
// expect: remark #109 signed bit field of length 1
//                                ^
// expect: remark #109 signed bit field of length 1
const void h(void) {}
//         ^
// expect: remark #870 type qualifiers on a void return type have no effect
int (fa(void))[3];
//     ^
// expect: error #92 function returning array is not allowed
char main(void) { return 0; }
inline int never(int);
int use(void) { return never(1); }
unsigned _Complex ui;
// expect: error #1108 a floating-point type must be included in the type specifier for a _Complex or _Imaginary type
int *np = (int *)3;
float ov = 1e38f * 1e38f;
register int r1;
//           ^
// expect: error #151 a storage class of this kind is not allowed at file scope
enum huge { A = -1, B = 0xffffffffffffffffu };
// expect: warning #1694 no integer type holds all values of the enumeration
struct too_big { int a[1 << 28], b[1 << 28], c; };
//     ^
// expect: error #105 struct or union is too large
__attribute__((packed, packed)) int pk;
//                     ^
// expect: remark #2103 attribute "packed" appears more than once in one list
//             ^
// expect: warning #2104 attribute "packed" does not apply here
//                     ^
// expect: warning #2104 attribute "packed" does not apply here
