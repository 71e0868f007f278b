// options: --c11 --abi=eabi
// Loops and jumps.
int sum(const int *p, int n) {
  int total = 0;
  for (int i = 0; i < n; i++) {
    if (p[i] < 0) continue;
    if (p[i] == 99) break;
    total += p[i];
  }
  return total;
}
int down(int n) {
  while (n > 10) n /= 2;
  do n--; while (n);
  for (;;) if (n++ > 3) break;
  return n;
}
int jumps(int n) {
  if (n) goto inside;
  { int k = 1;
  inside: k = n; n += k; }
again:
  if (--n > 0) goto again; else n = 7;
  return n ? n : 1;
}
