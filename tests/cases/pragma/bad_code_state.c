// options: --c99 --code_state=16 --version=5e
// What Thumb code of processors with two states does not have.
__interrupt void marked(void) {}
//               ^
// expect: error #1559 Interrupt handlers must be compiled in ARM mode
#pragma CODE_STATE(in_arm, 32)
__interrupt void in_arm(void) {}
int n(int a) { return _norm(a); }
//                    ^
// expect: warning #1450 intrinsic "_norm" not supported in thumb mode, treated as function call
#pragma CODE_STATE(n32, 32)
int n32(int a) { return _norm(a); }
__interrupt int gives(void) { return 1; }
//              ^
// expect: error #832 interrupt declarations can only be applied to file scope functions returning void
__interrupt void takes(int a) { }
//               ^
// expect: error #833 no parameters allowed for interrupt functions such as 'takes'
