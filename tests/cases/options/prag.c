#pragma pack(1)
#define T int
struct s { char c; T i; };
#pragma pack()
char a[sizeof(struct s) == 5 ? 1 : -1];
_Pragma("pack(2)") struct t { char c; T i; };
char b[sizeof(struct t) == 6 ? 1 : -1];
