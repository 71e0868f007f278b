// options: --c11 --gcc
// A skip over several lines says where it ends; a short one does not.
int a = 1 2
//        ^
// expect: error #66 expected a ";"
  3
  4
  5;
// ^
// expect: warning #12 parsing restarts here after previous syntax error
int b = 1 2;
//        ^
// expect: error #66 expected a ";"
int c = b +
  ) 3
// expect: error #29 expected an expression
  (
    4 +
  )
;
// expect: warning #12 parsing restarts here after previous syntax error
// A semicolon that is missing at the end of a line costs nothing behind it.
int d = 1
int e = 2;
// expect: error #66 expected a ";"
struct s { int m
  int n; } t
// expect: error #66 expected a ";"
int f(struct s *p) {
// expect: error #66 expected a ";"
  int g = e
  int h = g;
// expect: error #66 expected a ";"
  p->m = g
  p->n = h
// expect: error #66 expected a ";"
  if (g) return 1
// expect: error #66 expected a ";"
  else g = 2;
// expect: error #66 expected a ";"
  do g--; while (g)
  switch (h) { case 1: break
// expect: error #66 expected a ";"
    default: h = 1 }
//  ^
// expect: error #66 expected a ";"
//                 ^
// expect: error #66 expected a ";"
  for (g = 0
    g < 3; g++)
//  ^
// expect: error #66 expected a ";"
    h++
  goto out
// expect: error #66 expected a ";"
out:
// expect: error #66 expected a ";"
  return h + e
}
// expect: error #66 expected a ";"
// A character that is no token is passed over, and what is missing around it is not told again.
int i = 1 @ 2;
//        ^
// expect: error #7 unrecognized token
int j = ` 3;
//      ^
// expect: error #7 unrecognized token
int k[] = { 1, @, 2 };
//             ^
// expect: error #7 unrecognized token
int l = b +;
//         ^
// expect: error #29 expected an expression
int m = 1;
// An open literal takes the rest of its line with it.
char *n = "open;
//        ^
// expect: error #8 missing closing quote
char *o = "closed";
int q(void) { return f("open); }
//                     ^
// expect: error #8 missing closing quote
