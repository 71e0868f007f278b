// options: --c11 --embed_opts 1 --opt_level=1
#pragma FUNCTION_OPTIONS(good, "--opt_level=2 -O3 --fp_mode=relaxed  --opt_for_cache")
int good(void) { return 1; }
#pragma FUNCTION_OPTIONS(word, "opt_level=2")
//      ^
// expect: error #1451 Invalid compiler option "opt_level=2" seen inside FUNCTION_OPTIONS pragma
int word(void) { return 1; }
#pragma FUNCTION_OPTIONS(unknown, "--no_such")
//      ^
// expect: error #1451 Invalid compiler option "--no_such" seen inside FUNCTION_OPTIONS pragma
int unknown(void) { return 1; }
#pragma FUNCTION_OPTIONS(whole_files, "--opt_level=2 --symdebug:none")
//      ^
// expect: error #1452 Option "--symdebug:none" cannot be used in FUNCTION_OPTIONS pragma
int whole_files(void) { return 1; }
#pragma FUNCTION_OPTIONS(argument, "--opt_level=9")
//      ^
// expect: error #1451 Invalid compiler option "--opt_level=9" seen inside FUNCTION_OPTIONS pragma
int argument(void) { return 1; }
#pragma FUNCTION_OPTIONS(needless, "--opt_for_cache=on")
//      ^
// expect: error #1451 Invalid compiler option "--opt_for_cache=on" seen inside FUNCTION_OPTIONS pragma
int needless(void) { return 1; }
#pragma FUNCTION_OPTIONS(conflict, "--auto_inline=10 --disable_inlining")
//      ^
// expect: error #1451 Invalid compiler option "--disable_inlining" seen inside FUNCTION_OPTIONS pragma
int conflict(void) { return 1; }
#pragma FUNCTION_OPTIONS(no_text, 3)
//                                ^
// expect: error #821 badly formed pragma
int no_text(void) { return 1; }
#pragma FUNCTION_OPTIONS(declared, "--opt_level=2")
//      ^
// expect: warning #1111 pragma FUNCTION_OPTIONS can only be applied to a function definition, not "declared"
int declared(void);
