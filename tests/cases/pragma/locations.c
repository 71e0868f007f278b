// options: --c11 --gcc --embed_icode --remarks
// An address fits the alignment, and code that is kept for the linker names no weak function and
// holds no assembly; a remark of each comes once.
int attribute_at __attribute__((location(0x1001)));
//  ^
// expect: warning #1514 the address of "attribute_at" is not a multiple of its alignment of 4 bytes: 4097
int pragma_at;
//  ^
// expect: warning #1514 the address of "pragma_at" is not a multiple of its alignment of 4 bytes: 8194
#pragma LOCATION(pragma_at, 0x2002)
int good;
#pragma LOCATION(good, 0x2004)
char byte __attribute__((location(0x1001)));
int first(void) __attribute__((weak));
//  ^
// expect: remark #1463 optimization by the linker is prevented by weak symbols
int first(void) {
  __asm(" nop");
// expect: remark #1463 optimization by the linker is prevented by inline assembly
  __asm(" nop");
  return 1;
}
int second(void) __attribute__((weak));
int second(void) { return 2; }
