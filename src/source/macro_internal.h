// What the rooms of macro share: the buffer of replacement texts, and the scan of preprocessing
// tokens over text without conversion.
#ifndef SOURCE_MACRO_INTERNAL_H
#define SOURCE_MACRO_INTERNAL_H

#include <cstddef>
#include <cstdint>

#include "source/input_stack.h"
#include "source/macro.h"

// ---- The macro text buffer ---------------------------------------------------------------------

// Texts stand in it in the order of their making; the last is the first to go.
char *alloc_macro_text(std::size_t size);
void release_macro_text_from(const char *start);  // and all behind it
void release_macro_text();                        // all
char *macro_text_mark();                          // where the next one will begin

// ---- Preprocessing tokens ----------------------------------------------------------------------

enum a_pp_text_kind : std::uint8_t {
  ptk_end,  // 0 and a marker, or a line's end
  ptk_identifier,
  ptk_number,
  ptk_literal,  // character or string, with its prefix
  ptk_punctuator,
};

// The end of the preprocessing token that starts at p, which is no white space and no marker. A
// quote that is not closed in this text is a token by itself. Raw strings are not known here:
// *raw_string (may be null) tells that one starts at p.
const char *end_of_pp_token(const char *p, a_pp_text_kind *kind, bool *raw_string);

// Does p stand in front of a character of a token that may be part of an identifier?
bool starts_identifier(const char *p);

inline bool is_blank_char(char c) {
  return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

// ---- Definitions -------------------------------------------------------------------------------

inline std::uint32_t chunk_number(const unsigned char *chunk) {
  return static_cast<std::uint32_t>(chunk[1] | chunk[2] << 8 | chunk[3] << 16);
}
inline constexpr std::size_t chunk_head_size = 4;

// A new macro of the header, with an empty definition.
a_symbol *new_macro_symbol(a_symbol_header *header, const a_source_position *pos);
a_macro_def *macro_def_of(const a_symbol *macro_symbol);
a_symbol_header *header_of_identifier(const char *text, std::size_t length);
// and, bitor and their like, where they are operators: no directive takes them for names.
bool is_operator_word(const a_symbol_header *header);
void enter_magic_macros();
void init_magic_macros();

// ---- Arguments ---------------------------------------------------------------------------------

struct a_macro_text_buffer {
  char *text;
  std::size_t length;
  std::size_t capacity;
};

// The raw string at curr_char_loc from behind its opening quote on, with what the file holds of its
// trigraphs and splices; curr_char_loc moves behind it. Reads further lines when it may.
void append_raw_string_text(a_macro_text_buffer *buffer, const char *quote, bool may_read_on);

struct a_macro_arg {
  a_macro_arg *next;
  a_macro_text_buffer raw;       // as written, one blank for white space
  a_macro_text_buffer expanded;  // filled when expanded_is_raw is clear and the definition asks
  bool expanded_is_raw;          // nothing in it is a macro
  bool is_empty_variadic;
};
char *grow_macro_text(a_macro_text_buffer *buffer, std::size_t needed);

// Scans the arguments of a function-like macro, curr_char_loc in front of the (; one for each
// parameter, at least. *failed: they do not end; that was reported.
a_macro_arg *scan_macro_args(a_symbol *macro_symbol, const a_macro_def *def,
                             const a_source_position *pos, bool *failed);
void free_macro_args(a_macro_arg *args);
extern std::size_t length_of_args_in_process;  // the arguments that are being expanded, together

// The identifier [name, curr_char_loc) of a scan over macro text is a macro: the scan goes on at
// curr_char_loc, behind the name if false is returned.
bool expand_macro_at(a_symbol *macro_symbol, const char *name, bool *inert);
// Is the macro's own expansion being read?
bool is_in_own_expansion(const a_symbol *macro_symbol);

// The text of a magic macro; leaves curr_char_loc behind its arguments. Null: the name stands.
const char *magic_macro_text(a_symbol *macro_symbol, const a_macro_def *def,
                             const a_source_position *pos, std::size_t *length);

void init_macro_listing();  // what was listed lies in memory of the run before
// Notes for the listing that the macro was defined or undefined at a position.
void note_macro_definition(a_symbol *macro_symbol, const a_source_position *pos);
void note_macro_undefinition(a_symbol *macro_symbol, const a_source_position *pos);
// Notes for the cross-reference file that a definition is used, asked for or taken away.
void note_macro_reference(a_symbol *macro_symbol, const a_source_position *pos);

#endif
