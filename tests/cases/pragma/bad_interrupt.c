// options: --c11 --gcc
// An interrupt function gives and takes nothing.
#pragma INTERRUPT(good)
void good(void) {}
#pragma INTERRUPT(gives)
//      ^
// expect: error #832 an interrupt function must return void
int gives(void) { return 1; }
