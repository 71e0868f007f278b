// options: --c99 --gcc --remarks
/*ARGSUSED*/
int used(int a) { return 1; }
int unused(int a) { return 1; }
// expect: remark #880 variable "a" was never referenced
/* ARGSUSED */ /* another comment */
int old_style(a, b) int a, b; { return 1; }
int again(int a) { return 1; }
// expect: remark #880 variable "a" was never referenced
/* ARGSUSEDx */
int no_word(int a) { return 1; }
// expect: remark #880 variable "a" was never referenced
extern void stop(void);
int at_end(void) { stop(); /*NOTREACHED*/ }
int missing(void) { stop(); }
// expect: warning #994 missing return statement
int in_switch(int x) {
  switch (x) {
    case 1: stop(); /* NOTREACHED */
    case 2: return 2;
    default: stop(); /*NOTREACHED*/
  }
}
int in_branch(int x) {
  if (x) {
    stop();
    /* NOTREACHED */
  } else
    return 1;
}
