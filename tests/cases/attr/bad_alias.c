// options: --c11 --gcc
#define ALIAS(x) __attribute__((alias(#x)))
void target(void) { }
static int counted(int x) { return x + 1; }
int object;
typedef int type_name;
enum { constant };
void right1(void) ALIAS(target);
static void right2(void) ALIAS(target);
extern void right3(void) __attribute__((weak, alias("target")));
int right4(int) ALIAS(counted);
int right5(int) ALIAS(right4);
void loop1(void) ALIAS(loop2);
void loop2(void) ALIAS(loop1);
//               ^
// expect: error #1830 the alias function "loop2" leads back to itself
void loop3(void) ALIAS(loop3);
//               ^
// expect: error #1830 the alias function "loop3" leads back to itself
void missing(void) ALIAS(nowhere);
//                 ^
// expect: error #1228 the target "nowhere" of the alias is not declared
void wrong1(void) ALIAS(object);
//                ^
// expect: error #1229 variable "object" cannot be the target of this alias
void wrong2(void) ALIAS(type_name);
//                ^
// expect: error #1228 the target "type_name" of the alias is not declared
void wrong3(void) ALIAS(constant);
//                ^
// expect: error #1228 the target "constant" of the alias is not declared
void declared_only(void);
void wrong4(void) ALIAS(declared_only);
//                ^
// expect: error #1229 function "declared_only" cannot be the target of this alias
void wrong6(void) { }
void wrong6(void) ALIAS(target);
//                ^
// expect: error #249 function "wrong6" has already been defined
void wrong7(void) ALIAS(target);
//                ^
// expect: error #249 function "wrong7" has already been defined
void wrong7(void) { }
void twice(void) ALIAS(target);
void twice(void) ALIAS(target);
//               ^
// expect: error #249 function "twice" has already been defined
void other(void) { }
void changed(void) ALIAS(target);
void changed(void) ALIAS(other);
//                 ^
// expect: error #249 function "changed" has already been defined
void wrong8(void) __attribute__((alias("target"), section(".x")));
void wrong9(void) __attribute__((alias("")));
//                               ^
// expect: error #1228 the target "" of the alias is not declared
struct s { int x ALIAS(object); };
//               ^
// expect: error #2104 attribute "alias" does not apply here
int parameter(int x ALIAS(object));
//                  ^
// expect: error #2104 attribute "alias" does not apply here
typedef int named ALIAS(object);
//                ^
// expect: warning #2104 attribute "alias" does not apply here
int use(void) {
  int local ALIAS(object);
//          ^
// expect: error #1188 attribute "alias" does not apply to local variables
  static int local2 ALIAS(object);
//                  ^
// expect: error #1188 attribute "alias" does not apply to local variables
  void inner(void) ALIAS(target);
  right1();
  right2();
  inner();
  return right4(1) + right5(2);
}
int later1(void) ALIAS(defined_below);
int defined_below(void) { return 1; }
void renamed(void) __asm__("other_name");
void renamed(void) { }
void by_name(void) ALIAS(other_name);
