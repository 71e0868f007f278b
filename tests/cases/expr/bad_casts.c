// options: --c11
struct S { int a; } s, *ps;
union U { int i; struct S s; } u;
struct Open;
typedef int F(int);
typedef int A[3];
int i, *p, arr[3];
const int *pc;
float f;
enum E { E0 } e;
enum NotYet;
void v(void);
F fn;
void casts(void) {
  i = (int)f;
  f = (float)i;
  p = (int *)i;
  i = (int)p;
  i = (char)p;
//    ^
// expect: warning #770 conversion from pointer to smaller integer
  f = (float)p;
//           ^
// expect: error #173 invalid type conversion
  p = (int *)f;
//           ^
// expect: error #173 invalid type conversion
  p = (int *)(long)f;
  ps = (struct S *)p;
  s = (struct S)s;
  s = (struct S)i;
//    ^
// expect: error #120 cast to type "struct S" is not allowed
  i = (int)s;
//         ^
// expect: error #173 invalid type conversion
  i = (struct Open)i;
//    ^
// expect: error #120 cast to type "struct Open" is not allowed
  u = (union U)s;
  (A)p;
// expect: error #120 cast to type "A" is not allowed
  (A)arr;
// expect: error #120 cast to type "A" is not allowed
  (F)fn;
// expect: error #120 cast to type "F" is not allowed
  (F *)fn;
// expect: warning #176 expression has no effect
  (F *)p;
// expect: warning #176 expression has no effect
  (void)s;
  (void)v();
  i = (int)v();
//         ^
// expect: error #42 expression must have arithmetic or pointer type
  i = (void)0;
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  f = (const float)i;
  p = (int *const)p;
  p = (int *)pc;
  e = (enum E)2.5;
  i = (int)(void)1;
//         ^
// expect: error #42 expression must have arithmetic or pointer type
  i = (int)"abc";
  i = (int)arr;
  i = (int)fn;
  (int)i++;
  (int){i}++;
  i = (int x)1;
//         ^
// expect: error #18 expected a ")"
  i = (static int)1;
//     ^
// expect: error #29 expected an expression
  i = (int)
      ;
//    ^
// expect: error #29 expected an expression
  i = (unknown)1;
//     ^
// expect: error #20 identifier "unknown" is undefined
  i = (int[])1;
//    ^
// expect: error #120 cast to type "int []" is not allowed
  (void (*)(int))fn;
// expect: warning #176 expression has no effect
  i = ((int (*)(void))p)();
  i = (_Bool)p + (_Bool)f;
  i = (_Bool)s;
//           ^
// expect: error #173 invalid type conversion
  i = (float)i % 2;
//    ^
// expect: error #31 expression must have integral type
  i = (struct Fresh { int m; } *)p == 0;
  i = sizeof(struct Fresh);
}
