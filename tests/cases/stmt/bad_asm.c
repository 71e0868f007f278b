// options: --c11
int i;
asm("nop");
asm("nop" ::: "memory");
//        ^
// expect: error #18 expected a ")"
asm(1);
//  ^
// expect: error #196 expected a string literal for the asm
asm();
//  ^
// expect: error #196 expected a string literal for the asm
asm("a" "b");
asm("a", "b");
//     ^
// expect: error #18 expected a ")"
void f(int n) {
  asm("mov r0, r0");
  asm volatile("nop");
  asm goto("nop");
  __asm("nop");
  __asm__ __volatile__("nop\n\tnop" "\n");
  asm("add %0, %1" : "=r"(i) : "r"(n));
//                 ^
// expect: error #18 expected a ")"
  asm("" : : : "memory");
//       ^
// expect: error #18 expected a ")"
  asm("" ::: "cc", "r0");
//       ^
// expect: error #18 expected a ")"
  asm(L"wide");
//    ^
// expect: error #2839 an asm cannot have a wide string
  asm("nop"
  i = 1;
// expect: error #18 expected a ")"
  asm "nop";
//    ^
// expect: error #126 expected a "("
  asm("nop") i = 2;
//           ^
// expect: error #66 expected a ";"
  asm(n);
//    ^
// expect: error #196 expected a string literal for the asm
  asm("nop" "a" 1);
//              ^
// expect: error #18 expected a ")"
  if (n) asm("nop"); else asm("nop");
  for (;;) asm("wfi");
  i = undefined;
// expect: warning #112 statement is unreachable
//    ^
// expect: error #20 identifier "undefined" is undefined
}
int reg asm("named");
register int sp asm("sp");
//              ^
// expect: error #1489 a register variable tied to a register is not supported
int h(void) asm("other");
int h(void) { register int bad asm("q99"); int auto_named asm("x") = 2; return bad + auto_named; }
//                             ^
// expect: error #1194 unknown register name "q99"
