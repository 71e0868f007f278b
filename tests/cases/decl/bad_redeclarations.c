// options: --c99
// What two declarations of one name may not disagree about.
int a;
extern int a;
int a;
char a;
//   ^
// expect: error #148 declaration is incompatible with
static int b;
extern int b;
extern int c;
static int c;
//         ^
// expect: warning #174 external/internal linkage conflict
int d = 1;
int d = 2;
//      ^
// expect: error #150 "d" has already been initialized
int f(int);
int f();
int f(char);
//  ^
// expect: error #148 declaration is incompatible with
int g(void) { return 1; }
int g(void) { return 2; }
//  ^
// expect: error #249 has already been defined
typedef int T;
typedef int T;
typedef long T;
//           ^
// expect: error #258 invalid redeclaration of type "T"
enum E { e1 };
struct E;
//     ^
// expect: error #471 tag kind of struct is incompatible
struct S { int x; };
struct S { int y; };
//     ^
// expect: error #249 has already been defined
int e1;
//  ^
// expect: error #148 declaration is incompatible with
void block(void) {
  int x;
  char x;
  //   ^
  // expect: error #102 "x" has already been declared in the current scope
  extern int a;
  extern char only_here;
}
extern int only_here;
//         ^
// expect: error #161 declaration is incompatible with previous
