// options: --c11 --gcc --remarks
asm("  .sect \".x\"\n");
asm(" .text");
asm("label: .data");
asm(" .end");
void f(void) {
  asm(" .sect \".x\"");
//    ^
// expect: error #1118 an asm in a function cannot use this directive
  asm(" .data");
//    ^
// expect: error #1118 an asm in a function cannot use this directive
  asm(" .end");
//    ^
// expect: warning #1119 this directive in an asm in a function may break the generated code
  asm(" .macro");
//    ^
// expect: warning #1119 this directive in an asm in a function may break the generated code
  asm(L"x");
//    ^
// expect: error #2839 an asm cannot have a wide string
}
