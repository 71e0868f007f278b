// options: --c11
typedef unsigned U;
int i, j, *p, arr[3], fn(void);
volatile int vol, *pvol;
unsigned u;
unsigned char uc;
char *c;
const char *cc;
enum A { A0, A1 } ea;
enum B { B0, B1 } eb;
struct S { int a; } s;
void effects(void) {
  i;
// expect: warning #176 expression has no effect
  5;
// expect: warning #176 expression has no effect
  i + 1;
// expect: warning #176 expression has no effect
  i == 1;
// expect: warning #176 expression has no effect
  -i;
// expect: warning #176 expression has no effect
  !i;
// expect: warning #176 expression has no effect
  (i);
// expect: warning #176 expression has no effect
  &i;
// expect: warning #176 expression has no effect
  *p;
// expect: warning #176 expression has no effect
  arr[1];
// expect: warning #176 expression has no effect
  s.a;
// expect: warning #176 expression has no effect
  s;
// expect: warning #176 expression has no effect
  (void)i;
  (void)(i + 1);
  (int)i;
// expect: warning #176 expression has no effect
  vol;
  *pvol;
  vol + 1;
// expect: warning #176 expression has no effect
  fn;
// expect: warning #176 expression has no effect
  fn();
  !fn();
// expect: warning #176 expression has no effect
  fn() + 1;
// expect: warning #176 expression has no effect
  i++, j++;
  i, j++;
// expect: warning #176 expression has no effect
  i++, j;
// expect: warning #176 expression has no effect
  i ? fn() : 0;
  i ? 1 : fn();
  i ? 1 : 2;
// expect: warning #176 expression has no effect
  i && fn();
  i || (j = 1);
  fn() && i;
// expect: warning #176 expression has no effect
  i && j;
// expect: warning #176 expression has no effect
  "text";
// expect: warning #176 expression has no effect
  sizeof i;
// expect: warning #176 expression has no effect
  *p++;
// expect: warning #176 expression has no effect
  (*p)++;
  p[0]++;
  ;
  (i = 1);
  (i = 1, j);
// expect: warning #176 expression has no effect
}
void compare(void) {
  i = u < 0;
//      ^
// expect: warning #188 pointless comparison of unsigned integer with zero
  i = u >= 0;
//      ^
// expect: warning #188 pointless comparison of unsigned integer with zero
  i = 0 > u;
  i = u == -1;
//         ^
// expect: warning #69 integer conversion resulted in a change of sign
  i = uc < 0;
//       ^
// expect: warning #188 pointless comparison of unsigned integer with zero
  i = uc == -1;
  i = u < -1;
//        ^
// expect: warning #69 integer conversion resulted in a change of sign
  i = i < u;
  i = i < 5u;
  i = i == u;
  i = ea == eb;
  i = ea < B1;
  i = ea == A1;
  i = &i == 0;
  i = arr == 0;
  i = fn == 0;
  i = c == "abc";
  i = (i == 1) == 2;
  i = 1 < i < 3;
}
void zero(void) {
  i = i / 0;
//        ^
// expect: warning #40 division by zero
  i = i % 0;
//        ^
// expect: warning #181 right operand of "%" is zero
  i /= 0;
//     ^
// expect: warning #40 division by zero
  i %= 0;
//     ^
// expect: warning #181 right operand of "%" is zero
  i = i / 0.0;
  i = i / (1 - 1);
//        ^
// expect: warning #40 division by zero
  i = 1 ? 2 : i / 0;
  i = 0 && i / 0;
  i = sizeof(i / 0);
  i = i << 32;
  i = i << 31;
  i = i >> -1;
  i <<= 40;
  i = u >> 32;
  i = 1LL << 40 != 0;
  i = uc << 16;
}
void conversions(void) {
  c = cc;
//    ^
// expect: warning #515 a value of type "const char *" cannot be assigned to an entity of type "char *"
  cc = c;
  c = "abc";
  p = (int *)c;
  ea = eb;
//     ^
// expect: warning #190 enumerated type mixed with another type
  ea = 1;
  ea = 7;
  ea = B1;
  i = ea;
  p = 0;
  p = 5;
//    ^
// expect: warning #515 a value of type "int" cannot be assigned to an entity of type "int *"
  p = (void *)5;
  p = '\0';
  p = A0;
  p = 1 - 1;
  i = p;
//    ^
// expect: warning #515 a value of type "int *" cannot be assigned to an entity of type "int"
  i = (int)p;
  uc = (char)(int)p;
  pvol = p;
  p = (int *)pvol;
  p = pvol;
//    ^
// expect: warning #515 a value of type "volatile int *" cannot be assigned to an entity of type "int *"
  i = 3.7;
  c = L"wide";
//    ^
// expect: warning #515 a value of type "unsigned short *" cannot be assigned to an entity of type "char *"
  if (i = 5) ;
//    ^
// expect: warning #189 use of "=" where "==" may have been intended
//           ^
// expect: warning #2082 empty dependent statement in an if-statement
  while (i = j) ;
  if (p = 0) ;
//    ^
// expect: warning #189 use of "=" where "==" may have been intended
//           ^
// expect: warning #2082 empty dependent statement in an if-statement
  if ((i = 5)) ;
//             ^
// expect: warning #2082 empty dependent statement in an if-statement
  i = i++ + i;
}
