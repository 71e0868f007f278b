int in_sys(void) { return undef_sys; }
static int *unused;
#warning in a system header
char dup;
