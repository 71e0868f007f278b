// options: --c11 --gcc --abi=eabi
// Switches: sorted values, ranges, fall through, default in the middle, nesting, wide values.
int classify(int c) {
  switch (c) {
    case 'z': return 1;
    case -5: return 2;
    default: c++;
    case 3 ... 5: c += 2; break;
    case 7: case 8: return c;
  }
  return c;
}
int nested(unsigned char a, long long b) {
  switch (a) {
    case 1:
      switch (b) {
        case 0x100000000LL: return 3;
        case 2: break;
      }
      break;
    case 200: return 4;
  }
  switch (a) default: b++;
  return 0;
}
