// options: -P --c++17 --g++ --gnu_version=120000
__has_cpp_attribute(noreturn) __has_cpp_attribute(__deprecated__) __has_cpp_attribute(nodiscard)
__has_cpp_attribute(no_such) __has_cpp_attribute(gnu :: no_such)
#define NAME fallthrough
__has_cpp_attribute(NAME)
#if defined(__has_cpp_attribute) && __has_cpp_attribute(maybe_unused) >= 201603
found
#endif
#include "system.h"
