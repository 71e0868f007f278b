// options: -P -C --c11
#define f(a, b) a b // of the definition
#define g(x) <x> /* one */
a /* kept */ b // kept too
f(/* first */ 1, /* second */ 2) /* behind */
g(3) g(/* only a comment */) "/* no comment */" '//'
/* over
   lines */ c
#if 0 /* not kept */
/* skipped */
#endif // not kept
d / e /* last */
