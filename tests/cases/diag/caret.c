int a = undef1 + 1; /* c */ int q\
q = undef2;
const char *s = "abc??/
" + undef3;
	int	t = ä;
/* comment
   over lines */ int w = undef4;
int w2 = /* comment
   over lines */ undef5;
/* €€ */ int e = undef6;
int	lo = "€€€" + undef7;
int tri??(3??) = undef8;
int in\
it\
ial = un\
def9 + /* x */ undef10;
#define TWICE(x) x + x
#define CALL(x, y) TWICE(x) * y
#define NEST int n = CALL(undef11, undef12);
int m = CALL(undef13,
             undef14) + undef15;
NEST
int v = CALL(   /* no value */
   1, 2, 3);
#define PASTE(a, b) a ## b
int paste = PASTE(under, 16) + PASTE(+, *);
#if TWICE(1) ==
#endif
#if 1 // €
  #  bogus €
#endif
char *cut = "abc
