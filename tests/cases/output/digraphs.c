// options: -P --c11
#define str(x) %:x
#define cat(a, b) a %:%: b
#define rest(a, b) a %= b; a % b <%%> <::>
str(a % b) cat(x, y) rest(v, 3)
#define object a %= %: 3
object str(%:)
%:if 1
taken
%:endif
