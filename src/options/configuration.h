// What the program is: its name, its version, and how it was built.
#ifndef OPTIONS_CONFIGURATION_H
#define OPTIONS_CONFIGURATION_H

#include <cstdio>

inline constexpr char tool_version[] = "4.13";
inline constexpr int tool_version_number = 413;
// Fixed texts: two builds of one source make the same program.
inline constexpr char build_date[] = "Nov 23 2026";
inline constexpr char build_time[] = "00:00:00";

// Writes the configuration as a header of macros.
void dump_configuration(std::FILE *stream);

#endif
