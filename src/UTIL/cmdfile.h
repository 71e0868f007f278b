// Command files: options in a file, as the command line would hold them, with comments and quotes.
#ifndef UTIL_CMDFILE_H
#define UTIL_CMDFILE_H

#include <cstdio>

// The next option of a command file, from safemalloc; null at the end. A comment or a quote that
// does not end ends the process with status 255.
char *fnextopt(std::FILE *stream);

#endif
