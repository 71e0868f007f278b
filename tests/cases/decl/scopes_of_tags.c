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
