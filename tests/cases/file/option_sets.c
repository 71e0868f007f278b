// options: --c11 --abi=eabi --embed_opts 2 --opt_level=1 --fp_mode=strict --override_opts slow 1 --opt_level=0
// Sets of options: the base, one of the command line, and those that pragmas add to them.
#pragma FUNCTION_OPTIONS(fast, "-O3 --opt_for_speed=5 --opt_level=4")
int fast(void) { return 1; }
#pragma FUNCTION_OPTIONS(slow, "--unaligned_access=off")
int slow(void) { return 1; }
int base(void) { return 1; }
