int o = undef_o;
#include "inner.h"
int other = undef_other;
