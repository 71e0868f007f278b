// options: --gcc
#define a 1
#define a 2
// expect: warning #48 redefinition
//      ^
#ifdef a junk
// expect: warning #14 extra text
//       ^
#endif
/* outer /* inner */
// expect: warning #9 nested
//       ^
int x = a;
