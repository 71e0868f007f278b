// options: --c11 --gcc
// An interrupt function gives and takes nothing.
#pragma INTERRUPT(good)
void good(void) {}
#pragma INTERRUPT(gives)
//      ^
// expect: error #832 interrupt declarations can only be applied to file scope functions returning void
int gives(void) { return 1; }
