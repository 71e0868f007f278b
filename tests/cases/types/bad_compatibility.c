// options: --c11 --gcc
struct s { int x; };
struct t { int x; };
enum e { e1 };
enum f { f1 };
typedef int number;
typedef struct s same;
extern int a1; extern number a1; extern signed a1; extern signed int a1;
extern long a2; extern long int a2; extern int long signed a2;
extern int a3; extern long a3;
//                         ^
// expect: error #148 declaration is incompatible with variable "a3"
extern char a4; extern signed char a4;
//                                 ^
// expect: error #148 declaration is incompatible with variable "a4"
extern char a5; extern unsigned char a5;
//                                   ^
// expect: error #148 declaration is incompatible with variable "a5"
extern struct s a6; extern same a6;
extern struct s a7; extern struct t a7;
//                                  ^
// expect: error #148 declaration is incompatible with variable "a7"
extern enum e a8; extern enum f a8;
//                              ^
// expect: error #148 declaration is incompatible with variable "a8"
extern enum e a9; extern enum e a9;
extern int *b1; extern number *b1;
extern int *b2; extern unsigned *b2;
//                               ^
// expect: error #148 declaration is incompatible with variable "b2"
extern const int *b3; extern int const *b3;
extern const int *b4; extern int *const b4;
//                                      ^
// expect: error #148 declaration is incompatible with variable "b4"
extern int b5[3]; extern number b5[1 + 2];
extern int b6[]; extern int b6[3]; extern int b6[];
extern int (*b7)[]; extern int (*b7)[3];
extern int (*b8)[2]; extern int (*b8)[3];
//                                ^
// expect: error #148 declaration is incompatible with variable "b8"
extern int b9[][3]; extern int b9[2][3];
extern int c1[][3]; extern int c1[][4];
//                             ^
// expect: error #148 declaration is incompatible with variable "c1"
extern int *c2[3]; extern int (*c2)[3];
//                              ^
// expect: error #148 declaration is incompatible with variable "c2"
int d1(); int d1(int); int d1();
int d2(); int d2(short);
//            ^
// expect: error #148 declaration is incompatible with function "d2()"
int d3(); int d3(float);
//            ^
// expect: error #148 declaration is incompatible with function "d3()"
int d4(); int d4(double, ...);
//            ^
// expect: error #148 declaration is incompatible with function "d4()"
int d5(int, ...); int d5(int);
//                    ^
// expect: error #148 declaration is incompatible with function "d5(int, ...)"
int d6(void); int d6();
int d7(void); int d7(int);
//                ^
// expect: error #148 declaration is incompatible with function "d7(void)"
int d8(int, int); int d8(int);
//                    ^
// expect: error #148 declaration is incompatible with function "d8(int, int)"
int d9(const int); int d9(int); int d9(volatile int x);
int e2(int[3]); int e2(int[5]); int e2(int *const); int e2(int *restrict);
int e3(const int *); int e3(int *);
//                       ^
// expect: error #148 declaration is incompatible with function "e3(const int *)"
int e4(int (int)); int e4(int (*)(int));
int e5(int (*)()); int e5(int (*)(int)); int e5(int (*)(int));
int e6(int (*)(int)); int e6(int (*)(long));
//                        ^
// expect: error #148 declaration is incompatible with function "e6(int (*)(int))"
struct s e7(void); struct t e7(void);
//                          ^
// expect: error #148 declaration is incompatible with function "e7(void)"
int *e8(void); const int *e8(void);
//                        ^
// expect: error #148 declaration is incompatible with function "e8(void)"
int e9(struct s); int e9(same);
int g1(enum e); int g1(enum e);
int g2(a, b) int a; float b; { return a; }
int g2(int, double);
int g3(a, b) int a; float b; { return a; }
int g3(int, float);
//  ^
// expect: error #148 declaration is incompatible with function "g3()"
int g4(a) char a; { return a; }
int g4(int);
int g7() { return 0; }
int g7(int);
int g8(int); int g8() { return 0; }
void h1(int x[3], int (*y)[]) {
  int (*p)[3] = y, (*q)[] = p;
  int (*r)[4] = p;
//              ^
// expect: warning #145 a value of type "int (*)[3]" cannot be used to initialize an entity of type "int (*)[4]"
  struct s s1 = {1}, *s2 = &s1;
  struct t t1 = s1, *t2 = s2;
//              ^
// expect: error #145 a value of type "struct s" cannot be used to initialize an entity of type "struct t"
//                        ^
// expect: warning #145 a value of type "struct s *" cannot be used to initialize an entity of type "struct t *"
  int (*u)() = h1, (*v)(int) = d1, (*w)(float) = d1;
//             ^
// expect: warning #145 a value of type "void (*)(int *, int (*)[])" cannot be used to initialize an entity of type "int (*)()"
//                                               ^
// expect: warning #145 a value of type "int (*)(int)" cannot be used to initialize an entity of type "int (*)(float)"
  enum e k = f1;
  int *m = &k;
//         ^
// expect: warning #145 a value of type "enum e *" cannot be used to initialize an entity of type "int *"
  unsigned *n = x;
//              ^
// expect: warning #145 a value of type "int *" cannot be used to initialize an entity of type "unsigned int *"
  char **o = 0;
  const char **c = o;
//                 ^
// expect: warning #145 a value of type "char **" cannot be used to initialize an entity of type "const char **"
  void *any = o, (*fp)(void) = any;
  signed char *sc = "text";
//                  ^
// expect: warning #145 a value of type "char *" cannot be used to initialize an entity of type "signed char *"
  (void)(p == q);
  (void)(p == r);
//         ^
// expect: warning #43 operand types are incompatible ("int (*)[3]" and "int (*)[4]")
  (void)(x == n);
//         ^
// expect: warning #43 operand types are incompatible ("int *" and "unsigned int *")
  (void)(s2 == t2);
//          ^
// expect: warning #43 operand types are incompatible ("struct s *" and "struct t *")
  (void)(x == any);
  s1 == s1;
// expect: error #42 expression must have arithmetic or pointer type
  sc = x ? o : p;
//       ^
// expect: warning #43 operand types are incompatible ("char **" and "int (*)[3]")
}
