=== own-name-everywhere
#define a a a
#define b(x) b x b(x)
#define c() c c()
a b(1) b c() c b(b(2)) b(b)(3)
#define id(x) x
id(a) id(id(a)) id(b)(1) id(b(1)) id(id)(a)
--- gives
a a b 1 b(1) b c c() c b b 2 b(2) b(b 2 b(2)) b b b(b)(3)
a a a a b 1 b(1) b 1 b(1) id(a a)
=== mutual-recursion
#define A B
#define B C
#define C A x
A B C
#define P(x) Q(x)
#define Q(x) R(x)
#define R(x) P(x) + Q(x)
P(1) Q(2) R(3) P(P(4))
--- gives
A x B x C x
P(1) + Q(1) Q(2) + Q(2) R(3) + R(3) P(P(4) + Q(4)) + Q(P(4) + Q(4))
=== blue-paint-travels
#define foo() bar
#define bar foo
#define id(x) x
#define id2(x) id(x)
foo() foo()() bar() id(bar)() id2(bar)() id(foo()) id(bar())
#define self(x) x self
#define pass(x) x(1)
self(0)(1) pass(self(0)) id(self(0))(1) id(self)(0)(1) id(id(self)(0))(1)
--- gives
foo foo() foo foo foo foo foo
0 self(1) 0 self(1) 0 self(1) 0 self(1) 0 self(1)
=== paint-is-lost-in-paste
#define xy [xy xy]
#define cat(a,b) a##b
#define xcat(a,b) cat(a,b)
cat(x,y) xcat(x,y) cat(xy,) cat(,xy) xcat(xy,) xcat(xy,xy)
#define loop(n) cat(lo,op)(n)
loop(1)
#define e(x) cat(e,)(x) cat(,e)(x)
e(1)
--- gives
[xy xy] [xy xy] [xy xy] [xy xy] [xy xy] [xy xy][xy xy]
loop(1)
e(1) e(1)
=== left-open-invocation
#define open f(
#define close )
#define f(x) <x>
#define e
open 1 ) f(2) f (3) f e (4) f
e (5) open 6 )
#define h f
h(8) h (9) h h(10)
--- gives
<1> <2> <3> f  (4) f
 (5) <6>
<8> <9> f <10>
=== name-before-parenthesis-on-later-line
#define f(x) {x}
#define g f
f
(1)
g

  /* comment
  */
 (2)
f
x
g
#define late
(3)
f
#undef late
x (4)
--- gives
{1}
{2}
f
x
f
(3)
f
x (4)
=== defer-and-eval
#define EMPTY()
#define DEFER(x) x EMPTY()
#define OBSTRUCT(...) __VA_ARGS__ DEFER(EMPTY)()
#define EXPAND(...) __VA_ARGS__
#define EVAL(...)  EVAL1(EVAL1(EVAL1(__VA_ARGS__)))
#define EVAL1(...) EVAL2(EVAL2(EVAL2(__VA_ARGS__)))
#define EVAL2(...) EVAL3(EVAL3(EVAL3(__VA_ARGS__)))
#define EVAL3(...) __VA_ARGS__
#define A() 123
DEFER(A)() EXPAND(DEFER(A)()) EXPAND(OBSTRUCT(A)()) EXPAND(EXPAND(OBSTRUCT(A)()))
#define CAT(a, ...) PRIMITIVE_CAT(a, __VA_ARGS__)
#define PRIMITIVE_CAT(a, ...) a ## __VA_ARGS__
#define INC(x) PRIMITIVE_CAT(INC_, x)
#define INC_0 1
#define INC_1 2
#define INC_2 3
#define INC_3 4
#define INC_4 5
#define INC_5 6
#define DEC(x) PRIMITIVE_CAT(DEC_, x)
#define DEC_1 0
#define DEC_2 1
#define DEC_3 2
#define DEC_4 3
#define DEC_5 4
#define CHECK_N(x, n, ...) n
#define CHECK(...) CHECK_N(__VA_ARGS__, 0,)
#define NOT(x) CHECK(PRIMITIVE_CAT(NOT_, x))
#define NOT_0 ~, 1,
#define COMPL(b) PRIMITIVE_CAT(COMPL_, b)
#define COMPL_0 1
#define COMPL_1 0
#define BOOL(x) COMPL(NOT(x))
#define IIF(c) PRIMITIVE_CAT(IIF_, c)
#define IIF_0(t, ...) __VA_ARGS__
#define IIF_1(t, ...) t
#define IF(c) IIF(BOOL(c))
#define EAT(...)
#define WHEN(c) IF(c)(EXPAND, EAT)
#define REPEAT(count, macro, ...) \
    WHEN(count) \
    ( \
        OBSTRUCT(REPEAT_INDIRECT) () \
        ( \
            DEC(count), macro, __VA_ARGS__ \
        ) \
        OBSTRUCT(macro) \
        ( \
            DEC(count), __VA_ARGS__ \
        ) \
    )
#define REPEAT_INDIRECT() REPEAT
#define M(i, _) i
EVAL(REPEAT(5, M, ~))
#define WHILE(predicate, op, ...) \
    IF(predicate(__VA_ARGS__)) \
    ( \
        OBSTRUCT(WHILE_INDIRECT) () \
        ( \
            predicate, op, op(__VA_ARGS__) \
        ), \
        __VA_ARGS__ \
    )
#define WHILE_INDIRECT() WHILE
#define PRED(x, ...) BOOL(x)
#define OP(x, y) DEC(x), y [x]
#define WOP(...) OP(__VA_ARGS__)
EVAL(WHILE(PRED, WOP, 3, go))
--- gives
A () 123 A () 123
0 1 2 3 4
0, go [3] [2] [1]
=== argument-prescan-order
#define f(x,y) x##y x y #x #y
#define a b
#define b c
#define ab pasted
#define bb wrong
f(a,b) f(b,a) f( a , ) f(,b)
#define g(x) f(x,x)
g(a) g(g(a))
--- gives
pasted c c "a" "b" ba c c "b" "a" c c  "a" "" c  c "" "b"
cc c c "c" "c" cc c c "c" "c"cc c c "c" "c" cc c c "c" "c" cc c c "c" "c" "cc c c \"c\" \"c\"" "cc c c \"c\" \"c\""
=== comma-from-expansion
#define pair 1,2
#define f(x) one<x>
#define f2(x,y) two<x|y>
#define call(m,a) m(a)
#define call2(m,a) m a
f(pair) call(f2,pair) call2(f2,(pair)) f2((pair),3)
#define lp (
#define rp )
call2(f,lp 7 rp) f lp 8 rp call(f, lp pair rp)
--- gives
one<1,2> two<1|2> two<1|2> two<(1,2)|3>
one<7> f ( 8 ) one<( 1,2 )>
=== nested-invocations-as-arguments
#define max(a,b) ((a)>(b)?(a):(b))
#define min(a,b) ((a)<(b)?(a):(b))
max(max(1,2),min(3,max(4,5)))
max((1,2),[3)
--- gives
((((1)>(2)?(1):(2)))>(((3)<(((4)>(5)?(4):(5)))?(3):(((4)>(5)?(4):(5)))))?(((1)>(2)?(1):(2))):(((3)<(((4)>(5)?(4):(5)))?(3):(((4)>(5)?(4):(5))))))
(((1,2))>([3)?((1,2)):([3))
=== object-like-with-parentheses
#define F (x)
#define G() F
#define H(x) (x)F
#define call G ()
call F G() G()() H(1) H(H)(2) H F
#define I H
I F I(3)
--- gives
(x) (x) (x) (x)() (1)(x) (H)(x)(2) H (x)
H (x) (3)(x)
=== function-names-as-values
#define f(x) f1 x
#define g(x) g1 x
#define apply(m,x) m(x)
#define twice(m,x) m(m(x))
#define flip(m,n,x) n(m(x)) m(n(x))
apply(f,1) twice(f,2) flip(f,g,3) 
apply(f,f) apply(f,g)(5)
--- gives
f1 1 f1 f1 2 g1 f1 3 f1 g1 3 
f1 f f1 g1 5
=== end-of-expansion-closes
#define a b(
#define b(x) x c
#define c b(
a 1) 2) 3)
#define q(x) x r
#define r q
q(1)(2)(3) r(1)(2)
q(q)(1) q(r)(1)
--- gives
1 b( 2) 3)
1 q(2)(3) 1 q(2)
q q(1) q q(1)
=== disabled-while-collecting
#define f(x) x g(
#define g(x) x ]
f(1) 2) 3
#define s(x) [x
#define t(x) s(x) ]
t(t(1)) s(t(2)) t(s(3))
--- gives
1 2 ] 3
[[1 ] ] [[2 ] [[3 ]
