// options: --c11
struct Open;
struct S { int a; } s, *ps;
struct T { int a; } *pt;
struct Open *po, *po2;
void *pv;
int (*pf)(int), (*pg)(void), fn(int);
int i, *p, arr[4], (*parr)[4], (*pun)[], **pp;
const int *pc;
char *c;
float f;
_Bool b;
enum E { E0, E1 } e;
void add(void) {
  p = p + i;
  p = i + p;
  p = arr + e;
  p = p + b;
  p = 2 - p;
//        ^
// expect: error #32 expression must have arithmetic type
  p = p + 1.0;
//        ^
// expect: error #31 expression must have integral type
  p = p + p;
//    ^
// expect: error #31 expression must have integral type
  p = -p;
//     ^
// expect: error #32 expression must have arithmetic type
  p = +p;
//     ^
// expect: error #32 expression must have arithmetic type
  p = ~p;
//     ^
// expect: error #31 expression must have integral type
  i = !p;
  po = po + 1;
//     ^
// expect: error #143 expression must have pointer-to-object type
  po++;
// expect: error #143 expression must have pointer-to-object type
  po += 2;
// expect: error #143 expression must have pointer-to-object type
  po[1];
// expect: error #143 expression must have pointer-to-object type
  i = po - po2;
//    ^
// expect: error #143 expression must have pointer-to-object type
  i = pun - pun;
//    ^
// expect: error #143 expression must have pointer-to-object type
  pun++;
// expect: error #143 expression must have pointer-to-object type
  i = p - pc;
  i = p - c;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "char *")
  i = ps - pt;
//       ^
// expect: error #43 operand types are incompatible ("struct S *" and "struct T *")
  i = pp - (int **)0;
  p -= p;
//     ^
// expect: error #31 expression must have integral type
  p += f;
//     ^
// expect: error #31 expression must have integral type
  p %= 2;
// expect: error #31 expression must have integral type
  p <<= 1;
// expect: error #31 expression must have integral type
  i = p / 2;
//    ^
// expect: error #32 expression must have arithmetic type
  i = p & 1;
//    ^
// expect: error #31 expression must have integral type
  i = i[arr];
  i = i[i];
//    ^
// expect: error #45 expression must have pointer type
  i = p[f];
//      ^
// expect: error #31 expression must have integral type
  i = arr[ps];
//        ^
// expect: error #31 expression must have integral type
  i = s[0];
//    ^
// expect: error #45 expression must have pointer type
  i = parr[0][1][2];
//    ^
// expect: error #45 expression must have pointer type
  i = *s;
//     ^
// expect: error #76 operand of "*" must be a pointer
  i = **p;
//     ^
// expect: error #76 operand of "*" must be a pointer
  i = **pp;
  i = (*fn)(1) + (**fn)(2);
  i = *pf(1);
//     ^
// expect: error #76 operand of "*" must be a pointer
  ++pf;
  --s;
//  ^
// expect: error #32 expression must have arithmetic type
  ++e;
  ++f;
  i = i << p;
//         ^
// expect: error #31 expression must have integral type
  i = s << 1;
//    ^
// expect: error #31 expression must have integral type
}
void compare(void) {
  i = p == 0;
  i = p == (void *)0;
  i = p == pv;
  i = pc == p;
  i = p < pv;
  i = p == c;
//      ^
// expect: warning #43 operand types are incompatible ("int *" and "char *")
  i = p < c;
//      ^
// expect: warning #43 operand types are incompatible ("int *" and "char *")
  i = ps == pt;
//       ^
// expect: warning #43 operand types are incompatible ("struct S *" and "struct T *")
  i = p == 1;
//      ^
// expect: warning #43 operand types are incompatible ("int *" and "int")
  i = p < i;
//      ^
// expect: warning #43 operand types are incompatible ("int *" and "int")
  i = p > 0;
  i = p == f;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "float")
  i = p == s;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "struct S")
  i = s == s;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  i = s < s;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  i = pf == pg;
//       ^
// expect: warning #43 operand types are incompatible ("int (*)(int)" and "int (*)(void)")
  i = pf == 0;
  i = pf == fn;
  i = pf == p;
//       ^
// expect: warning #43 operand types are incompatible ("int (*)(int)" and "int *")
  i = po == po2;
  i = po < po2;
  i = arr == p;
  i = parr == &arr;
  i = pun == &arr;
  i = e == 1;
  i = fn == 0;
  i = f == i;
  i = s && p;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  i = p && f || e;
  i = !s;
//     ^
// expect: error #42 expression must have arithmetic or pointer type
  i = fn && pf;
}
void choose(void) {
  p = i ? p : 0;
  p = i ? 0 : p;
  p = i ? p : pv;
  pv = i ? pc : pv;
//     ^
// expect: warning #515 a value of type "const void *" cannot be assigned to an entity of type "void *"
  p = i ? pc : p;
//    ^
// expect: warning #515 a value of type "const int *" cannot be assigned to an entity of type "int *"
  p = i ? p : c;
//      ^
// expect: warning #43 operand types are incompatible ("int *" and "char *")
  p = i ? p : 1;
//      ^
// expect: warning #43 operand types are incompatible ("int *" and "int")
  p = i ? p : f;
//      ^
// expect: error #43 operand types are incompatible ("int *" and "float")
  ps = i ? ps : pt;
//       ^
// expect: warning #43 operand types are incompatible ("struct S *" and "struct T *")
  s = i ? s : s;
  s = i ? s : *pt;
//      ^
// expect: error #43 operand types are incompatible ("struct S" and "struct T")
  s ? 1 : 2;
// expect: error #42 expression must have arithmetic or pointer type
  i ? (void)0 : (void)1;
  i ? (void)0 : 1;
  i = i ? fn(1) : f;
  pf = i ? fn : pf;
  pf = i ? fn : pg;
//       ^
// expect: warning #43 operand types are incompatible ("int (*)(int)" and "int (*)(void)")
  pf = i ? fn : 0;
  i = p ? 1 : 2;
  i = (i ? (void)0 : (void)1);
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  parr = i ? &arr : pun;
}
