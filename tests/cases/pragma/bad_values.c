// options: --c11 --gcc
// What a variable's pragmas ask for and its definition does not give.
int n = 5;
//  ^
// expect: error #1518 NOINIT variable "n" has an initial value
#pragma NOINIT(n)
int p;
//  ^
// expect: error #1519 PERSISTENT variable "p" requires an initial value
#pragma PERSISTENT(p)
int q = 1;
//  ^
// expect: error #1522 "q" cannot be both NOINIT and PERSISTENT
#pragma PERSISTENT(q)
#pragma NOINIT(q)
int r;
//  ^
// expect: error #1521 "r" has a section of its own, which excludes noinit
#pragma DATA_SECTION(r, "mine")
#pragma NOINIT(r)
int with_attributes __attribute__((persistent, section("s"))) = 1;
//  ^
// expect: error #1521 "with_attributes" has a section of its own, which excludes persistent
static int of_block(void) {
  static int s __attribute__((noinit)) = 4;
//           ^
// expect: error #1518 NOINIT variable "s" has an initial value
  return s;
}
__attribute__((persistent)) int good = 4;
__attribute__((noinit)) int good_too;
int calls(void) { return of_block(); }
