// options: --c11 --code_state=16 --version=5e
// Thumb code of processors that have two states.
#pragma INTERRUPT(handler)
void handler(void) {}
#pragma CODE_STATE(state, 8)
//      ^
// expect: error #2642 unrecognized state specified to CODE_STATE pragma.
void state(void) {}
int v(void) { return _smulbb(1, 2); }
