// options: --gcc
#define decl(t, n) t n;
decl(int, x)
int y \
  = undeclared_name;
// expect: error #20 undeclared_name
//  ^
