// options: --c11 --gcc
// Pragmas that name a symbol: of the wrong kind, without one, misspelt.
int data, function(void), other;
#pragma DATA_SECTION(nothing_there, ".sec")
//      ^
// expect: warning #837 pragma can only be applied to a file level symbol, not 'nothing_there'
#pragma DATA_SECTION(function, ".sec")
//      ^
// expect: warning #824 pragma DATA_SECTION can only be applied to a file level symbol definition, not "function"
#pragma DATA_SECTION data, ".sec"
//      ^
// expect: warning #830 error processing pragma DATA_SECTION, verify format
#pragma CODE_SECTION(data, ".sec")
//      ^
// expect: warning #1111 pragma CODE_SECTION can only be applied to a function definition, not "data"
#pragma FUNC_NEVER_RETURNS(data)
//      ^
// expect: warning #1112 pragma FUNC_NEVER_RETURNS can only be applied to a function, not "data"
#pragma WEAK(other)
#pragma WEAK(5)
//      ^
// expect: warning #830 error processing pragma WEAK, verify format
#pragma LOCATION(data, 0x10000000000)
//      ^
// expect: warning #1515 location pragma address is too large
#pragma RETAIN(data)
#pragma pack(push, 2)
#pragma pack(pop)
#pragma pack(pop)
//      ^
// expect: warning #692 empty pack alignment stack
#pragma pack(show)
//      ^
// expect: warning #1334 current value of pragma pack is not set
#pragma completely_unknown 1 2 3
//      ^
// expect: warning #163 unrecognized #pragma
#pragma
//     ^
// expect: warning #163 unrecognized #pragma
void g(void) {
  static int inner;
#pragma DATA_SECTION(inner, ".inner")
#pragma CODE_SECTION(g, ".text2")
  int local;
#pragma DATA_SECTION(local, ".local")
//      ^
// expect: warning #824 pragma DATA_SECTION can only be applied to a file level symbol definition, not "local"
  data = inner + local;
// expect: warning #551 variable "local" is used before its value is set
}
