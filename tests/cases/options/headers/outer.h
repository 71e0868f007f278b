#include "here.h"
#include "../guarded.h"
