// The source text: the stack of open files, the logical lines read from them, and the text that the
// scanner walks with one pointer, curr_char_loc.
//
// A file is read whole into an image in memory. One logical line at a time is brought into the line
// buffer (splices joined, trigraphs replaced), ended by the bytes 0,2,0,1. A macro expansion is a
// text of its own that stands in place of a piece of the line, or of a piece of another expansion:
// an a_source_line_modif. The modifications of a line form a tree in the order of the text; the
// scanner is always inside one of its nodes, curr_text_modif (null: in the line itself), and at the
// marker 0,3 that ends its text goes on behind the piece that it replaces. Text never moves once it
// is written: the line buffer and the macro texts lie in reserved address space that is filled on
// demand, so that pointers into them stay good until the next logical line is read.
#ifndef SOURCE_INPUT_STACK_H
#define SOURCE_INPUT_STACK_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

struct a_directory_name_entry;
struct an_include_file_history;
struct a_file_image;
struct a_concatenation_record;
struct a_text_buffer;

// ---- Markers -----------------------------------------------------------------------------------

// A byte 0 in text is followed by one of these.
enum a_text_marker : unsigned char {
  tm_end_of_buffer = 1,        // the end of the text: the next logical line is wanted
  tm_end_of_line = 2,          // where the newline was
  tm_end_of_modif = 3,         // end of a replacement: back to the text around it
  tm_separator = 4,            // keeps two tokens apart, is no white space
  tm_inert = 5,                // the identifier that follows is never macro expanded
  tm_null_char = 6,            // a null byte of the source
  tm_comma_from_argument = 7,  // the comma that follows came from a macro argument
  tm_temporarily_inert = 8,    // the identifier that follows is not expanded now
  tm_end_of_invocation = 9,    // behind a whole expansion
  tm_raw_or_expanded = 10,     // choice between both forms of an argument
  tm_magic_comma = 11,         // a comma that a variadic paste may remove
  tm_empty_variadic = 12,      // an empty variadic argument
};

// ---- The text ----------------------------------------------------------------------------------

extern char *curr_source_line;              // first byte of the logical line; a blank stands before
extern char *end_of_curr_source_line;       // its 0,2,0,1
extern const char *curr_char_loc;           // the scan pointer
extern const char *delete_source_from_loc;  // in the text of curr_text_modif: what is scanned from
                                            // here on is to disappear; null: nothing is
extern std::uint32_t curr_seq_number;  // source sequence number of the line's first physical one
extern std::uint32_t seq_number_last_read;  // of the last physical line read
extern bool curr_line_is_whole;             // false while it is being read
extern bool curr_line_is_skipped;  // it was read inside a group that a condition leaves out
extern bool end_of_all_input;      // no file is left; 0,1 stands at curr_char_loc

// What skip_white_space and the scanner's blank loop met: get_token clears it before it skips, both
// add to it.
enum a_white_space_kind : std::uint8_t { wsk_comment = 1, wsk_blanks = 2 };
extern std::uint8_t kind_of_white_space_skipped;

// Passes white space, comments and ends of text. Stops at the next character of a token, at 0,2
// when newline tokens are wanted, at 0,5 and 0,8, at the 0,3 of a text that asks for a stop, and at
// the 0,1 of the end of all input or of an inserted text.
void skip_white_space();

// Brings the next logical line into the line buffer. pop_at_end: at the end of a file goes on in
// the includer. continuation: appends the next physical line at curr_char_loc (behind the two bytes
// of text that the caller put over 0,2) and leaves curr_char_loc there. True at the end of the
// input.
bool read_logical_source_line(bool pop_at_end, bool continuation);

// Would a ( be the next character of a token, also on a later line of the same file? Nothing moves.
bool left_paren_is_next();

void ensure_min_curr_source_line_length(std::size_t size);

// How the logical line differs from the physical ones, in the order of the text.
enum an_orig_line_modif_kind : std::uint8_t {
  olm_trigraph,         // one byte stands for three; value: the third
  olm_line_splice,      // backslash and newline are gone; value: sequence number of the next line
  olm_trigraph_splice,  // the same with ??/ for the backslash
  olm_newline,          // \ and n stand for a newline in a literal; value: the same
  olm_null_char,        // 0,6 stands for a null byte
};
struct an_orig_line_modif {
  an_orig_line_modif *next;
  const char *loc;
  an_orig_line_modif_kind kind;
  bool in_skipped_text;  // preprocessed output shows the original here
  std::uint32_t value;
};
extern an_orig_line_modif *orig_line_modif_list;
extern an_orig_line_modif *end_orig_line_modif_list;
void add_orig_line_modif(const char *loc, an_orig_line_modif_kind kind, std::uint32_t value);

// ---- Replaced text -----------------------------------------------------------------------------

enum a_source_line_modif_flag : std::uint8_t {
  slm_stop_at_end = 1,  // the scan stops at the end of this text
  slm_blank = 2,        // a deletion that shows as one blank (a comment)
  slm_file_text = 4,    // not a replacement: text inserted by the program
};
struct a_source_line_modif {
  a_source_line_modif *next;         // the following sibling, in the order of the text
  a_source_line_modif *parent;       // the text in which loc lies; null: the line
  a_source_line_modif *first_child;  // replacements inside this text
  a_source_line_modif *last_child;
  const char *loc;         // start of the piece replaced; null: in front of the line's first byte
  const char *resume_loc;  // behind it
  const char *text_start;  // the replacement
  const char *text_end;    // its 0,3
  a_symbol *macro_id;      // the macro whose expansion this is; null: none
  a_source_position fixed_position;  // of all its tokens; null: computed from loc
  a_concatenation_record *concatenations;
  std::uint8_t flags;
};
extern a_source_line_modif *curr_text_modif;         // holds curr_char_loc; null: the line does
extern a_source_line_modif *source_line_modif_list;  // those directly in the line
// The last one whose end skip_white_space passed; for a scanner that wants to know whether a token
// came from another text.
extern a_source_line_modif *last_source_line_modif_exited_while_skipping_white_space;

// Replaces [loc, resume_loc) of the text of parent; children that lie in that piece go away.
a_source_line_modif *add_source_line_modif(a_source_line_modif *parent, const char *loc,
                                           const char *resume_loc, const char *text_start,
                                           const char *text_end);

// Is loc inside an expansion of a macro? Then the tokens there have the invocation's position.
inline bool loc_is_in_macro_text() {
  return curr_text_modif != nullptr;
}

// The position of a place in the current text.
void conv_line_loc_to_source_pos(const char *loc, a_source_position *pos);
extern bool source_columns_need_computation;  // splices or multibyte characters in this line

// The same for a place at or near curr_char_loc, fast for plain lines.
inline void source_position_at(const char *loc, a_source_position *pos) {
  if (curr_text_modif == nullptr && !source_columns_need_computation) [[likely]] {
    std::size_t column = static_cast<std::size_t>(loc + 1 - curr_source_line);
    pos->seq = curr_seq_number;
    pos->column = static_cast<a_column_number>(column < 65535 ? column : 65535);
  } else {
    conv_line_loc_to_source_pos(loc, pos);
  }
}

// Text of the program's own put in place of the input: text ends with 0,2,0,1 or 0,1, all its
// tokens stand at pos. The scan stops at its 0,1. Calls nest.
struct a_saved_text_place {
  const char *char_loc;
  const char *delete_from;
  a_source_line_modif *text_modif;
  a_source_line_modif inserted;
};
void begin_inserted_text(const char *text, const a_source_position *pos, a_saved_text_place *saved);
void end_inserted_text(a_saved_text_place *saved);

// ---- The stack of files ------------------------------------------------------------------------

enum a_unicode_source_kind_tag : std::uint8_t { usk_none, usk_utf8, usk_utf16le, usk_utf16be };

enum an_ifg_state : std::uint8_t {
  ifg_at_start,      // nothing seen yet
  ifg_behind_endif,  // behind the guard's #endif
  ifg_not_guarded,
  ifg_in_guard,
  ifg_pragma_once,
};

struct an_input_stack_entry {
  a_file_image *image;
  const char *saved_char_pos;          // where reading goes on, while another file is on top
  const char *name;                    // as the program shows it
  const char *full_name;               // as it was opened
  const char *directory;               // its directory part
  a_directory_name_entry *search_dir;  // where the search found it; null: not on the path
  a_source_file *source_file;          // the record now, after #line
  a_source_file *primary_source_file;  // the record made when the file was opened
  an_include_file_history *include_history;
  std::uint32_t line_number;  // physical lines read, as #line sets it
  std::uint32_t lines_read;
  std::uint32_t next_index_line;
  int saved_pp_if_depth;
  an_ifg_state guard_state;
  a_unicode_source_kind_tag unicode_source_kind;
  bool is_include;
  bool is_system;
  bool is_recursive;  // the same file stands lower on the stack
  bool is_preinclude;
  bool do_not_pop;  // its end is the end of the input
  bool is_clone;    // made by a line directive
  bool saved_any_tokens_fetched;
  bool header_guard_seen;
};
extern int depth_input_stack;  // -1: empty
extern an_input_stack_entry *curr_ise;
an_input_stack_entry *input_stack_entry(int depth);
extern bool any_tokens_fetched_from_curr_input_file;  // set by the scanner
extern a_unicode_source_kind_tag curr_file_unicode_source_kind;

inline bool in_included_file() {
  return depth_input_stack > 0;
}
inline bool processing_primary_source_file() {
  return depth_input_stack == 0;
}
an_ifg_state get_ifg_state();
void set_ifg_state(an_ifg_state state);

// Finds a file by the include search, and pushes it. False: it does not open (only with may_fail)
// or it need not be read again, which sets *suppressed (may be null).
bool open_file_and_push_input_stack(const char *name, bool use_search_path, bool is_include,
                                    bool is_system_name, bool is_preinclude, bool macro_preinclude,
                                    bool do_not_pop, bool is_include_next, bool may_fail,
                                    bool *suppressed);
void pop_input_stack();
// The text of a line of a file, for messages. False: it cannot be had.
bool physical_source_line(const a_source_position *pos, a_text_buffer *out);
void push_cloned_input_stack_entry();
void pop_cloned_input_stack_entry();

// Files given by the command line to be read in front of the primary file.
struct a_preinclude_file {
  a_preinclude_file *next;
  const char *name;
  bool macros_only;
};
extern a_preinclude_file *preinclude_file_list;
extern a_preinclude_file *preinclude_macros_file_list;
a_preinclude_file *alloc_preinclude_file(const char *name, bool macros_only);  // appends
bool push_next_preinclude_file();  // false: none is left

// ---- Opening files -----------------------------------------------------------------------------

enum an_open_file_flag : unsigned {
  off_does_not_exist = 1,
  off_other_failure = 2,  // errno_value tells
  off_not_regular = 4,
  off_directory = 8,
  off_bad_name = 16,  // empty, or the primary source as an output file
};
struct an_open_file_result {
  unsigned flags;
  int errno_value;
};
std::FILE *fopen_with_result(const char *name, const char *mode, an_open_file_result *result);
std::FILE *open_source_file(const char *name, an_open_file_result *result,
                            a_unicode_source_kind_tag *kind);
std::FILE *open_input_file(const char *name, bool binary, an_open_file_result *result);
std::FILE *open_output_file(const char *name, bool binary, bool append_read,
                            an_open_file_result *result);
bool okay_as_output_file(const char *name);
bool close_output_file(std::FILE *stream, int *errno_value);  // true: it failed
void delete_file(const char *name);
extern bool check_for_byte_order_mark;

// The text of a file, read once and kept: UTF-8, without byte-order mark, a newline and null bytes
// behind its end.
struct a_file_image {
  const char *start;
  const char *end;
  a_unicode_source_kind_tag kind;
};
// Null, and *result set, when the file does not open.
a_file_image *image_of_source_file(const char *name, an_open_file_result *result);

// ---- Life cycle --------------------------------------------------------------------------------

// Called by the routines of the same names in lexical.h.
void input_stack_early_init();
void input_stack_init();
void input_stack_trans_unit_init();

#endif
