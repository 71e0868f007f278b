// options: --c99
struct s { int a; } v;
struct t { int a; } w;
const int k = 1;
const struct s kv;
//             ^
// expect: warning #259 const variable "kv" requires an initializer
struct kc { const int a; int b; } kcv, kcw;
int i, *p, arr[3];
double d;
char *c;
void (*fp)(void);
int fi(int);
void f(void) {
  3 = i;
// expect: error #138 expression must be a modifiable lvalue
  i + 1 = 2;
// expect: error #138 expression must be a modifiable lvalue
  arr = p;
// expect: error #138 expression must be a modifiable lvalue
  f = fp;
// expect: error #138 expression must be a modifiable lvalue
  k = 2;
// expect: error #138 expression must be a modifiable lvalue
  kv.a = 1;
// expect: error #138 expression must be a modifiable lvalue
  kcv = kcw;
// expect: error #138 expression must be a modifiable lvalue
  k++;
// expect: error #138 expression must be a modifiable lvalue
  i++ ++;
// expect: error #138 expression must be a modifiable lvalue
  v = w;
//    ^
// expect: error #515 a value of type "struct t" cannot be assigned to an entity of type "struct s"
  v = 1;
//    ^
// expect: error #515 a value of type "int" cannot be assigned to an entity of type "struct s"
  i = v;
//    ^
// expect: error #515 a value of type "struct s" cannot be assigned to an entity of type "int"
  d = p;
//    ^
// expect: error #515 a value of type "int *" cannot be assigned to an entity of type "double"
  p = d;
//    ^
// expect: error #515 a value of type "double" cannot be assigned to an entity of type "int *"
  fi(1) = 2;
// expect: error #138 expression must be a modifiable lvalue
  arr[0]++ = 1;
// expect: error #138 expression must be a modifiable lvalue
  (i) = (v);
//      ^
// expect: error #515 a value of type "struct s" cannot be assigned to an entity of type "int"
  "abc"[0] = 'x';
  i += p;
//     ^
// expect: error #32 expression must have arithmetic type
  p *= 2;
// expect: error #32 expression must have arithmetic type
  p += d;
//     ^
// expect: error #31 expression must have integral type
  d %= 2;
// expect: error #31 expression must have integral type
  v += 1;
// expect: error #32 expression must have arithmetic type
  &i = p;
// expect: error #138 expression must be a modifiable lvalue
}
