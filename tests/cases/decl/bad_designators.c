// options: --c99
struct point { int x, y; };
struct line { struct point from, to; int weight[3]; };
union either { int i; float f; struct point p; };
struct hidden { int a; union { int b; struct { int c, d; }; }; };
struct open { int n; int rest[]; };
int right1[] = {[2] = 1, 2, [0] = 3, [8] = 4};
int length1[sizeof(right1) / sizeof(right1[0]) == 9 ? 1 : -1];
struct line right2 = {.to.y = 1, .from = {1, 2}, .weight[1] = 5, 6};
struct line right3[] = {[1].from.x = 1, [1].to = {.y = 2}, [0] = {{1, 2}, {3, 4}, {5, 6, 7}}};
union either right4 = {.f = 1.5f}, right5 = {.p = {1, 2}}, right6 = {.p.y = 3};
struct hidden right7 = {.a = 1, .c = 2, .d = 3}, right8 = {1, {.b = 2}}, right9 = {1, 2};
int right10[4] = {[1 ... 2] = 7, 8};
int right11[][2] = {{1}, {[1] = 2}, [3] = {3, 4}};
int length2[sizeof(right11) / sizeof(right11[0]) == 4 ? 1 : -1];
struct open right12 = {2, {3, 4}};
char right13[] = {[3] = 'x', 0};
char right14[2][4] = {"abc", {"def"}};
char *right15[] = {[1] = "one", [0] = "zero"};
int wrong1[3] = {[3] = 1};
//                ^
// expect: error #177 subscript out of range
int wrong2[3] = {[-1] = 1};
//                ^
// expect: error #177 subscript out of range
int wrong3[3] = {[1 ... 3] = 1};
//                ^
// expect: error #177 subscript out of range
int wrong4[3] = {[2 ... 1] = 1};
//                ^
// expect: error #1010 the second bound of a designator range is below the first
int wrong5[3] = {.x = 1};
//               ^
// expect: error #1099 invalid designator kind
struct point wrong6 = {[0] = 1};
//                     ^
// expect: error #1099 invalid designator kind
struct point wrong7 = {.z = 1};
//                     ^
// expect: error #137 struct "point" has no field "z"
struct point wrong8 = {.y = 1, 2};
//                             ^
// expect: warning #1238 excess initializers are ignored
struct point wrong9 = {.x = 1, .y = 2, 3};
//                                     ^
// expect: warning #1238 excess initializers are ignored
int wrong10 = {[0] = 1};
//             ^
// expect: error #1099 invalid designator kind
int wrong11 = {.x = 1};
//             ^
// expect: error #1099 invalid designator kind
int wrong12[1.5] = {1};
//          ^
// expect: error #159 expression must be an integral constant expression
int wrong13[3] = {[1.5] = 1};
//                 ^
// expect: error #159 expression must be an integral constant expression
int index;
int wrong14[3] = {[index] = 1};
//                 ^
// expect: error #28 expression must have a constant value
struct line wrong15 = {.from.z = 1};
//                          ^
// expect: error #137 struct "point" has no field "z"
struct line wrong16 = {.weight[3] = 1};
//                             ^
// expect: error #177 subscript out of range
struct line wrong17 = {.weight.x = 1};
//                            ^
// expect: error #1099 invalid designator kind
struct line wrong18 = {.from[0] = 1};
//                          ^
// expect: error #1099 invalid designator kind
union either wrong19 = {1, 2};
//                         ^
// expect: warning #1238 excess initializers are ignored
union either wrong20 = {.p = {1, 2, 3}};
//                                  ^
// expect: warning #1238 excess initializers are ignored
int wrong21 = {};
//             ^
// expect: error #29 expected an expression
int wrong22 = {1, 2};
//                ^
// expect: warning #1238 excess initializers are ignored
int wrong23 = {{1}};
int wrong24[2] = {{1, 2}, 3};
//                    ^
// expect: warning #1238 excess initializers are ignored
int wrong25[2] = {1, 2, 3, 4};
//                      ^
// expect: warning #1238 excess initializers are ignored
int wrong26[2][2] = {{1, 2, 3}, {4}};
//                          ^
// expect: warning #1238 excess initializers are ignored
struct point wrong27 = {1, 2, 3};
//                            ^
// expect: warning #1238 excess initializers are ignored
struct point wrong28 = {{1}, 2};
char wrong29[3] = {"abcd"};
//                 ^
// expect: warning #2097 excess characters of the string literal are ignored
char wrong30[3] = {"ab", 'c'};
//                       ^
// expect: error #68 expected a "}"
char wrong31[] = {"ab" "cd", };
int wrong32[] = "ab";
//              ^
// expect: error #522 initialization with "{...}" expected for aggregate object
int wrong33[4] = {"ab"};
//                ^
// expect: warning #145 a value of type "char *" cannot be used to initialize an entity of type "int"
unsigned char right16[] = "ab";
signed char right17[3] = "ab";
unsigned short right18[] = L"ab";
unsigned short wrong34[] = "ab";
//                         ^
// expect: error #145 a value of type "char [3]" cannot be used to initialize an entity of type "unsigned short []"
char wrong35[] = L"ab";
//               ^
// expect: error #145 a value of type "unsigned short [3]" cannot be used to initialize an entity of type "char []"
short wrong36[] = L"ab";
//                ^
// expect: error #522 initialization with "{...}" expected for aggregate object
char wrong37[] = ("ab");
char wrong38[3] = 'a';
//                ^
// expect: error #522 initialization with "{...}" expected for aggregate object
int wrong39[2] = 1;
//               ^
// expect: error #522 initialization with "{...}" expected for aggregate object
int wrong40[2] = right10;
//               ^
// expect: error #522 initialization with "{...}" expected for aggregate object
struct point wrong41 = 5;
//                     ^
// expect: error #145 a value of type "int" cannot be used to initialize an entity of type "struct point"
struct point wrong42 = right2;
//                     ^
// expect: error #145 a value of type "struct line" cannot be used to initialize an entity of type "struct point"
struct open wrong43[2] = {{1}, {2}};
//                 ^
// expect: warning #1986 an array of a type with a flexible array member is nonstandard
int wrong44[] = {1, , 2};
//                  ^
// expect: error #29 expected an expression
int wrong45[] = {1 2};
//                 ^
// expect: error #68 expected a "}"
int wrong46[] = {[1] 2, [0};
//                        ^
// expect: error #17 expected a "]"
int after46;
struct point wrong47 = {.x 1};
//                         ^
// expect: error #705 expected an "="
struct point wrong48 = {. = 1};
//                        ^
// expect: error #41 expected an identifier
struct point wrong49 = {x: 1, y: 2};
void block(int n) {
  struct point a = {n, n}, b = a, c = {b.x}, d = {.y = n};
  struct line e = {a, b}, f = {a, .to = b, .to.x = n};
  struct line g = {.from = n};
  static struct point h = {n};
//                         ^
// expect: error #28 expression must have a constant value
  static struct point i = a;
//                        ^
// expect: error #28 expression must have a constant value
  static int *j = &n;
//                ^
// expect: error #28 expression must have a constant value
  static int *k = &index;
  int l[2] = {n, n, n};
//                  ^
// expect: warning #1238 excess initializers are ignored
  int m[] = {[n] = 1};
//            ^
// expect: error #28 expression must have a constant value
  char o[] = "abc";
  struct point q = (struct point){1, 2}, r[2] = {{1, 2}, q};
  int t = t;
  int *u = {&n};
  int *v = {1.5};
//          ^
// expect: error #145 a value of type "double" cannot be used to initialize an entity of type "int *"
  const int w;
//          ^
// expect: warning #259 const variable "w" requires an initializer
  const struct point x;
//                   ^
// expect: warning #259 const variable "x" requires an initializer
  extern int y = 1;
//               ^
// expect: error #146 variable "y" may not be initialized
  extern int z[] = {1};
//                 ^
// expect: error #146 variable "z" may not be initialized
  struct open aa = {1, {2}};
//                     ^
// expect: error #1103 a flexible array member cannot be initialized here
}
