// The switches and their starting values.
#include "driver/switches.h"

#define FLAG(name, default, meaning) bool name = default;
#define NUMBER(name, default, meaning) int name = default;
#define TEXT(name, meaning) const char *name = nullptr;
#include "driver/switches.def"

void reset_switches() {
#define FLAG(name, default, meaning) name = default;
#define NUMBER(name, default, meaning) name = default;
#define TEXT(name, meaning) name = nullptr;
#include "driver/switches.def"
}
