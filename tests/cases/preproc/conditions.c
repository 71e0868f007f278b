// options: --gcc
#define ONE 1
#if !defined ONE || -1 > 0u != 1 || 'a' != 97 || (ONE ? 2 : 1 / 0) != 2
int wrong;
int wrong[2];
#elif 0
it's "skipped
/* #else */
#else
int right;
#endif
#ifdef ONE
int also_right = ONE;
#endif
