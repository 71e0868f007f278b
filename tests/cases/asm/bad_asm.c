// options: --c11 --gcc
// asm statements, declarations and names.
asm("file level");
asm(5);
//  ^
// expect: error #196 expected a string literal for the asm
asm("unclosed";
//            ^
// expect: error #18 expected a ")"
int renamed asm("new_name");
int renamed_twice asm("one");
extern int renamed_twice asm("two");
//                       ^
// expect: error #1586 asm name conflicts with that of an earlier declaration
int defined_before = 1;
extern int defined_before asm("late");
int function(void) asm("function_name");
int body(void) asm("body_name") { return 1; }
//             ^
// expect: error #1192 an asm name is not allowed in a function definition
void wide(void) { asm(L"text"); }
//                    ^
// expect: error #2839 an asm cannot have a wide string
void qualifiers(void) {
  asm volatile("nop");
  asm const("nop");
//    ^
// expect: warning #1568 const on an asm has no effect
  asm restrict("nop");
//    ^
// expect: error #1570 only const, volatile and goto can stand behind asm
  asm("nop")
  asm();
// expect: error #66 expected a ";"
//    ^
// expect: error #196 expected a string literal for the asm
  asm("nop" : "=r"(defined_before));
//          ^
// expect: error #18 expected a ")"
  __asm__ __volatile__("nop");
  register int r asm("ax");
//               ^
// expect: error #1489 a register variable tied to a register is not supported
  register int unknown asm("no_such_register");
//                     ^
// expect: error #1194 unknown register name "no_such_register"
  r = unknown = 1;
}
typedef int type asm("no");
void parameter(int p asm("no"));
//                   ^
// expect: error #18 expected a ")"
int asm_in_expression(void) { return asm("nop"); }
//                                   ^
// expect: error #29 expected an expression
