// options: --c11 --no_gcc
// What another dialect takes in another way.
asm(" .word 1");
asm(" .cdecls C, \"x.h\"");
//  ^
// expect: error #1120 an asm outside functions cannot use this directive
asm(L" nop");
//  ^
// expect: error #1708 a wide string literal is not allowed here
long float nearly_double;
// expect: warning #2521 "long float" is nonstandard, "double" assumed
