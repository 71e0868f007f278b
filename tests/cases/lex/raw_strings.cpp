// options: --c++14 --strict
const char *a = R"(a\nb)";
const char *b = R"xyz(a)" )xyz";
const char *c = R"(line one
line two \
spliced ??= tri ??/
end)";
const char *d = R"??=(x)??=";
const char *d2 = R"(??=)??/
)";
const char *e = u8R"(é)";
const char16_t *f = uR"(é😀)";
const char32_t *g = UR"(😀)";
const wchar_t *h = LR"(é)";
const char *i = R"0123456789abcdef(x)0123456789abcdef";
#define S(x) #x
const char *j = S(R"(a
b\n"c)" "q\n");
const char *j2 = S(R"(ab\n"c)" "q\n");
#define RAW R"(in macro \n "quoted" )"
const char *k = RAW;
const char *l = R"()";
const char *m = R"a(()a)a\"b)a" "c)a";
const char *n = R"(x)" "y\n" R"(\z)";
const char *o = S(R"(one)" R"x(two)x");
#define ID(x) x
const char *p = ID(R"(multi
line, with ) paren " quote
)");
const char *q = "x"  // comment
   R"(//not a comment /* )" ;
int last = __LINE__;
const char *r = ID(R"(??=)"), *s = S(R"(??=)");
