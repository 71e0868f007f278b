// Memory for the small libraries.
#include "UTIL/safe_alloc.h"

#include <cstdio>
#include <cstdlib>

static void *checked(void *pointer, std::size_t size) {
  if (pointer == nullptr && size != 0) {
    std::fputs("ERROR: out of memory\n", stderr);
    std::exit(1);
  }
  return pointer;
}

void *safemalloc(std::size_t size) {
  return checked(std::malloc(size), size);
}

void *saferealloc(void *pointer, std::size_t size) {
  return checked(std::realloc(pointer, size), size);
}

void *safecalloc(std::size_t count, std::size_t size) {
  return checked(std::calloc(count, size), count != 0 ? size : 0);
}
