// options: --c11 --abi=eabi --remarks --version=7M4
// Pragmas on what they cannot be applied to.
extern int ext;
int var;
#pragma vector = nobody, 3
//               ^
// expect: error #2622 the symbol 'nobody' of the vector list is not declared
void vec(void) {}
#pragma DATA_ALIGN(var, 65536)
//      ^
// expect: error #819 alignment too large in pragma DATA_ALIGN
#pragma INTERRUPT(f1, OTHER)
//      ^
// expect: error #820 illegal optional interrupt type 'OTHER'
void f1(void) {}
#pragma CODE_SECTION(no_such, "x")
//      ^
// expect: warning #827 specified symbol 'no_such' undefined
#pragma NOINIT(f2)
//      ^
// expect: warning #1516 pragma NOINIT cannot be applied to functions
void f2(void) {}
#pragma INTERRUPT(f3)
//      ^
// expect: error #833 no parameters allowed for interrupt functions such as 'f3'
void f3(int a) {}
//          ^
// expect: remark #880 variable "a" was never referenced
#pragma RETAIN(ext)
//      ^
// expect: warning #824 pragma RETAIN can only be applied to a file level symbol definition, not "ext"
#pragma LOCATION(ext, 0x100)
//      ^
// expect: warning #824 pragma LOCATION can only be applied to a file level symbol definition, not "ext"
#pragma NOINIT(ext)
//      ^
// expect: warning #1523 NOINIT can only be applied to a file level symbol definition, not "ext"
#pragma SWI_ALIAS(f4, 3)
//      ^
// expect: warning #825 pragma SWI_ALIAS can only be applied to a file level symbol declaration, not "f4"
void f4(void) {}
#pragma CODE_STATE(f5, 32)
//      ^
// expect: warning #2641 only 16 is a valid argument to CODE_STATE pragma for ARMv7-M architecture.
void f5(void) {}
#pragma CALLS(f6, var)
//                ^
// expect: error #829 symbol 'var' invalid for specified pragma
void f6(void) {}
#pragma TRAMPOLINE(var, f6)
//      ^
// expect: warning #823 pragma TRAMPOLINE can only be applied to a file level symbol, not "var"
#pragma DATA_SECTION(sec, "one")
#pragma DATA_SECTION(sec, "two")
//      ^
// expect: warning #1508 variable "sec" has incompatible section specifications, one and two, one will be used
int sec;
#pragma WEAK(ext)
#pragma SWI_ALIAS(f7, 3)
//      ^
// expect: remark #1367 ensure SVC handler supports a non-void return type
int f7(void);
_Pragma("hdrstop")
// expect: error #1288 this pragma cannot be used in a _Pragma operator (a #pragma directive must be used)
#pragma RETAIN(type_name)
//      ^
// expect: warning #1507 pragma RETAIN can only be applied to a function or object definition, not "type_name"
typedef int type_name;
#pragma CODE_SECTION(ext, "open)
//                        ^
// expect: error #8 missing closing quote
#pragma CHECK_MISRA("open)
//                  ^
// expect: error #8 missing closing quote
