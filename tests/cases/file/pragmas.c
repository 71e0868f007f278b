// options: --c11 --gcc --abi=eabi
// Pragmas that reach the file: on symbols, in front of statements, and default sections.
extern int one, two;
int a1, a2, a3, a4, a5, a6;
#pragma DATA_SECTION(a1, ".one")
#pragma LOCATION(a2, 0x2000)
#pragma DATA_ALIGN(a3, 16)
#pragma RETAIN(a4)
#pragma CLINK(a5)
#pragma WEAK(a6)
#pragma NOINIT(n1)
int n1;
#pragma PERSISTENT(n2)
int n2 = 3;
#pragma FUNC_CANNOT_INLINE(f1)
#pragma FUNC_NO_GLOBAL_ASG(f1)
#pragma FUNC_NO_IND_ASG(f1)
#pragma FUNC_IS_PURE(f1)
#pragma FUNC_EXT_CALLED(f1)
#pragma FUNC_EXCEPTIONS_NOUNWIND(f1)
int f1(int x) { return x; }
#pragma FUNC_ALWAYS_INLINE(f2)
static int f2(int x) { return x + 1; }
#pragma CODE_SECTION(f3, ".code")
#pragma TRAMPOLINE(f3, f1)

int f3(void) { return f2(2); }
#pragma TASK(f4)
void f4(void) {}
#pragma INTERRUPT(f5)
interrupt void f5(void) {}
#pragma NMI_INTERRUPT(f6)
void f6(void) {}
#pragma DUAL_STATE(f7)
void f7(void) {}
#pragma SWI_ALIAS(f8, 48)
void f8(void);
#pragma CODE_STATE(f9, 32)
void f9(void) { f8(); }
#pragma NO_HOOKS(f10)
void f10(void) {}
#pragma HOOK_FUNCTION(f11)
void f11(void) {}
#pragma CALLS(f12, f1, f3)
void f12(void (*p)(void)) { p(); }
#pragma FUNC_NEVER_RETURNS(f13)
void f13(void) { for (;;) ; }

void f14(void) {}
#pragma SET_CODE_SECTION(".set_code")
#pragma SET_DATA_SECTION(".set_data")
int in_set;
void in_set_f(void) {}
#pragma SET_CODE_SECTION()
#pragma SET_DATA_SECTION()
#pragma ALWAYS_INLINE
void loops(int *p, int n) {
  int i;
#pragma UNROLL(4)
#pragma MUST_ITERATE(1, 8, 2)
#pragma PROB_ITERATE(2, 4)
  for (i = 0; i < n; i++) p[i] = i;
#pragma LOOP_NO_ALIAS
#pragma PARALLEL_LOOP
#pragma NO_ALIAS_CLONE
  for (i = 0; i < n; i++) p[i]++;
#pragma COALESCE_LOOP
  for (i = 0; i < n; i++) p[i]--;
#pragma NO_COALESCE_LOOP
#pragma MMA_LOOP
  for (i = 0; i < n; i++) p[i] = 0;
#pragma FORCEINLINE
  f2(n);
#pragma FORCEINLINE_RECURSIVE
  f2(n);
#pragma NOINLINE
  f2(n);
#pragma forceinline
  f2(n);
#pragma noinline
  f2(n);
}
#pragma vector = one, two
interrupt void vec(void) {}
#pragma location = 0x3000
int loc;
