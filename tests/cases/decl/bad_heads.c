// options: --c11
// A broken head of a function, or what is none, takes its body along, however long it is.
int main )
//       ^
// expect: error #66 expected a ";"
{
// expect: warning #12 parsing restarts here after previous syntax error
  int i;
  i = 1;
  return i;

















  i = 2;
}
sizeof ()
// expect: error #171 expected a declaration
{
  int k;
  k = 2;
}
static const char *names.] = {
//                      ^
// expect: error #66 expected a ";"
  "mu", "nu" };
strct s { int a; int b; };
// expect: error #20 identifier "strct" is undefined
int last(void) { return 0; }
