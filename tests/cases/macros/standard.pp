=== redefinition-and-rescanning
#define x 3
#define f(a) f(x * (a))
#undef x
#define x 2
#define g f
#define z z[0]
#define h g(~
#define m(a) a(w)
#define w 0,1
#define t(a) a
#define p() int
#define q(x) x
#define r(x,y) x ## y
#define str(x) # x
f(y+1) + f(f(z)) % t(t(g)(0) + t)(1);
g(x+(3,4)-w) | h 5) & m
(f)^m(m);
p() i[q()] = { q(1), r(2,3), r(4,), r(,5), r(,) };
char c[2][6] = { str(hello), str() };
--- gives
f(2 * (y+1)) + f(2 * (f(2 * (z[0])))) % f(2 * (0)) + t(1);
f(2 * (2+(3,4)-0,1)) | f(2 * (~ 5)) & 
f(2 * (0,1))^m(0,1);
int i[] = { 1, 23, 4, 5,  };
char c[2][6] = { "hello", "" };
=== strings-and-files
#define str(s) # s
#define xstr(s) str(s)
#define debug(s, t) printf("x" # s "= %d, x" # t "= %s", \
 x ## s, x ## t)
#define INCFILE(n) vers ## n
#define glue(a, b) a ## b
#define xglue(a, b) glue(a, b)
#define HIGHLOW "hello"
#define LOW LOW ", world"
debug(1, 2);
fputs(str(strncmp("abc\0d", "abc", '\4') // this goes away
 == 0) str(: @\n), s);
#include xstr(INCFILE(2).h)
glue(HIGH, LOW);
xglue(HIGH, LOW)
--- vers2.h
in_vers2 __INCLUDE__ __LINE__
--- gives
printf("x" "1" "= %d, x" "2" "= %s", x1, x2);
fputs(
"strncmp(\"abc\\0d\", \"abc\", '\\4') == 0" ": @\n", s);
in_vers2 __INCLUDE__ 1
"hello";
"hello" ", world"
=== hash-hash
#define hash_hash # ## #
#define mkstr(a) # a
#define in_between(a) mkstr(a)
#define join(c, d) in_between(c hash_hash d)
char p[] = join(x, y);
--- gives
char p[] = "x ## y";
=== empty-arguments
#define t(x,y,z) x ## y ## z
int j[] = { t(1,2,3), t(,4,5), t(6,,7), t(8,9,),
 t(10,,), t(,11,), t(,,12), t(,,) };
#define OBJ_LIKE (1-1)
#define OBJ_LIKE /* white space */ (1-1) /* other */
#define FUNC_LIKE(a) ( a )
#define FUNC_LIKE( a )( /* note the white space */ \
 a /* other stuff on this line
 */ )
OBJ_LIKE FUNC_LIKE(OBJ_LIKE)
--- gives
int j[] = { 123, 45, 67, 89,
 10, 11, 12,  };
(1-1) ( (1-1) )
=== variable-arguments
#define debug(...) fprintf(stderr, __VA_ARGS__)
#define showlist(...) puts(#__VA_ARGS__)
#define report(test, ...) ((test)?puts(#test):\
 printf(__VA_ARGS__))
debug("Flag");
debug("X = %d\n", x);
showlist(The first, second, and third items.);
report(x>y, "x is %d but y is %d", x, y);
--- gives
fprintf(stderr, "Flag");
fprintf(stderr, "X = %d\n", x);
puts("The first, second, and third items.");
((x>y)?puts("x>y"): printf("x is %d but y is %d", x, y));
=== unspecified-nesting
#define f(a) a*g
#define g(a) f(a)
f(2)(9)
f(2)(9)(4)(5)
#define AB BA
#define BA AB
AB BA
#define foo foo a bar b bar baz c
#define bar foo 12
#define baz foo 13
foo bar baz
--- gives
2*9*g
2*9*g(4)(5)
AB BA
foo a foo 12 b foo 12 foo 13 c foo a bar b bar foo 13 c 12 foo a foo 12 b foo 12 baz c 13
=== prosser-examples
#define NIL(xxx) xxx
#define G_0(arg) NIL(G_1)(arg)
#define G_1(arg) NIL(arg)
G_0(42)
#define f1(x) x f1
#define f2(x) f1(x)
f1(1)(2)(3) f2(1)(2)
#define obj(x) rev x
#define rev (x) obj
obj(1)(2) rev(3)
#define F(x,y) x y G
#define G(x,y) F x , y H
#define H(x) [x]
F(G,H)(F,1)(2) G(F,(1,2))(3)
--- gives
42
1 f1(2)(3) 1 f1(2)
(x) obj 1(2) (x) (x) obj 3
G H F F , 1 [2] F F , (1,2) [3]
=== line-numbers
#define L __LINE__
#define two(a,b) a b L
__LINE__ L
#define many(a) a
many(__LINE__ many( L ) ) L
#line 100
L
#define s(x) #x
#define xs(x) s(x)
xs(__LINE__) s(__LINE__) xs(L)
L
--- gives
3 3
5 5 5
100
"103" "__LINE__" "103"
104
=== line-numbers-in-arguments
#define L __LINE__
#define two(a,b) a b L
two(L,
L
)
two(
L, L) L
a\
b __LINE__
L
--- gives alone
3 5 5
7 7 7 7
ab 8
10
