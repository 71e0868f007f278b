#include "outer.h"
int a = undef_a;
extern char other, from_inner;
#line 100 "other.c"
int b = undef_b;
char c, a;
#line 7
int d = undef_d;
# 50 "gen.y"
int e = undef_e; char b;
# 60 "sys.h" 3
int g = undef_g; int h; char h;
#warning not from here
static int unused;
# 70 "back.c" 2
int i = undef_j;
#line 4294967295
int last = undef_last;
int behind = undef_behind;
#line 1 ""
int nameless = undef_nameless;
#line 8 "we\"ird\\.c"
int quoted = undef_quoted;
#line 90 "places.c"
void open(void) {
  int x = undef_x;
