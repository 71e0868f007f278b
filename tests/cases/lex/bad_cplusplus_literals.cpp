// options: --c++14 --g++
int e1 = ''_c;
// expect: error #25 quoted string should contain at least one character
int e2 = 'ab'_c;
// expect: warning #1696 multicharacter character literal (potential portability problem)
// expect: error #2843 a multicharacter literal cannot be part of a user-defined literal
int e3 = u'\U0001F600';
// expect: error #1809 invalid character for char16_t literal
int e4 = U'ab';
// expect: error #26 too many characters in character constant
int e5 = u'ab';
// expect: warning #26 too many characters in character constant
int e6 = L'ab';
// expect: warning #26 too many characters in character constant
int e8 = 'a\x';
// expect: error #22 invalid hexadecimal number
int e9 = '\400';
// expect: warning #27 character value is out of range
int f1 = '\q';
// expect: warning #194 unrecognized character escape sequence
int f2 = u'\uD800';
// expect: error #1930 a universal character name cannot designate a surrogate code point
const char *g2 = R"a b(x)a b";
// expect: error #2810 invalid character in raw string delimiter
const char *g3 = R"0123456789abcdef0(x)0123456789abcdef0";
// expect: error #2811 parenthesis terminating raw string delimiter not found after 16 characters -- raw string indicator ignored
const char *g4 = u8"a" u"b";
// expect: error #1563 narrow and wide string literals cannot be concatenated
const char *g5 = u"a" U"b";
// expect: error #1563 narrow and wide string literals cannot be concatenated
const char16_t *g6 = "a" u"b" "c";
const char *g7 = "a"_s u8"b"_s "c";
// expect: error #1489 a user-defined literal is not supported
const wchar_t *g8 = L"a"_s "b"_t "c"_u;
// expect: error #2844 user-defined literal suffix does not match the earlier "_s"
// expect: error #1489 a user-defined literal is not supported
#define PRI "d"
#define NAME other
const char *h1 = "%"PRI "x" "%"PRI;
const char *h2 = "%"NAME;
// expect: warning #2992 identifier is a macro and not a literal suffix
// expect: error #66 expected a ";"
const char *h3 = 'a'NAME;
// expect: error #145 a value of type "char" cannot be used to initialize an entity of type "const char *"
// expect: error #66 expected a ";"
