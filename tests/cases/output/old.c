// options: -P --old_c
#define q(x) "x is x" 'x'
#define paste(a, b) a/**/b
#define f(a) f(a)
#define one 1
#define two one/**/one
#define list(a,b)	[a|b]
q(abc) q(one) q( a  b )
paste(x, y) paste(one, 2) two
list( 1 , 2 ) list(one,two)
"one" 'o' one's end
#undef f
#define f(a) <a>
f (1) f
(2) f
#define empty
-empty- a empty b
list((1,2),"a,b")
#if 0
don't care
#else not in strict
#endif either
q(a
b)
 #define indented 1
indented
f() list(,)
