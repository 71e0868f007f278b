/* Statements in unusual places: labels and cases inside other statements, jumps out of and into
   loops, continue in each kind of loop, switches over all widths. */
int printf(const char *format, ...);

static int duff(char *to, const char *from, int count) {
  int rounds = (count + 7) / 8, n = 0;
  switch (count % 8) {
    case 0: do { n++, *to++ = *from++;
    case 7:      n++, *to++ = *from++;
    case 6:      n++, *to++ = *from++;
    case 5:      n++, *to++ = *from++;
    case 4:      n++, *to++ = *from++;
    case 3:      n++, *to++ = *from++;
    case 2:      n++, *to++ = *from++;
    case 1:      n++, *to++ = *from++;
            } while (--rounds > 0);
  }
  return n;
}

static const char *wide(long long v) {
  switch (v) {
    case -1: return "minus one";
    case 0x100000000LL: return "2^32";
    case 0: return "zero";
    case 0x7fffffffffffffffLL: return "max";
    case -0x7fffffffffffffffLL - 1: return "min";
    case 0xffffffff: return "2^32-1";
    default: return "other";
  }
}

static int ranges(int v) {
  switch (v) {
    case -2147483647 - 1 ... -100: return 1;
    case -99 ... -1: return 2;
    default: return 3;
    case 0: return 4;
    case 'a' ... 'z': case 'A' ... 'Z': return 5;
    case 1000 ... 2147483647: return 6;
  }
}

static int unsigned_ranges(unsigned v) {
  switch (v) {
    case 0 ... 9: return 1;
    case 0x7ffffff0 ... 0x8000000f: return 2;
    case 0xfffffff0 ... 0xffffffff: return 3;
  }
  return 0;
}

static int narrow(unsigned char c, signed char s) {
  int r = 0;
  switch (c) { case 255: r = 1; break; case 0: r = 2; break; case 128: r = 3; }
  switch (s) { case -1: r += 10; break; case 127: r += 20; case -128: r += 30; break; default: r += 40; }
  return r;
}

static int nested(int a, int b) {
  int r = 0;
  switch (a) {
    case 1:
      switch (b) {
        case 1: r = 11; break;
        case 2: r = 12; goto out;
        default: r = 19;
      }
      r += 100;
    case 2: r += 200; break;
    case 3: while (b--) { switch (b) { case 2: continue; case 1: goto out; } r++; } break;
    default: if (b) { case 4: r = 4; } else { case 5: r = 5; }
  }
  return r;
out:
  return -r;
}

static void loops(void) {
  int i, n = 0;
  for (i = 0; i < 10; i++) { if (i % 3 == 0) continue; if (i == 8) break; n += i; }
  printf("%d %d\n", i, n);
  i = 0, n = 0;
  while (i++ < 10) { if (i & 1) continue; n += i; }
  printf("%d %d\n", i, n);
  i = 0, n = 0;
  do { n += 10; if (i == 2) continue; n++; } while (i++ < 4);
  printf("%d %d\n", i, n);
  n = 0;
  do { n++; continue; } while (n < 3);
  for (n = 0;; ) { if (n++ > 4) break; else continue; }
  printf("%d\n", n);
  for (int x = 0, y = 10; x < y; x += 3, y--) for (int x = 0; x < 2; x++) n += x + y;
  printf("%d\n", n);
  for (i = 0; i < 3; ({ i++; })) for (;;) { if (i == 1) goto next; printf("i%d ", i); break; next: printf("n "); break; }
  while (0) never: printf("jumped ");
  if (n < 100) { n = 100; goto never; }
  if (0) { inside: printf("in the branch "); } else printf("else ");
  if (n++ < 102) goto inside;
  goto middle;
  for (i = 0; i < 2; i++) { printf("[%d", i); middle: printf("m%d] ", i); }
  printf("\n");
}

static int from_statement_expressions(int v) {
  int r = ({ if (v == 1) return 100; v * 2; });
  while (({ r--; r > 3; })) { if (({ r == 5; })) goto done; }
  for (int k = ({ int t = v; t + 1; }); ({ k > 0; }); k--) r += ({ switch (k) { case 2: k = 1; } k; });
  r += ({ int s = 0; for (int k = 0; k < 4; k++) { if (k == 2) continue; s += k; } s; });
  return r;
done:
  return -r;
}

static int hidden(int n) {
  int r = 0;
  switch (n) { int x; case 0: x = 5; r = x; break; case 1: x = 7; r = x + 1; }
  { goto skip; int y; skip: y = 3; r += y; }
  return r;
}

int main(void) {
  char to[24] = "", from[] = "the quick brown fox jump";
  for (int i = 1; i < 24; i += 5) printf("%d ", duff(to, from, i));
  printf("%.23s\n", to);
  long long v[] = {-1, 0x100000000LL, 0, 0x7fffffffffffffffLL, -0x7fffffffffffffffLL - 1, 0xffffffffLL, 1};
  for (unsigned i = 0; i < sizeof v / sizeof *v; i++) printf("%s, ", wide(v[i]));
  int w[] = {-2147483647 - 1, -100, -99, -1, 0, 1, 'a', 'm', 'Z', '[', 999, 1000, 2147483647};
  for (unsigned i = 0; i < sizeof w / sizeof *w; i++) printf("%d", ranges(w[i]));
  unsigned u[] = {0, 9, 10, 0x7fffffef, 0x7ffffff0, 0x80000000, 0x8000000f, 0x80000010, 0xffffffef, 0xfffffff0, -1};
  printf(" ");
  for (unsigned i = 0; i < sizeof u / sizeof *u; i++) printf("%d", unsigned_ranges(u[i]));
  printf("\n%d %d %d %d\n", narrow(255, -1), narrow(0, 127), narrow(128, -128), narrow(1, 1));
  for (int a = 0; a < 7; a++) for (int b = 0; b < 4; b++) printf("%d ", nested(a, b));
  printf("\n");
  loops();
  for (int i = 0; i < 6; i++) printf("%d ", from_statement_expressions(i));
  printf("%d %d %d\n", hidden(0), hidden(1), hidden(2));
}
