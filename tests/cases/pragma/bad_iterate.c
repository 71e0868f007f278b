// options: --c11 --gcc
// The least number of iterations is not above the greatest.
int data;
void loops(int n) {
#pragma MUST_ITERATE(5, 2)
//      ^
// expect: error #856 parameter min cannot be > max in MUST_ITERATE pragma
  for (int i = 0; i < n; i++) data++;
}
