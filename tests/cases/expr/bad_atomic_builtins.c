// options: --c11 --gcc
// Atomic builtins take a pointer to an integer or a pointer of 1, 2, 4 or 8 bytes.
struct pair { int a, b; } pair;
double d;
int x;
void f(void) {
  __atomic_load_n(&pair, 0);
//                ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  __atomic_load_n(x, 0);
//                ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  __sync_fetch_and_add(&d, 1);
//                     ^
// expect: error #1917 operand of an atomic builtin must point to an integer or a pointer
  __atomic_store_n(&x, pair, 0);
//                     ^
// expect: error #169 argument of type "struct pair" is incompatible with parameter of type "int"
  __atomic_store_n(&x);
//                   ^
// expect: error #167 too few arguments in function call
  __atomic_no_such_thing(&x);
// expect: error #1494 builtin function __atomic_no_such_thing not supported
}
