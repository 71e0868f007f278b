// options: --c11 --abi=eabi --little_endian
// Bit-fields: containers, signs, reads, writes, initial values.
struct flags {
  unsigned a : 3;
  int b : 5;
  unsigned : 4;
  unsigned long long c : 33;
  _Bool d : 1;
  char e : 7;
} flags = {5, -3, 0x1ffffffffULL, 1, 'x'};
struct empty_end { int x : 4; int : 0; char y; } two[2] = {{1, 2}, {3}};

int read(struct flags *p) { return p->a + p->b; }
long long wide(void) { return flags.c; }
void write(struct flags *p, int n) { p->a = n; p->b += n; p->d = n; ++p->e; }
_Bool test(void) { return flags.d && !flags.a; }
