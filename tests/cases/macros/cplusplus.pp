=== alternative-words --c++14 --g++
#define s(x) #x
#define not_a_macro and
#if 1 and not 0 or 0
yes
#endif
#if (5 bitand 3) == 1 and (5 bitor 2) == 7 and (5 xor 1) == 4 and compl 0 == -1 and 1 not_eq 2
also
#endif
s(and) s(a not_eq b) and xor_eq bitand
#if true && !false
booleans
#endif
--- gives
yes
also
"and" "a not_eq b" and xor_eq bitand
booleans
=== raw-strings --c++14 --g++
#define s(x) #x
#define id(x) x
R"(a"b\n)" id(R"x(, )" ) )x") s(R"(a\b")") u8R"(1)" LR"(2)" uR"q(3)q" UR"(4)"
R"(two
lines)" id(R"(three
lines
)") xR"(no)" R "no(" )
R"/^&|~!=,"'(s)/^&|~!=,"'"
// R"( comment
s("R\"(") R"(/* no comment // */)"
--- gives
R"(a"b\n)" R"x(, )" ) )x" "R\"(a\\b\")\"" u8R"(1)" LR"(2)" uR"q(3)q" UR"(4)"
R"(two
lines)" R"(three
lines
)" xR"(no)" R "no(" ) R"/^&|~!=,"'(s)/^&|~!=,"'"
"\"R\\\"(\"" R"(/* no comment // */)"
=== digit-separators-and-suffixes --c++14 --g++
#line 1'0'23
__LINE__
#define _km suffix
#define id(x) x
#define cat(a,b) a##b
1'000'000 0x1'F 1'0.5e1'0 12_km 12 _km cat(1,2'0) cat(12,_km)
--- gives
1023
1'000'000 0x1'F 1'0.5e1'0 12_km 12 suffix 12'0 12_km
=== tokens-of-cplusplus --c++14 --g++
#define cat(a,b) a##b
cat(:,:) cat(.,*) cat(->,*) cat(-,>*) a.*b c->*d e::f <::g <::: <:::> x
--- gives
:: .* ->* -> * a.*b c->*d e::f <::g <::: <:::> x
=== line-comments-and-empty-arguments --c++14 --g++
#define f(x,y) <x|y>
f(,) f(1 // one
, 2 /* two */) // three
f(//
,//
)
#define v(...) [__VA_ARGS__]
v() v(1,2) v(v(3))
--- gives
< | > 
<1|2> 
< | >
[] [1,2] [[3]]
=== c++03-tokens --c++03 --g++
#define s(x) #x
R"(x)" u8"a" u"b" U'c' s(u8) 1'0' 12_km "a"_km
#define u8 prefix
#define R raw
u8 R R"x" u8"y" LR"z"
--- gives
R"(x)" u8"a" u"b" U'c' "u8" 1'0' 12_km "a"_km
prefix raw raw"x" prefix"y" LR"z"
=== suffixes-are-no-parameters --c++14 --g++
#define f(q) 'c'q "s"q R"(r)"q 12q L"w"q #q u8"x"q
#define g(x) [x]
#define m macro
#define h(s) s""s
#define fn(x) call x
f(1) g("a"_k) g(R"(x)"_k) g("x" m) h(1) h("y") g("a"fn(1)) "b"fn(2)
--- gives
'c'q "s"q R"(r)"q 12q L"w"q "1" u8"x"q ["a"_k] [R"(x)"_k] ["x" macro] 1""s "y" ""s ["a" call 1] "b" call 2
=== raw-strings-in-skipped-text --c++14 --g++
#if 0
R"(
#endif
)" uR"x(
#endif )"
)x"
int x = 1'000; /*
#endif
*/ 0x1'f "a" /\
* c
#endif
*\
/ 'R"('
#else
end
#endif
--- gives
end
=== raw-strings-behind-comments-in-skipped-text --c++14 --g++
#if 0
/* c */ R"(
#endif
)" /* d */
#define X R"x(
#endif
)x"
#else
end
#endif
--- gives alone
end
=== raw-strings-and-quotes-to-the-end-of-the-line --c++14 --g++
#define M R"(multi
line)" tail
M
it's /* no comment
"nor // this
after
--- gives alone
R"(multi
line)" tail
it's /* no comment
"nor // this
after
