// options: --c11 --gcc
// A loop's pragma stands directly in front of a loop.
int data;
void loops(int n) {
#pragma MUST_ITERATE(1, 10, 2)
  for (int i = 0; i < n; i++) data++;
#pragma UNROLL(2)
//      ^
// expect: error #855 UNROLL pragma must immediately precede for/while/do-while
  data = 1;
}
