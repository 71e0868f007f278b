#include "self.h"
