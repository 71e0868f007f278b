// options: -E --c11 --gcc
#define f(a, b) a b
L3
f(L4,
  1) L4
L6 /* a comment
over lines */ L7
f(L8,
#define INSIDE
L10) L8
L11
f(L12,
#if 0
  skipped
#else
  L16
#endif
) L12
L19
f
#define between
(L22, 1)
L23
"a string \
over lines" L24
L26 \
  L26
f(L28,
#include "lines.h"
L30) L28
L31
#include "lines.h"
L33







L41
'\
x' L42
??/
L45
#line 100
L100
#line 200 "other.c"
L200 __FILE__ __LINE__
# 300 "third.h" 1 3
L300 __FILE__
# 400 "other.c" 2
L400 __FILE__
f(/*

*/ L401, L402
)
L405
