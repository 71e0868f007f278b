// options: --c11 --gcc
// Attributes at places, on entities and with arguments that they do not take.
int unknown __attribute__((no_such_thing));
//                         ^
// expect: warning #1173 unknown attribute "no_such_thing"
int args __attribute__((unused(1)));
//                            ^
// expect: error #1170 attribute "unused" does not take arguments
int empty_section __attribute__((section()));
//                                       ^
// expect: error #1092 expected a string literal
int number_section __attribute__((section(5)));
//                                        ^
// expect: error #1092 expected a string literal
int odd __attribute__((aligned(3)));
//                             ^
// expect: error #1166 invalid alignment value specified by attribute
int huge __attribute__((aligned(1 << 30)));
//                              ^
// expect: error #1166 invalid alignment value specified by attribute
int negative __attribute__((aligned(-4)));
//                                  ^
// expect: error #1175 invalid argument to attribute "aligned"
int text_aligned __attribute__((aligned("4")));
//                                      ^
// expect: error #159 expression must be an integral constant expression
int variable_noreturn __attribute__((noreturn));
//                                   ^
// expect: warning #2104 attribute "noreturn" does not apply here
int weak_variable __attribute__((weak));
static int static_weak __attribute__((weak));
//                                    ^
// expect: error #1681 attribute "weak" requires external linkage
int aliased __attribute__((alias("nowhere")));
//                         ^
// expect: error #1228 the target "nowhere" of the alias is not declared
void function_alias(void) __attribute__((alias("no_such_function")));
//                                       ^
// expect: error #1228 the target "no_such_function" of the alias is not declared
void bad_format(const char *f, ...) __attribute__((format(printf, 2, 1)));
//                                                                ^
// expect: error #1175 invalid argument to attribute "format"
void no_format(int n) __attribute__((format(printf, 1, 2)));
//                                                  ^
// expect: error #1175 invalid argument to attribute "format"
void strange_format(const char *f, ...) __attribute__((format(sprintf_like, 1, 2)));
//                                                            ^
// expect: warning #1175 invalid argument to attribute "format"
int mode_int __attribute__((mode(XX)));
//                               ^
// expect: error #1175 invalid argument to attribute "mode"
float mode_float __attribute__((mode(SI)));
//                              ^
// expect: error #1164 the mode does not fit the type "float"
int packed_int __attribute__((packed));
//                            ^
// expect: warning #2104 attribute "packed" does not apply here
struct t { int a; } __attribute__((packed, no_such_too));
//                                         ^
// expect: warning #1173 unknown attribute "no_such_too"
union u { int i; float f; } __attribute__((transparent_union));
struct v { int i; } __attribute__((transparent_union));
//                                 ^
// expect: warning #1183 the attribute "transparent_union" applies to unions only
int unclosed __attribute__((unused);
//                                 ^
// expect: error #18 expected a ")"
int missing __attribute__(unused);
//                        ^
// expect: error #126 expected a "("
int twice __attribute__((unused, , used));
void f(void) {
  int local __attribute__((section("here")));
//                         ^
// expect: error #2130 attribute "section" does not apply to automatic variables
  int used_local __attribute__((used));
//                              ^
// expect: warning #2130 attribute "used" does not apply to automatic variables
  static int s __attribute__((section("there")));
  int automatic_weak __attribute__((weak));
//                                  ^
// expect: error #1681 attribute "weak" requires external linkage
  __attribute__((fallthrough));
//               ^
// expect: warning #1173 unknown attribute "fallthrough"
  (void)s, (void)local, (void)used_local, (void)automatic_weak;
}
int cleanup_arg __attribute__((cleanup(f)));
//                             ^
// expect: warning #1173 unknown attribute "cleanup"
void constructor_with(void) __attribute__((constructor(50)));
//                                                     ^
// expect: warning #1943 constructor priorities up to 101 are reserved
int init_priority __attribute__((constructor));
//                               ^
// expect: error #2104 attribute "constructor" does not apply here
void deprecated_function(void) __attribute__((deprecated));
void deprecated_text(void) __attribute__((deprecated("use another")));
void use(void) { deprecated_function(); deprecated_text(); }
//               ^
// expect: warning #1291 function "deprecated_function" is deprecated
//                                      ^
// expect: warning #1291 function "deprecated_text" is deprecated
enum __attribute__((packed)) small { one } small;
int nonnull(int *p) __attribute__((nonnull(1)));
//                                 ^
// expect: warning #1173 unknown attribute "nonnull"
int bad_nonnull(int p) __attribute__((nonnull(1)));
//                                    ^
// expect: warning #1173 unknown attribute "nonnull"
int call(void) { return nonnull(0); }
struct cannot_pack {
  double array[3] __attribute__((packed));
//                               ^
// expect: error #1168 invalid attribute for field "array"
  struct { long long inner; } nested __attribute__((packed));
//                                                  ^
// expect: error #1168 invalid attribute for field "nested"
  char small __attribute__((packed));
};
struct __attribute__((packed)) wide_field { char a; long long b : 60; };
//                                                            ^
// expect: error #1168 invalid attribute for field "b"
int real(float x __attribute__((constrange(1, 2))));
//                              ^
// expect: warning #1167 invalid attribute for "float"
int in_labels(int n) {
  switch (n) {
    case 1: __attribute__((unused)) n++;
//                         ^
// expect: warning #2116 attributes are not allowed here
  }
  return n;
}
