#include <sys.h>
int dup;
static int unused2;
