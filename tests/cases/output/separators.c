// options: -P --c11
#define id(x) x
#define empty
#define minus -
#define cat(a, b) a##b
#define f() g
-minus -id(-) -empty- id(+)+ +id(+) -1 id(-)1
id(a)b a id(b) id(1)a a id(1) id(1).id(2) id(.)5 1id(e)+2 id(1e)-2
id(<)id(<)= id(&)& id(|)id(|) id(=)= id(!)= id(-)id(>) id(%):
(id(a)) [id(a)] {id(a)} id(a);id(b),id(c)? id(a):id(b)
id(L)'x' id(L)"x" id("a")"b" id("a")b id('a')'b'
x id(#)id(#) id(#)define
f()() f ()x f
() f empty ()
cat(a, b)c cat(-, -)- cat(a,)b cat(,)x
id(x	y   z /* w */ v) id(
x
)
id()id() id(id(id(x))) id(empty) id((,))
