// options: --c11 --gcc
// Pragmas that are known and change nothing that is written, in any place where they may stand.
#pragma __printf_args
void print(const char *, ...);
#pragma __scanf_args
int scan(const char *, ...);
#pragma ARGSUSED
int unused(int a) { return 0; }
#pragma VARARGS
void many();
#pragma diag_remark 171
#pragma diag_once 550
#pragma no_pch
#pragma NQC_VREG("r", 3)
#pragma NQV_REG("q", "v")
#pragma PWA_PORT_CONFIG("1")
#pragma CHECK_MISRA("none")
#pragma RESET_MISRA("all")
#pragma CHECK_PWA("none")
#pragma RESET_PWA("all")
void f(void) { print("%s", 1); scan("%d", 1.0); return;
//                         ^
// expect: warning #183 argument of type "int" does not fit conversion "%s" of the format, which takes "char *"
//                                        ^
// expect: warning #183 argument of type "double" does not fit conversion "%d" of the format, which takes "int *"
#pragma NOTREACHED
 }
#warn a word for it
// expect: warning #1181 #warning directive: a word for it
const char *when = __TIMESTAMP__;
