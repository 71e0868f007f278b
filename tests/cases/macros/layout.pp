=== arguments-over-lines
#define f(a,b) a|b
f(1
,
2) f (
3, /* c
d */ 4
) // end
f(
f(5,6)
,
f
(7
,8)) x
--- gives
1|2 
3|4 
5|6|7|8 x
=== directives-in-arguments
#define f(a,b) <a|b>
f(1
#define A 2
, A
#undef A
#define A 3
) A
f(
#if 0
skipped , (
#else
x
#endif
,y
#ifdef A
A
#endif
)
f(1,
#line 50
__LINE__) __LINE__
#define g(x) x h
g(
#undef g
#define g(x) other x
1) g(2)
#define k(x) [x]
k(
#undef k
k(3)
) k(4)
--- gives
<1|3> 3
<x|y 3>
<1|50> 50
1 h other 2
[k(3)] k(4)
=== include-in-arguments
#define f(a,b) <a|b>
f(
#include "in.h"
, 2)
--- in.h
from in.h f(1,2)
--- gives alone
<from in.h <1|2> |2>
=== invocation-over-files
#define f(a) <a>
#define name f
#include "begin.h"
(1) after
name
#include "empty.h"
x
--- begin.h
f
--- empty.h
(2) in
--- gives alone
f
(1) after
f
(2) in
x
=== comments-and-splices
#def\
ine A\
B 1 \
+ 2
AB
#/* c */define /* d */ C/* e */3
C
/* a */ # /* b */ define D 4 // to the end \
still the comment
D
"a\
b" 'c\
d' e\
f g/\
* h *\
/ i /\
/ j \
k
l
--- gives
1 + 2
3
4
"a\
b" 'cd' ef g  i 
l
=== trigraphs --c11 --gcc --trigraphs
??=define A 1
A "??/"" ??( ??) ??< ??> ??! ??- ??' ??=
x ??/
y "what??!" "???=" ???
--- gives alone
1 "??/"" [ ] { } | ~ ^ #
x y "what??!" "???=" ???
=== line-splices-in-tokens
#define ab\
c 1
abc a\
bc 1\
2 +\
+ "x\
y" <\
<\
= .\
.\
.
#if 1 \
 && 1
yes
#\
endif
--- gives
1 1 12 ++ "x\
y" <<= ...
yes
=== digraphs
%:define A(x) %:x %:%: 1
%: define B <: :> <% %> %:%: c
B
%:ifdef A
in
%:endif
#define s(x) %:x
#define c(x,y) x%:%:y
s(<:) c(a,b)
--- gives
<: :> <% %>c
in
"<:" ab
=== null-directives-and-blank-names
#
# // comment
  #   /* c */
#define   spaced   a    b   
[spaced]
#define nothing
[nothing]
#define paren ()
#define fn() ()
paren fn() fn paren fn()paren
# define f(  a  ,  b  )  a  b  
f(  1  ,  2  )
--- gives
[a b]
[]
() () fn () ()()
1 2
=== undefining
#define A 1
#define F(x) x A
A F(A)
#undef A
A F(A)
#undef F
A F(A)
#undef never
#define A F
#define F(x) new x
A(A) A
--- gives
1 1 1
A A A
A F(A)
new F F
=== push-and-pop
#define A 1
#pragma push_macro("A")
#undef A
#define A 2
#pragma push_macro("A")
#define A2
A
#pragma pop_macro("A")
A
#pragma pop_macro("A")
A
#pragma pop_macro("A")
A
#pragma push_macro("B")
#define B(x) x x
B(1)
#pragma pop_macro("B")
B(1)
#define B(x) <x>
_Pragma("push_macro(\"B\")")
#undef B
B(2)
_Pragma("pop_macro(\"B\")")
B(3)
--- gives alone
2
2
1
1
1 1
B(1)
B(2)
<3>
=== names-with-odd-letters
#define $ dollar
#define a$b cd
#define é accent
#define \u00fc uml
#define _ under
#define ___ three
$ a$b é ü \u00fc _ ___ $$ a $ b
--- gives
dollar cd accent uml uml under three $$ a dollar b
=== long-and-many
#define p51(a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u,v,w,x,y,z,A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q,R,S,T,U,V,W,X,Y) Y X W a b c A##B #Y
p51(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31,32,33,34,35,36,37,38,39,40,41,42,43,44,45,46,47,48,49,50,51)
#define d1(x) x x
#define d2(x) d1(d1(x))
#define d4(x) d2(d2(x))
#define d8(x) d4(d4(x))
#define one d8(1)
one
#define str(x) #x
#define xstr(x) str(x)
xstr(one)
--- gives
51 50 49 1 2 3 2728 "51"
1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1
"1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1"
