// options: --c11 --gcc
// The operand of the operator may be a macro that gives a string.
#define STRINGIFY(x) #x
#define PACKED(n, declaration) _Pragma(STRINGIFY(pack(push, n))) declaration _Pragma("pack(pop)")
PACKED(1, struct s { char c; int i; };)
#define TEXT "pack(1)"
_Pragma(TEXT) struct t { char c; int i; };
_Pragma ( STRINGIFY ( pack ( ) ) ) struct u { char c; int i; };
int sizes[sizeof(struct s) == 5 && sizeof(struct t) == 5 && sizeof(struct u) == 8 ? 1 : -1];
