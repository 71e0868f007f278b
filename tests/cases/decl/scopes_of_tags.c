// options: --c99
// Where tags live: prototypes, blocks, bodies; incomplete types that become complete.
struct forward;
extern struct forward later;
struct forward *pointer;
struct forward {
  int size;
};
int check[sizeof(struct forward) == 4 ? 1 : -1];
void prototype(struct only_here *p);
//                    ^
// expect: warning #233 declaration is not visible outside of function
int hide(void) {
  struct forward;
  struct forward {
    char a[8];
  };
  enum { local = sizeof(struct forward) };
  int check_local[local == 8 ? 1 : -1];
  extern int hide_me;
  {
    int hide_me = 1;
    {
      extern int hide_me;
      hide_me = 2;
    }
    return hide_me + sizeof check_local;
  }
}
int hide_me;
int tentative[];
//  ^
// expect: warning #1951 array assumed to have one element
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
