// options: --c99
// A tag of a parameter list ends with the function, and its members and enumerators with it.
int body(struct of_body { int i; } s, enum { inside = 3 } e) {
//              ^
// expect: warning #233 declaration is not visible outside of function
  int check_body[sizeof(struct of_body) == 4 && inside == 3 ? 1 : -1];
  return check_body[0];
}
int other(struct of_body { char c; } s) { return inside; }
//               ^
// expect: warning #233 declaration is not visible outside of function
//                                               ^
// expect: error #20 identifier "inside" is undefined
struct of_body unknown;
//             ^
// expect: error #71 incomplete type is not allowed
int twice(struct unseen *p);
//               ^
// expect: warning #233 declaration is not visible outside of function
struct unseen { int a; };
int twice(struct unseen *p);
//  ^
// expect: error #148 declaration is incompatible with function "twice(struct unseen *)"
// A missing semicolon behind a class or an enumeration is one mistake.
struct ends { int a; } unsigned first(void) { return 0; }
// expect: error #85 invalid combination of type specifiers
enum ending { last } int second(void) { return last; }
//                   ^
// expect: error #85 invalid combination of type specifiers
struct ends v;
