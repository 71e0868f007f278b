// options: --c99
int i;
const int k = 3;
int a[k];
//    ^
// expect: error #28 expression must have a constant value
int b = i;
//      ^
// expect: error #28 expression must have a constant value
int c = i + 1;
//      ^
// expect: error #28 expression must have a constant value
int *d = &i + i;
//       ^
// expect: error #28 expression must have a constant value
int e[] = {1, i};
//            ^
// expect: error #28 expression must have a constant value
enum { E = i };
//         ^
// expect: error #28 expression must have a constant value
struct { int f : i; } s;
//               ^
// expect: error #28 expression must have a constant value
int g(int n) { switch (n) { case i: return 1; } return 0; }
//                               ^
// expect: error #28 expression must have a constant value
static double h = 1.5 + i;
//                ^
// expect: error #28 expression must have a constant value
int j = 1 / 0;
//        ^
// expect: error #40 division by zero
int l = 1 % 0;
//        ^
// expect: error #181 right operand of "%" is zero
int m = 2147483647 + 1;
//                 ^
// expect: warning #62 integer operation result is out of range
int n = (i = 3);
//         ^
// expect: error #58 this operator is not allowed in a constant expression
int o = i++;
//      ^
// expect: error #58 this operator is not allowed in a constant expression
int p = (1, 2);
//        ^
// expect: error #58 this operator is not allowed in a constant expression
int q[sizeof(int) - 5];
//    ^
// expect: error #96 array is too large
char r[(char *)0 - (char *)0 + 1];
int t = sizeof(i++);
int u = 1 ? 2 : i;
int v = 0 && i;
int w = i ? 1 : 2;
//      ^
// expect: error #28 expression must have a constant value
int x = -1 << 2;
int y = 1 << 40;
int z = 1 << -1;
//        ^
// expect: error #63 shift count is negative
long long aa = 1LL << 40;
unsigned bb = -1;
//            ^
// expect: warning #69 integer conversion resulted in a change of sign
unsigned char cc = 300;
//                 ^
// expect: warning #70 integer conversion resulted in truncation
signed char dd = 200;
//               ^
// expect: warning #69 integer conversion resulted in a change of sign
int ee = 1.9;
int ff = 1e30;
//       ^
// expect: error #175 floating-point value does not fit in required integral type
float gg = 1e300;
//         ^
// expect: error #223 floating-point value does not fit in required floating-point type
int hh = 'ab';
//       ^
// expect: warning #1696 multicharacter character literal (potential portability problem)
int *ii = 5;
//        ^
// expect: warning #145 a value of type "int" cannot be used to initialize an entity of type "int *"
int *jj = (int *)5;
char *kk = "a" "b";
int ll = "abc";
//       ^
// expect: warning #145 a value of type "char *" cannot be used to initialize an entity of type "int"
int mm = &i;
//       ^
// expect: warning #145 a value of type "int *" cannot be used to initialize an entity of type "int"
