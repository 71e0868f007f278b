#include_next <next.h>
int first;
