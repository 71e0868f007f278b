// One run of the front end for each input, in a child process of the fuzzer.
//
// The front end has global state and ends by exit. A worker process starts it anew for each input
// by the driver's table of initialisations, as the unit tests do. It is replaced behind a run that
// ended by exit, in the middle of things, and after some number of others, since the memory of a
// run is not given back. When it does not come back, the input runs again in a fresh process, and
// only what happens there counts: what an earlier input left behind is no finding. The coverage
// counters lie in memory that parent and children share; that is all that has to come back.
#ifndef FUZZ_RUN_H
#define FUZZ_RUN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Puts a file into the folder of this fuzzer, which lies in memory; runs start there. Before each
// run it is emptied of everything else.
void write_input_file(const char *name, const char *text, std::size_t length);

// How far a run goes.
enum a_fuzz_depth {
  fd_command_line,  // the options only
  fd_tokens,        // all tokens of the source
  fd_compilation,   // everything, as the options say
};

// Runs the front end with these words as its command line. Ends the fuzzer when the run ends in a
// way in which no compilation may end: a signal, a finding of a sanitizer, an exception, too much
// time or memory.
void run_front_end(const std::vector<std::string> &words, a_fuzz_depth depth);

// The words of one of a few dialects, chosen by a byte of the input.
std::vector<std::string> dialect_words(std::uint8_t choice);

#endif
