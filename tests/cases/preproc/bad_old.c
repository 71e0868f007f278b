/* options: --old_c --remarks */
#define a b
#define b a
int a;
/*  ^ */
/* expect: error #229 macro recursion */
#define one(x) x
int i = one(1, 2);
/*           ^ */
/* expect: warning #56 too many arguments in invocation of macro "one" */
#define two(x, y) x y
int j = two(1);
/*           ^ */
/* expect: warning #55 too few arguments in invocation of macro "two" */
#ifdef one junk that nobody minds
#else more junk
#else and more
/* expect: warning #39 an #else has already appeared */
#endif one
#undef two trailing
char *s = "don't", *t = one("two ## one"); /* it's fine
   here too */
#define text "unclosed
#if 0
it's skipped
"too
#endif
  #
/*^ */
/* expect: error #10 "#" not expected here */
