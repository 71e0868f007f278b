#include "std_types.h"
