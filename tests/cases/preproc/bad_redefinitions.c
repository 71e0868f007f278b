// options: --c11 --gcc
#define same 1 + 2
#define same 1 + 2
#define same 1  +	2
#define same /* a */ 1 /* b */ + 2 // c
#define same 1 + \
  2
#define same 1+2
//      ^
// expect: warning #48 incompatible redefinition of macro "same"
#undef same
#define same 1+2
#define same 1 +2
//      ^
// expect: warning #48 incompatible redefinition of macro "same"
#define empty
#define empty /* nothing */
#define empty 
#define empty 0
//      ^
// expect: warning #48 incompatible redefinition of macro "empty"
#define f(a, b) a + b
#define f(a, b) a + b
#define f( a ,b ) a + b
#define f(a, c) a + c
//      ^
// expect: warning #48 incompatible redefinition of macro "f"
#undef f
#define f(a)#a
#define f(a) # a
#define g(a) a ## 1
#define g(a) a	##  1
#define g(a) a##1
//      ^
// expect: warning #48 incompatible redefinition of macro "g"
#define h() 1
#define h 1
//      ^
// expect: warning #48 incompatible redefinition of macro "h"
#undef h
#define h (1)
#define h() 1
//      ^
// expect: warning #48 incompatible redefinition of macro "h"
#define v(...) __VA_ARGS__
#define v(...) __VA_ARGS__
#define v(a...) a
//      ^
// expect: warning #48 incompatible redefinition of macro "v"
#undef v
#define v(a, ...) a
#define v(a) a
//      ^
// expect: warning #48 incompatible redefinition of macro "v"
#define s "a b"
#define s "a b"
#define s "a  b"
//      ^
// expect: warning #48 incompatible redefinition of macro "s"
#define p(x) x
#define p(x) y
//      ^
// expect: warning #48 incompatible redefinition of macro "p"
#define __STDC__ 1
//      ^
// expect: error #47 "__STDC__" is predefined; attempted redefinition ignored
#define __STDC_VERSION__ 201112L
//      ^
// expect: error #47 "__STDC_VERSION__" is predefined; attempted redefinition ignored
#define __LINE__ 1
//      ^
// expect: error #47 "__LINE__" is predefined; attempted redefinition ignored
#define __DATE__ "x"
//      ^
// expect: error #47 "__DATE__" is predefined; attempted redefinition ignored
#define __FILE__ "x"
//      ^
// expect: error #47 "__FILE__" is predefined; attempted redefinition ignored
#undef __LINE__
#define __LINE__ 77
int line[__LINE__ == 77 ? 1 : -1];
#define defined 1
//      ^
// expect: error #47 "defined" is predefined; attempted redefinition ignored
#define int long
int back = sizeof(int);
#define if while
#undef int
int i = same empty;
//           ^
// expect: error #66 expected a ";"
