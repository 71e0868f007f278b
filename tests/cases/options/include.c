int before;
#include HEADER
int after;
