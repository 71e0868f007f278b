=== counts
#define ARGN(_1,_2,_3,_4,_5,_6,_7,_8,N,...) N
#define COUNT(...) ARGN(__VA_ARGS__,8,7,6,5,4,3,2,1,0)
COUNT() COUNT(a) COUNT(a,b) COUNT(a,b,c,d,e,f,g,h) COUNT(,) COUNT((a,b),c) COUNT(COUNT(a,b),c)
#define FIRST(a,...) a
#define REST(a,...) __VA_ARGS__
FIRST(1,2,3) REST(1,2,3) FIRST(1) [REST(1)] FIRST(REST(1,2,3)) REST(REST(1,2,3)) [REST()] REST(1,,2)
--- gives
1 1 2 8 2 2 2
1 2,3 1 [] 2,3  [] ,2
=== gnu-comma
#define e(f, ...) p(f, ##__VA_ARGS__)
#define n(f, a...) p(f, ##a)
#define o(...) p(0, ##__VA_ARGS__)
#define i(f, ...) p(f,__VA_ARGS__)
#define E
e(1) e(1,2) e(1,2,3) n(1) n(1,2) n(1,2,3) o() o(1) o(1,2) i(1,) i(1,2)
e(1,E) e(E) o(E) e(e(1,2),e(3)) e(1,,) n(1, x) n(a , b , c)
--- gives
p(1) p(1,2) p(1,2,3) p(1) p(1,2) p(1,2,3) p(0) p(0,1) p(0,1,2) p(1,) p(1,2)
p(1,) p() p(0,) p(p(1,2),e(3)) p(1,,) p(1,x) p(a,b , c)
=== named
#define log(fmt, args...) printf(fmt, args)
#define all(args...) f(args) #args
#define tail(x, args ...) x|args
log("a", 1, 2) all() all(1) all(1, 2 , 3) tail(1,2,3) tail(1) tail(1,)
--- gives
printf("a", 1, 2) f() "" f(1) "1" f(1, 2 , 3) "1, 2 , 3" 1|2,3 1| 1|
=== for-each
#define EXPAND(x) x
#define FE_1(W,X) W(X)
#define FE_2(W,X,...) W(X) FE_1(W,__VA_ARGS__)
#define FE_3(W,X,...) W(X) FE_2(W,__VA_ARGS__)
#define FE_4(W,X,...) W(X) FE_3(W,__VA_ARGS__)
#define GET(_1,_2,_3,_4,NAME,...) NAME
#define FOR_EACH(A,...) EXPAND(GET(__VA_ARGS__,FE_4,FE_3,FE_2,FE_1)(A,__VA_ARGS__))
#define DECL(x) int x;
#define STR(x) #x,
FOR_EACH(DECL,a,b,c) FOR_EACH(STR,x,y,"z",w) FOR_EACH(DECL,q) FOR_EACH(FE_1,DECL)
--- gives
int a; int b; int c; "x", "y", "\"z\"", "w", int q; FE_1(DECL)
=== pasted-and-stringized
#define v(...) a##__VA_ARGS__##b
#define s(...) #__VA_ARGS__
#define w(x,...) x##__VA_ARGS__ [__VA_ARGS__##x]
v() v(1) v(1,2) v(,) v( 1 , 2 , 3 ) s() s(a,b) s( a , b ,c ) s(,) s("a,b",'c') w(1) w(1,2,3) w(,2) w(1,)
--- gives
ab a1b a1,2b a,b a1 , 2 , 3b "" "a,b" "a , b ,c" "," "\"a,b\",'c'" 1 [1] 12,3 [2,31] 2 [2] 1 [1]
=== empty-and-missing
#define f(x,...) <x|__VA_ARGS__>
#define g(...) <__VA_ARGS__>
f() f(,) f(1) f(1,) f(,1) f(,,) g() g(,) g(,,)
#define h(a,b) <a|b>
h(,) h( , ) h(1,) h(,1) h((,),(,))
--- gives
< | > < | > <1| > <1| > < |1> < |,> < > <,> <,,>
< | > < | > <1| > < |1> <(,)|(,)>
=== nested-lists
#define id(...) __VA_ARGS__
#define two(a,...) a;__VA_ARGS__
#define xtwo(...) two(__VA_ARGS__)
two(id(1,2),3) xtwo(id(1,2),3) xtwo(id(id(1,2),3)) id(two)(id(1,2)) id(xtwo(id(1),2)) two((1,2),3) xtwo(id((1,2)),id(3))
--- gives
1,2;3 1;2,3 1;2,3 1,2; 1;2 (1,2);3 (1,2);3
=== boost-like-lists
#define PP_CAT(a,b) PP_CAT_I(a,b)
#define PP_CAT_I(a,b) a##b
#define PP_EAT(x)
#define PP_SEQ_HEAD(seq) PP_SEQ_HEAD_D(PP_SEQ_HEAD_I seq)
#define PP_SEQ_HEAD_I(x) x, PP_NIL
#define PP_SEQ_HEAD_D(x) PP_SEQ_HEAD_II(x)
#define PP_SEQ_HEAD_II(x, _) x
#define PP_SEQ_TAIL(seq) PP_EAT seq
#define PP_SEQ_SIZE(seq) PP_CAT(PP_SIZE_, PP_SIZE_0 seq)
#define PP_SIZE_0(_) PP_SIZE_1
#define PP_SIZE_1(_) PP_SIZE_2
#define PP_SIZE_2(_) PP_SIZE_3
#define PP_SIZE_3(_) PP_SIZE_4
#define PP_SIZE_PP_SIZE_0 0
#define PP_SIZE_PP_SIZE_1 1
#define PP_SIZE_PP_SIZE_2 2
#define PP_SIZE_PP_SIZE_3 3
#define PP_SIZE_PP_SIZE_4 4
#define SEQ (a)(b c)((d,e))
PP_SEQ_HEAD(SEQ) PP_SEQ_TAIL(SEQ) PP_SEQ_SIZE(SEQ) PP_SEQ_HEAD(PP_SEQ_TAIL(SEQ)) PP_SEQ_SIZE(PP_SEQ_TAIL(SEQ)) PP_SEQ_SIZE((x))
#define PP_TUPLE_ELEM_0(a,b,c) a
#define PP_TUPLE_ELEM_1(a,b,c) b
#define PP_TUPLE_ELEM_2(a,b,c) c
#define PP_TUPLE_ELEM(i,t) PP_CAT(PP_TUPLE_ELEM_,i) t
PP_TUPLE_ELEM(0,(x,y,z)) PP_TUPLE_ELEM(2,(x,y,(z,w))) PP_TUPLE_ELEM(1,PP_TUPLE_ELEM(1,(1,(a,b,c),3)))
--- gives
a (b c)((d,e)) 3 b c 2 1
x (z,w) b
=== boost-like-loop
#define PP_CAT(a,b) PP_CAT_I(a,b)
#define PP_CAT_I(a,b) a##b
#define PP_IIF(c,t,f) PP_CAT(PP_IIF_,c)(t,f)
#define PP_IIF_0(t,f) f
#define PP_IIF_1(t,f) t
#define PP_BOOL(x) PP_CAT(PP_BOOL_,x)
#define PP_BOOL_0 0
#define PP_BOOL_1 1
#define PP_BOOL_2 1
#define PP_BOOL_3 1
#define PP_BOOL_4 1
#define PP_DEC(x) PP_CAT(PP_DEC_,x)
#define PP_DEC_1 0
#define PP_DEC_2 1
#define PP_DEC_3 2
#define PP_DEC_4 3
#define PP_STOP(...)
#define PP_FOR_1(s,p,o,m) PP_IIF(p(2,s),m,PP_STOP)(2,s) PP_IIF(p(2,s),PP_FOR_2,PP_STOP)(o(2,s),p,o,m)
#define PP_FOR_2(s,p,o,m) PP_IIF(p(3,s),m,PP_STOP)(3,s) PP_IIF(p(3,s),PP_FOR_3,PP_STOP)(o(3,s),p,o,m)
#define PP_FOR_3(s,p,o,m) PP_IIF(p(4,s),m,PP_STOP)(4,s) PP_IIF(p(4,s),PP_FOR_4,PP_STOP)(o(4,s),p,o,m)
#define PP_FOR_4(s,p,o,m) PP_IIF(p(5,s),m,PP_STOP)(5,s) PP_IIF(p(5,s),PP_FOR_5,PP_STOP)(o(5,s),p,o,m)
#define PP_FOR_5(s,p,o,m) too deep
#define pred(r,s) PP_BOOL(s)
#define op(r,s) PP_DEC(s)
#define body(r,s) f##s(r);
PP_FOR_1(4,pred,op,body)
#define NESTED(r,s) {PP_FOR_3(s,pred,op,body)}
PP_FOR_1(2,pred,op,NESTED)
#define PP_AUTO() PP_CAT(PP_FOR_,PP_AUTO_I(1))
#define PP_AUTO_I(n) PP_CAT(PP_CHECK_,PP_FOR_1(0,pred,op,body)PP_ONE)
#define PP_CHECK_PP_ONE 1
PP_AUTO()(3,pred,op,body)
--- gives
f4(2); f3(3); f2(4); f1(5); too deep
{f2(4); f1(5); too deep} {f1(4);  }  
f3(2); f2(3); f1(4);  
=== x-macros
#define COLORS X(red, 0xf00) X(green, 0x0f0) \
  X(blue, 0x00f)
#define X(n, v) n = v,
enum { COLORS last };
#undef X
#define X(n, v) #n,
char *names[] = { COLORS };
#undef X
#define X(n, v) case n: return #v; /* for n */
COLORS
#define TABLE(F) F(a) F(b) F(c)
#define P1(x) x##1
#define P2(x) TABLE(x)
TABLE(P1) TABLE(TABLE) P2(P1)
--- gives
enum { red = 0xf00, green = 0x0f0, blue = 0x00f, last };
char *names[] = { "red", "green", "blue", };
case red: return "0xf00"; case green: return "0x0f0"; case blue: return "0x00f";
a1 b1 c1 TABLE(a) TABLE(b) TABLE(c) a1 b1 c1
=== gnu-comma-before-nothing
#define e(f, ...) p(f, ##__VA_ARGS__)
#define n(f, a...) p(f, ##a)
e("a",) n(,) e(1, ) n(1,/**/)
--- gives alone
p("a") p() p(1) p(1)
