// Preprocessed output and listings: the logical line that was scanned is written, with what
// replaced its pieces, just before the next one is read.
#ifndef SOURCE_PP_OUTPUT_H
#define SOURCE_PP_OUTPUT_H

#include <cstdint>
#include <cstdio>

#include "source/input_stack.h"

extern std::FILE *f_pp_output;    // opened by the driver
extern std::FILE *f_raw_listing;  // null: none is written
extern bool do_not_put_curr_line_in_pp_output;
extern bool no_token_separators_in_this_line_of_pp_output;
extern std::uint32_t next_seq_in_pp_output;  // of the line that the output file stands at

void gen_pp_output_for_curr_line();
// Line control, for the next line or for the current one.
void gen_pp_line_info(bool at_next_line);

void gen_raw_listing_for_curr_line();
void gen_rlisting_line_info(char flag);  // '1' a file begins, '2' it is resumed, ' ' neither
void finish_raw_listing_file();

void gen_dependency_line(const char *file_name);
void gen_included_file_line(const char *file_name, int depth);

void pp_output_trans_unit_init();

#endif
