=== literals-inside
#define s(x) #x
#define xs(x) s(x)
s("a\n") s('"') s('\'') s("\"") s('\\') s("\\") s("a" 'b') s(L"x\t") s(u8"y" u'z' U"w") s("\x41\101\?") s(a\b)
s(@) s(`) 
xs("a\n") xs(s("a\n")) xs(s(s(1)))
--- gives
"\"a\\n\"" "'\"'" "'\\''" "\"\\\"\"" "'\\\\'" "\"\\\\\"" "\"a\" 'b'" "L\"x\\t\"" "u8\"y\" u'z' U\"w\"" "\"\\x41\\101\\?\"" "a\b"
"@" "`" 
"\"a\\n\"" "\"\\\"a\\\\n\\\"\"" "\"s(1)\""
=== white-space
#define s(x) #x
s(  a  b  ) s(a/**/b) s(/**/a/**/) s(a /* x */ /* y */ b) s(	a	b	) s(a
b) s(

a

b

) s(a+b) s(a + b) s(a +b) s(a\
b) s(a \
 b) s() s( ) s(/**/) s( . . . ) s(...) s(.. .)
--- gives
"a b" "a b" "a" "a b" "a b" 
"a b" 
"a b" "a+b" "a + b" "a +b" "ab" "a b" "" "" "" ". . ." "..." ".. ."
=== arguments-keep-spelling
#define s(x) #x
#define xs(x) s(x)
#define v 1 + 2
#define w(x) x+x
#define E
#define neg -1
s(v) xs(v) xs(w(v)) xs( w( v ) ) xs(E) xs(E E) xs(a E b) xs(E a E) xs(-neg) xs(- neg) xs(neg-neg) xs(w(-)) xs(v(v))
xs(w()) xs(w(E)) xs(E(w)) xs((E)) s(%:) xs(%:%:) s(<:) s(??=) s(not)
--- gives
"v" "1 + 2" "1 + 2+1 + 2" "1 + 2+1 + 2" "" "" "a b" "a" "--1" "- -1" "-1--1" "-+-" "1 + 2(1 + 2)"
"+" "+" "(w)" "()" "%:" "%:%:" "<:" "??=" "not"
=== nested-macros-white-space
#define s(...) #__VA_ARGS__
#define xs(...) s(__VA_ARGS__)
#define a(x) x
#define b(x) [x]
#define c(x,y) x y
#define d( x , y )x,y
xs(a(1)a(2)) xs(a(1) a(2)) xs(b( 1 )b(2)) xs(c(,)|c(1,)|c(,1)) xs(d(1,2)) xs(a( )) xs(<a( )>) xs(a (1)) xs(a
(1)) xs(a(a)(1)) xs(b b(1)) xs(x a(y)z) xs(x/**/a(y)/**/z) xs(+a(+)+) xs(+ a(+) +)
--- gives
"12" "1 2" "[1][2]" "|1 | 1" "1,2" "" "<>" "1" 
"1" "a(1)" "b [1]" "x yz" "x y z" "+++" "+ + +"
=== of-hash-characters
#define s(x) #x
#define xs(x) s(x)
#define h #
s(#) s(##) s(# #) xs(h) s(#define) xs(h define) xs(h h)
--- gives
"#" "##" "# #" "#" "#define" "# define" "# #"
=== file-and-line
#define s(x) #x
#define xs(x) s(x)
xs(__LINE__) s(__LINE__) xs(__FILE__) s(__FILE__)
#line 20 "a\\b\"c.c"
xs(__LINE__) __FILE__ xs(__FILE__)
--- gives
"3" "__LINE__" "\"program.c\"" "__FILE__"
"20" "a\\b\"c.c" "\"a\\\\b\\\"c.c\""
=== multibyte
#define s(x) #x
#define cat(a,b) a##b
s(é) s("é") s('ü' ß) cat(é,ü) s(cat(é,1)) cat(x,é)
--- gives alone
"é" "\"é\"" "'ü' ß" éü "cat(é,1)" xé
=== deep-nesting
#define s(x) #x
#define s1(x) s(x)
#define s2(x) s1(x)
#define s3(x) s2(#x)
#define e(x) s(x)s(x) #x
s1(s1(a)) s2(s2("b")) s3("c") e("d") s2(e(1)) s1(s(s(s("\\"))))
--- gives
"\"a\"" "\"\\\"b\\\"\"" "\"\\\"c\\\"\"" "\"d\"" "\"d\"" "\"d\"" "\"1\"\"1\" \"1\"" "\"s(s(\\\"\\\\\\\\\\\"))\""
=== odd-punctuation
#define s(x) #x
s({) s(}) s([) s(]) s(;) s(a;b) s(? :) s(::) s(->) s(-> *) s($) s(a$b) s(0x1p+3) s(1..2) s(.) s(.5.)
--- gives
"{" "}" "[" "]" ";" "a;b" "? :" "::" "->" "-> *" "$" "a$b" "0x1p+3" "1..2" "." ".5."
=== unbalanced-quote-in-argument
#define s(x) #x
#define id(x) x
id(it's) x
s(a'b) y
id("a) z") s("a)")
--- gives alone
it's x
"a'b" y
"a) z" "\"a)\""
=== character-form
#define c(x) #@x
c(a) c(a b) c("q") c('q') c()
--- gives alone
'a' 'a b' '"q"' '\'q\'' ''
=== universal_parameters
#define m2(\u00c1) \u00C1 Á #\u00C1 x##Á
m2(0)
#define m17(a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,\u00c1,q) \U000000C1 Á
m17(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17)
--- gives
0 0 "0" x0
16 16
