// options: --c11 --strict
// What converts to what without a cast, by assignment, in calls, returns and conditions.
struct s { int a; } s, *ps; struct t { int a; } t, *pt; union u { int a; } u;
int i, *pi; long l, *pl; char c, *pc; unsigned char *puc; float f, *pf; void *pv; const int *pci; int **ppi; const int **ppci;
int (*fi)(int); int (*fv)(void); void (*vi)(int); int old(); _Bool b; enum e { A } e; volatile int *pvi; int (*pa)[3]; int a3[3];
void take(int, int *, struct s, float, const char *);
void assignments(void) {
  i = pi; pi = i; pi = 0; pi = pl; pi = pv; pv = pi; pci = pi; pi = pci; pi = pvi;
//    ^
// expect: error #515 a value of type "int *" cannot be assigned to an entity of type "int"
//             ^
// expect: error #515 a value of type "int" cannot be assigned to an entity of type "int *"
//                             ^
// expect: error #515 a value of type "long *" cannot be assigned to an entity of type "int *"
//                                                                  ^
// expect: error #515 a value of type "const int *" cannot be assigned to an entity of type "int *"
//                                                                            ^
// expect: error #515 a value of type "volatile int *" cannot be assigned to an entity of type "int *"
  ppci = ppi; pc = puc; f = i; i = f; f = pf; pf = f; c = 300;
//       ^
// expect: error #515 a value of type "int **" cannot be assigned to an entity of type "const int **"
//                 ^
// expect: error #515 a value of type "unsigned char *" cannot be assigned to an entity of type "char *"
//                                        ^
// expect: error #515 a value of type "float *" cannot be assigned to an entity of type "float"
//                                                 ^
// expect: error #515 a value of type "float" cannot be assigned to an entity of type "float *"
//                                                        ^
// expect: warning #70 integer conversion resulted in truncation
  s = t; ps = pt; ps = &s; s = 0; u = s; t = ps;
//    ^
// expect: error #515 a value of type "struct t" cannot be assigned to an entity of type "struct s"
//            ^
// expect: error #515 a value of type "struct t *" cannot be assigned to an entity of type "struct s *"
//                             ^
// expect: error #515 a value of type "int" cannot be assigned to an entity of type "struct s"
//                                    ^
// expect: error #515 a value of type "struct s" cannot be assigned to an entity of type "union u"
//                                           ^
// expect: error #515 a value of type "struct s *" cannot be assigned to an entity of type "struct t"
  fi = fv; fi = old; fi = vi; fi = &take; fi = take; pv = fi; fi = pv;
//     ^
// expect: error #515 a value of type "int (*)(void)" cannot be assigned to an entity of type "int (*)(int)"
//                        ^
// expect: error #515 a value of type "void (*)(int)" cannot be assigned to an entity of type "int (*)(int)"
//                                 ^
// expect: error #515 a value of type "void (*)(int, int *, struct s, float, const char *)" cannot be assigned to an entity of type "int (*)(int)"
//                                             ^
// expect: error #515 a value of type "void (*)(int, int *, struct s, float, const char *)" cannot be assigned to an entity of type "int (*)(int)"
//                                                        ^
// expect: error #515 a value of type "int (*)(int)" cannot be assigned to an entity of type "void *"
//                                                                 ^
// expect: error #515 a value of type "void *" cannot be assigned to an entity of type "int (*)(int)"
  b = pi; b = s; b = f; e = 5; e = A; i = e; pa = a3; pa = &a3; pi = a3; pi = &a3;
//            ^
// expect: error #515 a value of type "struct s" cannot be assigned to an entity of type "_Bool"
//                                                ^
// expect: error #515 a value of type "int *" cannot be assigned to an entity of type "int (*)[3]"
//                                                                            ^
// expect: error #515 a value of type "int (*)[3]" cannot be assigned to an entity of type "int *"
}
void calls(void) {
  take(1, pi, s, 2, "x");
  take(pi, 1, t, ps, 5);
//     ^
// expect: error #169 argument of type "int *" is incompatible with parameter of type "int"
//         ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "int *"
//            ^
// expect: error #169 argument of type "struct t" is incompatible with parameter of type "struct s"
//               ^
// expect: error #169 argument of type "struct s *" is incompatible with parameter of type "float"
//                   ^
// expect: error #169 argument of type "int" is incompatible with parameter of type "const char *"
  take(1.5, pl, s, i, puc);
//          ^
// expect: error #169 argument of type "long *" is incompatible with parameter of type "int *"
//                    ^
// expect: error #169 argument of type "unsigned char *" is incompatible with parameter of type "const char *"
  take(1, pci, u, pf, pc);
//        ^
// expect: error #169 argument of type "const int *" is incompatible with parameter of type "int *"
//             ^
// expect: error #169 argument of type "union u" is incompatible with parameter of type "struct s"
//                ^
// expect: error #169 argument of type "float *" is incompatible with parameter of type "float"
}
int return_int(void) { return pi; }
//                            ^
// expect: error #121 return value type "int *" does not match the function type "int"
int *return_pointer(void) { return 5; }
//                                 ^
// expect: error #121 return value type "int" does not match the function type "int *"
struct s return_struct(void) { return t; }
//                                    ^
// expect: error #121 return value type "struct t" does not match the function type "struct s"
void return_void(void) { return 5; }
//                       ^
// expect: error #119 a value is returned from a function that returns void
int return_nothing(void) { return; }
//                         ^
// expect: error #118 non-void function "return_nothing" should return a value
void return_expr(void) { return return_void(); }
//                       ^
// expect: error #119 a value is returned from a function that returns void
void conditions(void) {
  if (s) i = 1;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  while (t) i = 2;
//       ^
// expect: error #42 expression must have arithmetic or pointer type
  for (; u;) i = 3;
//       ^
// expect: error #42 expression must have arithmetic or pointer type
  i = s ? 1 : 2;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  i = !s;
//     ^
// expect: error #42 expression must have arithmetic or pointer type
  i = s && 1;
//    ^
// expect: error #42 expression must have arithmetic or pointer type
  pi = i ? pi : pl;
//       ^
// expect: warning #43 operand types are incompatible ("int *" and "long *")
  pi = i ? pi : 0;
  pv = i ? pv : pi;
  s = i ? s : s;
  s = i ? s : t;
//      ^
// expect: error #43 operand types are incompatible ("struct s" and "struct t")
  i = i ? 1 : pi;
//      ^
// expect: error #43 operand types are incompatible ("int" and "int *")
  i = i ? (void)0 : (void)0;
//    ^
// expect: error #515 a value of type "void" cannot be assigned to an entity of type "int"
  switch (f) { case 1: break; }
//        ^
// expect: error #31 expression must have integral type
  switch (pi) { case 0: break; }
//        ^
// expect: error #31 expression must have integral type
}
void casts(void) {
  i = (int)pi; pi = (int *)i; f = (float)pi; pi = (int *)f;
//                                       ^
// expect: error #173 invalid type conversion
//                                                       ^
// expect: error #173 invalid type conversion
  s = (struct s)t; s = (struct s)s; i = (int)s; pv = (void *)s;
//    ^
// expect: error #120 cast to type "struct s" is not allowed
//                     ^
// expect: error #120 cast to type "struct s" is not allowed
//                                           ^
// expect: error #173 invalid type conversion
//                                                           ^
// expect: error #173 invalid type conversion
  (void)s; (int[3])a3; (int (void))fi; fi = (int (*)(int))pv;
//         ^
// expect: error #120 cast to type "int [3]" is not allowed
//                     ^
// expect: error #120 cast to type "int (void)" is not allowed
  i = (struct incomplete)i; u = (union u)i;
//    ^
// expect: error #120 cast to type "struct incomplete" is not allowed
//                              ^
// expect: error #120 cast to type "union u" is not allowed
}
void compares(void) {
  i = pi == pl; i = pi == i; i = pi == 0; i = pi < pv; i = pi < pl; i = pi < 0; i = s == s; i = fi < fi; i = fi == fv; i = pi - pl; i = pi + pi;
//       ^
// expect: warning #43 operand types are incompatible ("int *" and "long *")
//                     ^
// expect: error #43 operand types are incompatible ("int *" and "int")
//                                                            ^
// expect: warning #43 operand types are incompatible ("int *" and "long *")
//                                                                                  ^
// expect: error #42 expression must have arithmetic or pointer type
//                                                                                                              ^
// expect: error #43 operand types are incompatible ("int (*)(int)" and "int (*)(void)")
//                                                                                                                            ^
// expect: warning #43 operand types are incompatible ("int *" and "long *")
//                                                                                                                                      ^
// expect: error #31 expression must have integral type
  i = pv - pv; i = fi - fi; i = pi * 2; i = -pi; i = ~f; i = f % 2; i = f << 1; i = ps->a + s.a; i = &i + f;
//    ^
// expect: error #143 expression must have pointer-to-object type
//                 ^
// expect: error #143 expression must have pointer-to-object type
//                              ^
// expect: error #32 expression must have arithmetic type
//                                           ^
// expect: error #32 expression must have arithmetic type
//                                                    ^
// expect: error #31 expression must have integral type
//                                                           ^
// expect: error #31 expression must have integral type
//                                                                      ^
// expect: error #31 expression must have integral type
//                                                                                                        ^
// expect: error #31 expression must have integral type
}
