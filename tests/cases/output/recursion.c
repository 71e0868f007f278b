// options: -P --c11
#define EMPTY
#define EXPAND(x) x
#define DEFER(id) id EMPTY
#define A() 123
DEFER(A)() EXPAND(DEFER(A)())
#define AA BB
#define BB AA
AA BB EXPAND(AA)
#define nil(x) x
nil(nil)(nil)(1) nil(nil)(1) nil(nil(nil))(2)
#define ff(x) x ff
ff(1)(2)(3)
#define AAA(x) x
#define BBB(x) AAA(x) AAA
BBB(1)(2)(3) BBB(BBB)(1)(2) [BBB(BBB)]
#define CAT(a, ...) PRIMITIVE_CAT(a, __VA_ARGS__)
#define PRIMITIVE_CAT(a, ...) a##__VA_ARGS__
#define CHECK_N(x, n, ...) n
#define CHECK(...) CHECK_N(__VA_ARGS__, 0, )
#define PROBE(x) x, 1,
#define NOT(x) CHECK(PRIMITIVE_CAT(NOT_, x))
#define NOT_0 PROBE(~)
#define COMPL(b) PRIMITIVE_CAT(COMPL_, b)
#define COMPL_0 1
#define COMPL_1 0
#define BOOL(x) COMPL(NOT(x))
#define IIF(c) PRIMITIVE_CAT(IIF_, c)
#define IIF_0(t, ...) __VA_ARGS__
#define IIF_1(t, ...) t
#define IF(c) IIF(BOOL(c))
NOT(0) NOT(1) BOOL(0) BOOL(7) IF(3)(yes, no) IF(0)(yes, no)
#define l(x) x m(
#define m(x) l(x)
l(1) 2) 3) ;))
#define s1(x) #x
#define s2(x) s1(x)
s1(s2(a)) s2(s1(a)) s2(AA) s1() s2(EMPTY)
#define c1(a, b) a##b
#define c2(a, b) c1(a, b)
#define ab done
c1(a, b) c2(c1(a,), b) c2(c1(a, b), _)
