// options: --c11 --abi=eabi --version=7M4 --remarks
int x;
void f(int n, int *p) {
//                 ^
// expect: remark #880 variable "p" was never referenced
  __low_power_mode_0();
// expect: warning #2608 Using unsupported QPM100 intrinsic __low_power_mode_0.  Recommended replacement is __wfi().
  __swap_bytes(n);
// expect: warning #2608 Using unsupported QPM100 intrinsic __swap_bytes.  Possible replacement is __REV16().
  _symval(n);
//        ^
// expect: warning #169 argument of type "int" is incompatible with parameter of type "const void *"
  _symval(&x);
  _ssatl(n, 40, 3);
  _ssata(n, 1, n);
  _usata(n, 40, 3);
  __atomic_always_lock_free(n, 0);
// expect: error #2716 the first argument must be an integer constant
}
