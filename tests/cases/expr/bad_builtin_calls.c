// options: --c11 --gcc --remarks
int g; struct s { int a[3]; } fs(void);
void t(int n, char *p, volatile int *vi) {
  int x = __builtin_fpclassify(1, 2, 3.0);
//                                      ^
// expect: error #167 too few arguments in function call
  x = __builtin_types_compatible_p(int, int);
  p = __builtin_frame_address(n);
  __sync_fetch_and_add(&fs, 1);
//                     ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  __atomic_load_n(vi, 99);
  __builtin_va_arg_pack();
//                      ^
// expect: error #2047 the function must be an inline function with an ellipsis
  struct { char c[3]; } big;
  __sync_fetch_and_add(&big, 1);
//                     ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  long double ld = 0x1p2000L * 0;
//                 ^
// expect: error #30 floating constant is out of range
//            ^
// expect: remark #552 variable "ld" was set but its value was never used
  __builtin_object_size(p, n);
// expect: error #1494 builtin function __builtin_object_size not supported
  __builtin_shuffle(n, x);
// expect: error #1494 builtin function __builtin_shuffle not supported
}
