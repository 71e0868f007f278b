// options: --c11 --gcc --remarks
#if unknown || defined known && known_not || 1 ? 2 : unseen
//  ^
// expect: remark #195 zero used for undefined preprocessing identifier "unknown"
#endif
#define yes 1
#if yes || skipped
int x;
#elif not_reached
#endif
#ifdef __has_include
int y;
#endif
