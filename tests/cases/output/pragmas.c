// options: -E --c11 --gcc
#define TEXT pack(1)
#pragma TEXT
#pragma pack(push, 1)
# pragma   once
#pragma GCC diagnostic ignored "-Wall"
_Pragma("pack(pop)") int a; _Pragma("diag_suppress 20")
#pragma push_macro("TEXT")
#undef TEXT
#define TEXT other
TEXT
#pragma pop_macro("TEXT")
TEXT
#define DO_PRAGMA(x) _Pragma(#x) x
DO_PRAGMA(pack(2)) int b;
#pragma STDC FP_CONTRACT ON
#define STRING(x) #x
_Pragma(STRING(pack(3))) int c;
