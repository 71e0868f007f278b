// options: -E --no_preproc_only --c11 --gcc
#define DO_PRAGMA(x) _Pragma(#x)
#define PACKED(n) DO_PRAGMA(pack(n))
PACKED(1)
struct s { char a; int b; };
PACKED()
_Pragma("diag_suppress 177") int L7; _Pragma("push_macro(\"L7\")")
#define L7 q
int w = sizeof(struct s); _Pragma
  ("pack(2)") struct t { char a; int L10; } L7;
_Pragma("pop_macro(\"L7\")") int *y = &L7;
int ok[sizeof(struct s) == 5 && sizeof(struct t) == 6 ? 1 : -1];
#pragma once
