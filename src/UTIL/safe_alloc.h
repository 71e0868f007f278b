// Memory for the small libraries: they return only on success; without memory they say so and end
// the process with status 1.
#ifndef UTIL_SAFE_ALLOC_H
#define UTIL_SAFE_ALLOC_H

#include <cstddef>

void *safemalloc(std::size_t size);
void *saferealloc(void *pointer, std::size_t size);  // a null pointer allocates
void *safecalloc(std::size_t count, std::size_t size);

#endif
