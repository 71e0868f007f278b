=== operators-and-words
#define cat(a,b) a##b
#define xcat(a,b) cat(a,b)
cat(+,+) cat(-,>) cat(<,<=) cat(<,<) cat(>,>=) cat(&,&) cat(|,=) cat(#,#) cat(.,5) cat(5,.) cat(x,1) cat(1,x)
cat(1e,+) cat(1.,e5) cat(L,"a") cat(L,'a') cat(.,.5) cat(__LI,NE__) cat(_,_LINE__) xcat(cat(_,_),LINE__)
cat(%:,%:) cat(<,:) cat(%,:) cat(:,>) cat(!,=) cat(0x,p-3) cat(0xp,-)
--- gives
++ -> <<= << >>= && |= ## .5 5. x1 1x
1e+ 1.e5 L"a" L'a' ..5 4 4 4
%:%: <: %: :> != 0xp -3 0xp-
=== chains
#define c3(a,b,c) a##b##c
#define c4(a,b,c,d) a##b##c##d
#define c5(a,b) a##b a## b a ##b a ## b x##a b##y x ## a ## y
c3(x,y,z) c3(,y,) c3(,,z) [c3(,,)] c4(1,.,e,3) c4(a,,,b) c4(,,,b) c5(p,q) c5(,q) c5(p,)
--- gives
xyz y z [] 1.e3 ab b pq pq pq pq xp qy xpy q q q q x qy xy p p p p xp y xpy
=== operands-of-several-tokens
#define cat(a,b) a##b
#define xcat(a,b) cat(a,b)
cat(a b,c d) cat(a+,+b) cat((a),b) cat( a , b ) cat(a(1),b(2)) cat(f,(x)) xcat(cat(a,b)c,d) cat(a /* c */ b, /* d */ e)
--- gives
a bc d a++b (a)b ab a(1)b(2) f(x) ab cd a be
=== object-like
#define o1 a##b
#define o2 a ## b ## c d ## 1
#define o3 x##1 ## 2
#define ab done
#define abc also
o1 o2 o3
#define o4 ab##c
#define o5 o##1
o4 o5
--- gives
done also d1 x12
also done
=== empty-operands
#define E
#define cat(a,b) [a##b]
#define xcat(a,b) cat(a,b)
#define lr(a) [a##a|a## |##a]
cat(E,x) xcat(E,x) cat(x,E) xcat(x,E) cat(,) xcat(E,E) cat(,E)
#define in(a,b) <a##E##b>
#define mid(a,b,c) <a##b c##a>
in(1,2) mid(1,,2) mid(,1,) mid(,,)
--- gives
[Ex] [x] [xE] [x] [] [] []
<1E2> <1 21> <1 > < >
=== hash-next-to-paste
#define h(a,b) #a #b
#define j(a) L###a
#define k(a,b) a####b
#define l(a) x##y###a
#define m %: ## %:
j(abc) j("q") h(a##b,c)
l(z)
--- gives
L"abc" L"\"q\"" "a##b" "c"
xy"z"
=== paste-makes-function-name
#define call(a,b,x) a##b(x)
#define fg(x) <x>
#define cat(a,b) a##b
call(f,g,1) cat(f,g)(2) cat(fg,)(3) cat(f,g) (4) cat(f,g(5)) cat(cat(f,g),(6))
#define name(n) v_##n
#define field(n) .name(n)
field(x) name(name(x)) field(cat(a,b))
--- gives
<1> <2> <3> <4> <5> cat(f,g)(6)
. v_x v_name(x) . v_ab
=== paste-of-recursive-names
#define a_1 a_2 a_1
#define a_2 a_1 a_2
#define a(n) a_##n
a(1) a(2) a(a(1)) a(a_1)
#define f(x) f##x(x)
#define f1(x) f(2) x
#define f2(x) f(1) x
f(1) f(2) f1(f2(3))
--- gives
a_1 a_2 a_1 a_2 a_1 a_2 a_a(1) a_a_1
f(2) 1 f(1) 2 f(1) 2 f(2) 1 3
=== numbers-as-pieces
#define cat(a,b) a##b
#define hex(d) 0x##d##u
#define flt(i,f,e) i##.##f##e##e
hex(1F) hex(e) cat(1,2) cat(1.2,.3) cat(1,_x) flt(1,2,3) cat(0x1p,4) cat(.1,e) cat(1,..2)
cat(1e+,1) cat(e,+1) cat(1,e)+1 cat(1,e+)1 cat(,1e+)b cat(,0xp-).5 cat(,0xfe-)_c
--- gives
0x1Fu 0xeu 12 1.2.3 1_x 1.233 0x1p4 .1e 1. .2
1e+1 e+1 1e +1 1e +1 1e+ b 0xp- .5 0xfe- _c
=== counters
#define cat(a,b) a##b
#define xcat(a,b) cat(a,b)
#define unique(p) xcat(p,__COUNTER__)
__COUNTER__ unique(a) unique(b) cat(c,__COUNTER__) __COUNTER__
#define twice(x) x x
#define str(x) #x
#define xstr(x) str(x)
twice(__COUNTER__) twice(unique(z)) xstr(__COUNTER__) str(__COUNTER__) xstr(twice(__COUNTER__))
#if __COUNTER__ == 7
seven
#endif
__COUNTER__
--- gives
0 a1 b2 c__COUNTER__ 3
4 4 z5 z5 "6" "__COUNTER__" "7 7"
9
=== paste-with-marked-arguments
#define f(x) g(f##x, x)
#define g(a,b) a b
#define fx got
#define ff bad
f(x) f(f(x)) g(f,f)(x)
#define cat(a,b) a##b
#define p cat(p,p) cat(p,) cat(,p)
#define pp q
p pp
--- gives
got x bad(x) got x f got x
q p p q
=== tokens-behind-the-joined-one
#define cat(a,b) a##b
#define hex(n) (base + 0x##n)
hex(E+4) hex(1E) hex(e-1) hex(E + 4) cat(1,x.y) cat(a,b.c) cat(.,e+1) cat(x 0x,E+1) cat(<,<=) cat(u,8"x") cat(1,.e-5.f)
#define pre(x) 1e##x-1 0x##x+1
pre(e) pre(E) pre(2)
--- gives
(base + 0xE +4) (base + 0x1E) (base + 0xe -1) (base + 0xE + 4) 1x .y ab.c .e+1 x 0xE +1 <<= u8 "x" 1. e-5.f
1ee -1 0xe +1 1eE -1 0xE +1 1e2-1 0x2+1
