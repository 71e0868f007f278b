// options: --c++03 --strict
int b = 12_km;
// expect: error #19 extra text after expected end of number
int c = 'a'_c;
// expect: error #66 expected a ";"
const char *d = u8"x";
// expect: error #20 identifier "u8" is undefined
// expect: error #66 expected a ";"
const wchar_t *f = "a" L"b";
// expect: error #1563 narrow and wide string literals cannot be concatenated
int \u0041b, x\u00e9, y\u0001, z\u0300;
// expect: error #1021 a universal character name cannot designate a character in the basic character set
// expect: error #1020 universal character name specifies a control character
// expect: error #1022 universal character name is not allowed in an identifier
char g[] = "\u0041\u0001";
// expect: error #1021 a universal character name cannot designate a character in the basic character set
// expect: error #1020 universal character name specifies a control character
int h<::B>;
// expect: warning #725 use of alternative token "<:" appears to be unintended
// expect: error #29 expected an expression
// expect: error #17 expected a "]"
int i = 0b11;
long long j = 1ll;
int a = 1'000;
// expect: warning #2988 digit separators not enabled, apostrophe begins a character literal
// expect: error #8 missing closing quote
// expect: error #66 expected a ";"
;
// expect: warning #12 parsing restarts here
