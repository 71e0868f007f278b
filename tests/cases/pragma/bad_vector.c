// options: --c11
#pragma vector = 3
//               ^
// expect: error #2628 a vector list takes symbols, not integers
void handler(void) {}
struct only {
#pragma DATA_SECTION("x")
//      ^
// expect: warning #830 error processing pragma DATA_SECTION, verify format
#pragma UNROLL(2)
//      ^
// expect: error #610 this pragma must immediately precede a statement
  int a;
};
#pragma __printf_args
struct other { int z; };
