// options: --c11 --gcc --embed_icode --embed_inline_assembly --remarks
// Assembly that is kept too is nothing to remark on.
int first(void) {
  __asm(" nop");
  return 1;
}
