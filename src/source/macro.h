// Macros: definitions, and their expansion over the text.
//
// A definition is a string of chunks: literal text and parameter uses. An invocation builds its
// replacement as text in the macro text buffer and puts it over the invocation as an
// a_source_line_modif (input_stack.h); the scanner then reads on inside that text. A name that
// stands in the expansion of its own macro is marked inert by the bytes 0,5 in front of it, and the
// mark travels with the text.
#ifndef SOURCE_MACRO_H
#define SOURCE_MACRO_H

#include <cstddef>
#include <cstdint>

#include "il/il_fwd.h"
#include "source/lexical.h"

enum a_macro_flag : std::uint8_t {
  mf_object_like = 1,
  mf_predefined = 2,       // may not be redefined or undefined in the ordinary way
  mf_not_for_listing = 4,  // its text depends on the time
  mf_variadic = 8,
  mf_from_predef_file = 16,  // defined while predefined macros are read
};

enum a_magic_macro : std::uint8_t {
  mm_none,
  mm_line,
  mm_file,
  mm_base_file,
  mm_stdc,
  mm_counter,
  mm_timestamp,
  mm_include_level,
  mm_defined,
  mm_pragma_operator,
  mm_has_feature,
  mm_has_extension,
  mm_has_attribute,
  mm_has_builtin,
  mm_has_cpp_attribute,
  mm_has_include,
  mm_has_include_next,
};

struct a_macro_param {
  a_macro_param *next;
  const char *name;
  std::uint32_t length;
  bool used_expanded;  // an ordinary use exists
  bool used_raw;       // a use with # or ## exists
};

// The definition of a macro symbol; region 0.
struct a_macro_def {
  std::uint8_t flags;
  a_magic_macro magic;       // its text is computed at each use; body is null
  std::uint32_t num_params;  // a variadic parameter counts
  a_macro_param *params;
  const unsigned char *body;  // chunks, ended by a byte 0
  std::uint32_t body_length;  // with that byte
  std::uint32_t text_length;  // not 0: the body is one chunk of text of this length
  std::uint32_t spacing;      // tells apart lists with other white space beside # and ##
  std::uint32_t open_texts;   // expansions of it that are being read
  a_macro *macro;             // record for the listing; null: not listed
};

// The kinds of chunks; a chunk is its kind, a number of 24 bits (little endian), and the text.
enum a_chunk_kind : unsigned char {
  chk_end = 0,
  chk_text = 1,       // number: length of the text that follows
  chk_paste = 2,      // ##
  chk_raw = 3,        // parameter that is an operand of ##; number: its index, from 1
  chk_stringize = 4,  // # parameter
  chk_charize = 5,    // #@ parameter
  chk_expanded = 6,   // parameter
};

// ---- Definitions -------------------------------------------------------------------------------

// #define, curr_char_loc in front of the name; also for the text of -D. Leaves curr_char_loc at the
// end of the line. Null after an error.
a_symbol *proc_define();

// Enters a macro of the system: flags as in a_macro_flag (mf_predefined for most), or 0 for one
// that programs may redefine. A second different text is a catastrophe.
void enter_predef_macro(const char *name, const char *text, unsigned flags);
// Values that predefined macros may ask for, by mode; they are only stored.
enum a_predef_macro_mode : std::uint8_t {
  pmm_none,
  pmm_gnu,  // GNU modes outside clang
  pmm_gcc,
  pmm_gpp,
  pmm_clang,
  pmm_clang_c,
  pmm_clang_cplusplus,
  pmm_gnu_or_clang,
  pmm_never,
  pmm_strict,
  pmm_cplusplus,
  pmm_always,
  pmm_last
};
void set_predef_macro_mode(int mode, int value);
int predef_macro_mode_value(int mode);

// Enters all predefined macros of the front end, those of the target and those of the command line.
// The text is that of ctime.
void init_predefined_macros(const char *date_and_time);
void fixup_predefined_macros(const char *date_and_time);

// A -D or -U of the command line, in order.
struct a_macro_cmd_line_item {
  a_macro_cmd_line_item *next;
  const char *text;
  bool is_undefinition;
};
extern a_macro_cmd_line_item *defs_from_cmd_line;
void add_macro_definition_from_cmd_line(const char *text, bool is_undefinition);  // appends

// The macro symbol of a name that #ifdef sees: not "defined" and the pragma operators.
a_symbol *find_defined_macro(a_symbol_header *header);

// Do the bytes form an identifier? Its current symbol (may be null) and locator go out.
bool is_valid_identifier(const char *text, std::size_t length, a_symbol **symbol,
                         a_symbol_locator *locator);
void clear_macro_def(a_macro_def *def);
void undefine_macro(a_symbol *macro_symbol);  // removes it from the symbol table

// #pragma push_macro("name"), pop_macro("name").
void push_macro_definition(a_symbol_header *header);
void pop_macro_definition(a_symbol_header *header);

// "#define name(params) text" of a definition, in a buffer that the next call overwrites.
const char *form_macro_definition(const a_symbol_header *header, const a_macro_def *def);
void gen_pp_output_for_macro_definitions();  // those in force now
void gen_listing_of_macros();                // all that were made or removed, with their files

// ---- Invocations -------------------------------------------------------------------------------

// The identifier at start_of_curr_token (end_of_curr_token its last character, curr_char_loc behind
// it) names a macro. *text_changed: the invocation was consumed, the scan goes on at curr_char_loc;
// otherwise the name stands for itself and curr_char_loc is behind it, and *inert tells that it may
// never be expanded again.
void macro_invocation(a_symbol *macro_symbol, bool *text_changed);

extern int macro_depth;  // invocations being processed
extern int num_macro_invocations_in_process;
extern bool in_macro_arg_list;

// At the marker 0,10. No text holds that marker today.
void choose_raw_or_expanded_arg();

void macro_one_time_init();
void macro_trans_unit_init();
void macro_init();

#endif
