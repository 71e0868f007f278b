// Pragmas: how a #pragma line (or _Pragma) is recognised, kept, bound to the declaration or
// statement it belongs to, obeyed, and recorded.
//
// The directive scanner hands every line to record_pragma, which keeps its tokens as a pending
// pragma. What happens then depends on the mode of its kind: a preprocessor pragma acts at once, an
// immediate one at the end of its line, an ordered one between two declarations or statements; a
// construct pragma stands in front of a declaration or statement and binds to it; a scope pragma
// names a symbol that may be declared later, and waits for the end of its scope.
//
// Pending pragmas come from a free list of region 0. What must outlive the parse is an a_pragma of
// the IL, in the region of the entity or scope it belongs to.
#ifndef TARGET_PRAGMA_H
#define TARGET_PRAGMA_H

#include <cstdint>

#include "DIAG/error.h"
#include "il/il_entity.h"
#include "source/lexical.h"
#include "target/pragma_kinds.h"

enum a_pragma_kind : std::uint8_t {
#define PRAGMA_KIND(number, name, spelling, file_kind, placement) prk_##name = number,
#include "target/pragma.def"
  prk_last
};
static_assert(prk_last == 116);

// The spelling of each kind, as #pragma and messages write it.
extern const char *const pragma_ids[prk_last];

enum a_pragma_mode : std::uint8_t {
  pmo_construct = 1,
  pmo_ordered = 2,
  pmo_immediate = 3,
  pmo_scope = 4,
  pmo_preprocessor = 5,
};

enum a_pragma_flag : std::uint16_t {
  pfl_declaration = 1,            // may bind to a declaration
  pfl_statement = 2,              // may bind to a statement
  pfl_at_current_scope = 4,       // its IL entry stays in the innermost scope
  pfl_in_il = 8,                  // goes into the IL by itself
  pfl_keep_text = 0x10,           // the tokens are kept as text too
  pfl_expand_macros = 0x20,       // macros are expanded in what follows the name
  pfl_raw_text = 0x80,            // read as text to the end of the line
  pfl_hidden = 0x100,             // no record that a user sees
  pfl_header_name = 0x1000,       // a header name may stand in it
  pfl_unread_mask = 0x40 | 0xC00  // stored, and read by nobody
};

using a_pragma_handler = void (*)(a_pending_pragma *pragma, a_symbol *symbol,
                                  a_statement *statement);

struct a_pragma_kind_description {
  a_pragma_kind_description *next;
  a_pragma_kind kind;
  a_pragma_mode mode;
  a_pragma_handler handler;  // null: none
  std::uint16_t flags;       // a_pragma_flag
  an_error_severity misplaced_severity;
};

struct a_pending_pragma {
  a_pending_pragma *next;
  a_pending_pragma *last_of_list;  // of the first one: where the end is near; null: not known
  const a_pragma_kind_description *description;
  a_token_cache tokens;  // behind the name, to the end of the line
  a_source_position name_position;
  a_source_position directive_position;
  bool has_tokens : 1;       // tokens is in use
  bool in_parens : 1;        // the operator form
  const char *text;          // with pfl_raw_text or pfl_keep_text
  a_pragma *il_pragma;       // the entry made for it; null: none
  std::uint8_t gcc_subject;  // of a GCC pragma: a_gcc_pragma_subject
};
enum a_gcc_pragma_subject : std::uint8_t { gps_none, gps_system_header, gps_target };

// ---- Per compilation ---------------------------------------------------------------------------

extern a_pragma_kind_description *pragma_kind_descriptions;  // the registered ones
extern a_pragma_kind_description *pragma_description_for_pragma_kind[prk_last];  // null: unknown

// ---- Recognising, for the directive scanner ----------------------------------------------------

// The description that the next token names; null: none. *position becomes that of the token.
a_pragma_kind_description *look_up_pragma_id(a_source_position *position);
// Reads what follows the name (in_parens: to the closing one) and keeps or obeys it. A null
// description is reported as unrecognized.
void record_pragma(a_pragma_kind_description *description,
                   const a_source_position *directive_position,
                   const a_source_position *name_position, bool in_parens);
bool pragma_is_preprocessor_mode(const a_pragma_kind_description *description);
bool pragma_is_push_or_pop_macro(const a_pragma_kind_description *description);
bool pragma_is_once(const a_pragma_kind_description *description);
// GCC system_header: the name has been read, the rest of the line stands at curr_char_loc.
bool pragma_is_gcc_system_header(const a_pragma_kind_description *description);
// A pragma that may not be written with _Pragma.
bool pragma_must_be_directive(const a_pragma_kind_description *description);
// A lint comment in front of the next token.
void add_curr_token_pseudo_pragma(a_pragma_kind kind, const a_source_position *position);

a_pending_pragma *make_copy_of_pragma_list(const a_pending_pragma *list);
void free_pending_pragmas(a_pending_pragma *list);

// ---- Delivery, for the parser ------------------------------------------------------------------

// At the start of a declaration or statement: the construct pragmas in front of the current token
// go to the scope's list, the others are obeyed.
void select_curr_construct_pragmas(bool is_statement);
// Obeys what stands in front of the current token where no construct starts.
void process_curr_token_pragmas();
// At the end of a directive: those that do not wait.
void process_immediate_pragmas();
// The declaration declared symbol, or the statement was made: binds the scope's construct list.
void process_curr_construct_pragmas(a_symbol *symbol, a_statement *statement);
bool any_curr_construct_pragmas();
// Takes the pragmas of one kind out of the construct list, or for other modes out of the lists of
// this scope and (unless this_scope_only) those around it; a list.
a_pending_pragma *extract_specific_pragmas(a_pragma_kind kind, a_symbol *symbol,
                                           a_statement *statement, bool this_scope_only);
// The comment /*ARGSUSED*/ in front of the declaration in hand, or /*NOTREACHED*/ in front of the
// current token: takes it away and tells whether it was there.
bool take_lint_pragma(a_pragma_kind kind);
a_pending_pragma *extract_curr_construct_pragmas();
void reactivate_curr_construct_pragmas(const a_pending_pragma *list);  // installs a copy
void discard_curr_construct_pragmas();
void cannot_bind_to_curr_construct();  // reports and drops the list
// The scope is being left, its names still in sight: obeys its scope pragmas, and reports construct
// pragmas that nothing followed.
void end_of_scope_pragma_processing(a_scope_stack_entry *entry);
// At the end of the unit: what stands in front of the end of the source.
void process_pragmas_at_end_of_source();
// Between declarations, and before the first statement of a block: #pragma STDC.
void check_for_stdc_pragmas();

// ---- IL ----------------------------------------------------------------------------------------

// Enters the pragma in the list of a scope. entity null: with at_current_scope in the innermost
// one, else in the nearest that keeps declarations.
void add_pragma_to_il(a_pending_pragma *pending, an_il_entry_kind entity_kind, void *entity,
                      bool at_current_scope);
// The entry with its record for the intermediate file, on the symbol's entity, the statement, or
// (both null) the innermost scope. The texts go into the record; null when the kind has no record.
a_pragma *create_il_entry_for_pragma(a_pending_pragma *pending, a_symbol *symbol,
                                     a_statement *statement);
void add_pragma_text(a_pragma *pragma, const char *text);  // a text of its record
// The next pragma of an entity behind previous (null: the first), in the list of the class of type,
// else of scope, else of the file scope; null: no more.
a_pragma *find_assoc_pragma(const void *entity, a_scope *scope, a_type *type, a_pragma *previous);

// ---- Sections ----------------------------------------------------------------------------------

// Two different names are reported, and the first one stays.
void set_routine_section_specification(a_routine *routine, a_section_origin kind, const char *name,
                                       const a_source_position *position);
void set_variable_section_specification(a_variable *variable, a_section_origin kind,
                                        const char *name, const a_source_position *position);
// The sections of SET_CODE_SECTION and SET_DATA_SECTION, for what has none of its own.
void apply_routine_block_section_specification(a_routine *routine);
void apply_variable_block_section_specification(a_variable *variable);

// ---- The target's pragmas (qx_pragma) ----------------------------------------------------------

// The C form: ( symbol , arguments ). The C++ form: the symbol or statement that follows.
void process_c_pragma(a_pending_pragma *pending);
void process_cpp_pragma(a_pending_pragma *pending, a_symbol *symbol, a_statement *statement);
// A pragma that the program itself makes, with a text and no symbol.
void issue_simple_pragma(a_pragma_kind kind, const char *text);

// ---- GCC pragmas -------------------------------------------------------------------------------

// Copies the attribute of #pragma GCC target to the end of a declaration's list.
void attach_target_pragma_attribute(an_attribute **attributes);

// ---- Phases ------------------------------------------------------------------------------------

void pragma_one_time_init();
void pragma_init();

#endif
