// options: --c11 --abi=eabi --entry_hook=begin --entry_parm=name --exit_hook=end --exit_parm=address
// Calls at the entry and the exit of functions, but for hooks and those that are left out.
#pragma HOOK_FUNCTION(begin)
void begin(const char *name) {}
#pragma NO_HOOKS(left_out)
int left_out(int a) { return a; }
struct s { int a, b, c; };
struct s whole(int a) { struct s v = {a}; return v; }
double half(short x) { if (x > 3) return x / 2.0; return left_out(x); }
void nothing(int *p) { if (p) return; *p = 1; }
