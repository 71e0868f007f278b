int before;
#include "unguarded.h"
