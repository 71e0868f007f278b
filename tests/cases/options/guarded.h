#ifndef G
#define G
int guarded;
#endif
