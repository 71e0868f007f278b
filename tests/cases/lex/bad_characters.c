// options: --c11 --gcc
typedef unsigned short w16;
int c1 = 'a', c2 = '\n', c3 = '\\', c4 = '\'', c5 = '"', c6 = '\"', c7 = '\?', c8 = '?';
int c9 = '\0', c10 = '\177', c11 = '\377', c12 = '\x41', c13 = '\xff', c14 = '\e';
int c15 = '\400';
//         ^
// expect: warning #27 character value is out of range
int c16 = '\x100';
//         ^
// expect: warning #27 character value is out of range
int c17 = '\x';
//         ^
// expect: error #22 invalid hexadecimal number
int c18 = '\xg';
//         ^
// expect: error #22 invalid hexadecimal number
int c19 = '\8';
//         ^
// expect: warning #194 unrecognized character escape sequence
int c20 = '\z';
//         ^
// expect: warning #194 unrecognized character escape sequence
int c21 = 'ab', c22 = 'abc', c23 = 'abcd';
//        ^
// expect: warning #1696 multicharacter character literal (potential portability problem)
//                    ^
// expect: warning #1696 multicharacter character literal (potential portability problem)
//                                 ^
// expect: warning #1696 multicharacter character literal (potential portability problem)
int c24 = 'abcde';
//        ^
// expect: warning #1923 too many characters in character literal -- extra leading characters ignored
int c25 = '';
//        ^
// expect: error #25 quoted string should contain at least one character
int c26 = L'';
//        ^
// expect: error #25 quoted string should contain at least one character
int c27 = L'ab';
//        ^
// expect: error #26 too many characters in character constant
int c28 = u'a' + U'a' + L'a';
int c29 = u'ab';
//        ^
// expect: warning #26 too many characters in character constant
int c30 = U'ab';
//        ^
// expect: error #26 too many characters in character constant
int c31 = L'\xffff';
int c32 = L'\x10000';
//          ^
// expect: warning #27 character value is out of range
int c33 = u'\U00010000';
//         ^
// expect: error #1809 invalid character for char16_t literal
int c34 = U'\U0010ffff';
int c36 = 'a;
//        ^
// expect: error #8 missing closing quote
int c37 = '\u00e9';
//        ^
// expect: warning #1696 multicharacter character literal (potential portability problem)
int c38 = L'\u00e9' + u'\u20ac';
int c39 = '\u0041';
//         ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
int c40 = '\ud800';
//         ^
// expect: error #1930 a universal character name cannot designate a surrogate code point
int c41 = L'\U00110000';
//          ^
// expect: error #2484 a universal character name cannot designate a value above 0x10FFFF
int c42 = '\u12';
//             ^
// expect: error #1019 incorrectly formed universal character name
int c43 = '\U0001234';
//                  ^
// expect: error #1019 incorrectly formed universal character name
char s1[] = "\u00e9\U0001F600", s2[] = u8"\u20ac";
w16 s3[] = u"\U0001F600";
char s4[] = "\u0000";
//           ^
// expect: error #1021 a universal character name cannot designate a character in the basic character set
char s5[] = "\400";
//           ^
// expect: warning #27 character value is out of range
char s6[] = "\x1ff";
//           ^
// expect: warning #27 character value is out of range
char s7[] = "\q";
//           ^
// expect: warning #194 unrecognized character escape sequence
char s8[] = "abc
//          ^
// expect: error #8 missing closing quote
;
char s9[] = "abc\
def";
char *s10 = "abc\;
//          ^
// expect: error #8 missing closing quote
char *s11 = u8"a" L"b";
//                ^
// expect: error #1563 narrow and wide string literals cannot be concatenated
char *s12 = u"a" U"b";
//               ^
// expect: error #1563 narrow and wide string literals cannot be concatenated
void *s13 = "a" L"b";
void *s14 = L"a" "b" L"c";
void *s15 = u8"a" "b";
void *s16 = L"\x10000";
//            ^
// expect: warning #27 character value is out of range
char s17[] = "\x41" "1";
_Static_assert(sizeof "\x41" "1" == 3 && sizeof "\1011" == 3 && sizeof "\0" "1" == 3, "");
