// options: --c99
extern int object, array[10];
extern int function(int);
struct s { int a, b; struct { int c[4]; } d; } record;
static int other = 3;
static const int constant = 4;
int *a1 = &object;
int *a2 = array + 3, *a3 = &array[4], *a4 = 2 + array - 1;
int *a5 = &record.d.c[2], *a6 = record.d.c + 1;
int (*a7)(int) = function, (*a8)(int) = &function, (*a9)(int) = *function;
char *b1 = "text", *b2 = "text" + 1, *b3 = &"text"[2];
long b4 = (long)&object, b5 = (long)function;
int b6 = sizeof(array), b7 = (int)1.5, b8 = 3 > 2 ? 4 : 1 / 1;
int b9 = (char *)&record.b - (char *)&record;
int c1 = &array[4] - &array[1];
int *c2 = (int *)0x1000, *c3 = 0, *c4 = (void *)0;
int c5 = 1 || 1 / 0, c6 = 0 && 1 / 0, c7 = 1 ? 2 : 1 / 0;
double c8 = 1.0 / 3, c9 = -1;
int d1 = (long)&((struct s *)0)->b, d2 = __builtin_offsetof(struct s, d.c[1]);
float d4 = 1 << 3;
int d5 = 'a' + L'b';
int *d6 = &*&object, *d7 = &(*(&record)).b;
int (*d8)[10] = &array;
struct s d9 = {1, sizeof(struct s), {{'a', 2.0, (int)3.7}}};
int e1 = object;
//       ^
// expect: error #28 expression must have a constant value
int e2 = other;
//       ^
// expect: error #28 expression must have a constant value
int e3 = function(1);
//               ^
// expect: error #60 function call is not allowed in a constant expression
int e4 = array[1];
//       ^
// expect: error #28 expression must have a constant value
int e5 = record.a;
//       ^
// expect: error #28 expression must have a constant value
int *e6 = &object + other;
//        ^
// expect: error #28 expression must have a constant value
int e7 = other++;
//       ^
// expect: error #58 this operator is not allowed in a constant expression
int e8 = (1, 2);
//         ^
// expect: error #58 this operator is not allowed in a constant expression
int e9 = -object;
//       ^
// expect: error #28 expression must have a constant value
int f1 = object ? 1 : 2;
//       ^
// expect: error #28 expression must have a constant value
int f2 = 1 / 0;
//         ^
// expect: error #40 division by zero
int f3 = 1 % 0;
//         ^
// expect: error #181 right operand of "%" is zero
int *f4 = object ? &object : 0;
//        ^
// expect: error #28 expression must have a constant value
int f5 = *&object;
//       ^
// expect: error #28 expression must have a constant value
int f6 = (e1 = 3);
//           ^
// expect: error #58 this operator is not allowed in a constant expression
int *f9 = &record.d.c[other];
//        ^
// expect: error #28 expression must have a constant value
struct s g1 = {object, 2};
//             ^
// expect: error #28 expression must have a constant value
struct s g2 = record;
//            ^
// expect: error #28 expression must have a constant value
int g3[2] = {1, function(2)};
//                      ^
// expect: error #60 function call is not allowed in a constant expression
int *g4[] = {&object, array, 0, &other, (int *)"x"};
int g5 = (struct s){1, 2}.a;
//       ^
// expect: error #28 expression must have a constant value
int *g6 = &(struct s){1, 2}.a;
int *g7 = (int[]){1, 2, 3};
int *g9 = "text";
//        ^
// expect: warning #145 a value of type "char *" cannot be used to initialize an entity of type "int *"
char *h1 = &object;
//         ^
// expect: warning #145 a value of type "int *" cannot be used to initialize an entity of type "char *"
int h2 = "text";
//       ^
// expect: warning #145 a value of type "char *" cannot be used to initialize an entity of type "int"
int *h3 = 5;
//        ^
// expect: warning #145 a value of type "int" cannot be used to initialize an entity of type "int *"
int *h4 = 1.5;
//        ^
// expect: error #145 a value of type "double" cannot be used to initialize an entity of type "int *"
float h5 = &object;
//         ^
// expect: error #145 a value of type "int *" cannot be used to initialize an entity of type "float"
void *h6 = function;
int (*h7)(void) = function;
//                ^
// expect: warning #145 a value of type "int (*)(int)" cannot be used to initialize an entity of type "int (*)(void)"
const int *h8 = &constant;
int *h9 = &constant;
//        ^
// expect: warning #145 a value of type "const int *" cannot be used to initialize an entity of type "int *"
struct s *i1 = &d9.d;
//             ^
// expect: warning #145 a value of type "struct <unnamed> *" cannot be used to initialize an entity of type "struct s *"
enum { i2 = 3, i3 = i2 * 2, i4 = sizeof(int) };
int i5[i3 + i4] = {[i2] = 1, [i3] = 2};
int i6[object];
//     ^
// expect: error #28 expression must have a constant value
int i7[constant];
//     ^
// expect: error #28 expression must have a constant value
int i8[(int)2.5];
int i9[(int)(2.5 + 1)];
int j1[sizeof(int[3])];
int j2[1 ? 3 : object];
int j3[-(-3)];
int j4[function(1)];
//             ^
// expect: error #60 function call is not allowed in a constant expression
int j6["x"];
//     ^
// expect: error #159 expression must be an integral constant expression
int j7[3.0];
//     ^
// expect: error #159 expression must be an integral constant expression
int j8[1 / 0];
//       ^
// expect: error #40 division by zero
enum { k1 = object, k4 };
//          ^
// expect: error #28 expression must have a constant value
void block(int x) {
  static int y = x;
//               ^
// expect: error #28 expression must have a constant value
  static int z = sizeof(x);
  static int *w = &y;
  switch (x) {
    case constant: break;
//       ^
// expect: error #28 expression must have a constant value
    case i3: break;
    case 1 ? 2 : 3: break;
    case x: break;
//       ^
// expect: error #28 expression must have a constant value
    case 1.5: break;
//       ^
// expect: error #159 expression must be an integral constant expression
  }
}
