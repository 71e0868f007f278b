// The messages of the front end. A caller names a code of the catalogue, a position, a severity and
// the arguments; this module decides whether the message is shown, forms its text, writes it, keeps
// the counts, and ends the compilation at a limit or a catastrophe.
//
// The names of the reporting routines are built from where (pos_: a given position, none: at
// error_position, sym_: where the symbol was declared), the arguments in order (st text, ty type,
// sy symbol, num number) and the severity (_remark, _warning, _error, _catastrophe, or _diagnostic
// with the severity as first parameter). A position is passed by its address.
//
// Types, symbols, positions of files and scopes belong to the modules above: their texts come
// through the hooks in diag_hooks, which the driver sets before the command line is read.
#ifndef DIAG_ERROR_H
#define DIAG_ERROR_H

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "DIAG/error_codes.h"
#include "il/il_fwd.h"

struct a_source_position;
struct a_diagnostic;
struct a_text_buffer;
struct an_open_file_result;

// Severities. Up to es_discretionary_error the user can change them; the others are fixed.
using an_error_severity = int;
enum : an_error_severity {
  es_default = 0,  // in overrides: back to what holds without them
  es_once = 1,     // in overrides: report once only
  es_note = 2,     // inside another message
  es_none = 3,     // no report
  es_remark = 4,
  es_power_remark = 5,  // the threshold of power advice
  es_warning = 6,
  es_advice = 7,
  es_command_line_warning = 8,
  es_discretionary_error = 9,
  es_error = 10,
  es_catastrophe = 11,
  es_command_line_error = 12,
  es_internal_error = 13,
};

// Notes gathered before the message they belong to exists.
struct a_diag_list {
  a_diagnostic *head;
  a_diagnostic *tail;
};

// How a symbol is to be written: the options of %n.
struct a_symbol_form {
  bool full_signature;         // f: name with the signature
  bool omit_kind;              // o, a: without the word for its kind
  bool with_parameters;        // p: parameters even without template
  bool with_type;              // t: and its type
  bool with_declaration;       // d: and where it was declared (written by the caller)
  bool with_template_args;     // a: and the template arguments it is based on
  bool with_translation_unit;  // T: and its unit, if that is another one
  int depth;                   // scope stack depth at which it is seen; -1: none
};

// What an instantiation context line says.
enum an_instantiation_context_kind : std::uint8_t {
  ick_none,
  ick_instantiation,           // of a class or function
  ick_member_instantiation,    // of a member function of a template
  ick_implicit_generation,     // of a member that the language supplies
  ick_implicit_definition,     // the same, its body
  ick_template_argument_list,  // the arguments of a template are being read
};

// What the modules above do for messages. A null hook stands for a module that is not there: its
// argument is written as "<symbol>" or "<type>", and no position has a file.
struct a_diag_hooks {
  void (*form_type)(a_type *type, a_text_buffer *out);
  void (*form_symbol_name)(a_symbol *symbol, const a_symbol_form *form, a_text_buffer *out);
  const a_source_position *(*position_of_symbol)(a_symbol *symbol);
  // The instantiation of scope stack entry `depth`, with its symbol and the place that asked for
  // it.
  an_instantiation_context_kind (*instantiation_context_of)(int depth, a_symbol **symbol,
                                                            const a_source_position **position);
  int (*scope_stack_depth)();  // -1: no scope is open
  // Whether an equal message from another instance of the same template is to be dropped: gives the
  // current scope's id and whether its messages are to be remembered.
  bool (*template_scope)(std::int64_t *scope_id);
  // The physical source line of a position as UTF-8 text, false if it cannot be had.
  bool (*source_line)(const a_source_position *position, a_text_buffer *out);
  void (*flush_tokens)();
  // Name, line, and whether it lies just past the end of the source, for a sequence number.
  void (*file_and_line)(std::uint32_t seq, const char **file, std::uint32_t *line, bool *at_end);
  bool (*in_system_header)(std::uint32_t seq);
  // Was the option given that goes with a warning of a C++11 feature used as an extension?
  bool (*gnu_cpp11_warning_is_inhibited)(int code);
  std::FILE *(*raw_listing)();  // null: none is written
  void (*finish_raw_listing)();
};
extern a_diag_hooks diag_hooks;

// ---- State -------------------------------------------------------------------------------------

// Fixed after the command line, beside the switches of driver/switches.h.
extern an_error_severity misra_required_severity;
extern an_error_severity misra_advisory_severity;
extern bool display_error_context_on_catastrophe;

// Per compilation. A message that is not shown is not counted.
extern std::uint64_t total_errors;
extern std::uint64_t total_warnings;
extern std::uint64_t total_remarks;
extern std::uint64_t total_catastrophes;

// Where error routines without a position report: at the current token, unless a scanner set it.
extern a_source_position error_position;

// Text of the macro definition on the command line (or in the predefined macro file) that is being
// read; null: none is.
extern const char *curr_cmd_line_or_predef_macro_def;
extern bool processing_predefined_macro;
extern bool use_cppcli_fill_ins;  // of the two forms of %[word], the first

// ---- The catalogue -----------------------------------------------------------------------------

const char *error_text(int code);  // never null
// The code of a tag, or -1.
int error_code_for_tag(const char *tag);
const char *tag_for_error_code(int code);  // null: it has none

// ---- Reports at a position ---------------------------------------------------------------------

void pos_diagnostic(an_error_severity severity, an_error_code code, const a_source_position *pos);
void pos_st_diagnostic(an_error_severity severity, an_error_code code, const a_source_position *pos,
                       const char *text);
void pos_st2_diagnostic(an_error_severity severity, an_error_code code,
                        const a_source_position *pos, const char *text1, const char *text2);
void pos_st3_diagnostic(an_error_severity severity, an_error_code code,
                        const a_source_position *pos, const char *text1, const char *text2,
                        const char *text3);
void pos_num_diagnostic(an_error_severity severity, an_error_code code,
                        const a_source_position *pos, std::int64_t number);
void pos_ty_diagnostic(an_error_severity severity, an_error_code code, const a_source_position *pos,
                       a_type *type);
void pos_ty2_diagnostic(an_error_severity severity, an_error_code code,
                        const a_source_position *pos, a_type *type1, a_type *type2);
// The second type only when it differs from the first.
void pos_opt_ty2_diagnostic(an_error_severity severity, an_error_code code,
                            const a_source_position *pos, a_type *type1, a_type *type2);
void pos_sy_diagnostic(an_error_severity severity, an_error_code code, const a_source_position *pos,
                       a_symbol *symbol);
void pos_sy2_diagnostic(an_error_severity severity, an_error_code code,
                        const a_source_position *pos, a_symbol *symbol1, a_symbol *symbol2);
void pos_syty_diagnostic(an_error_severity severity, an_error_code code,
                         const a_source_position *pos, a_symbol *symbol, a_type *type);
void pos_sy_ty2_diagnostic(an_error_severity severity, an_error_code code,
                           const a_source_position *pos, a_symbol *symbol, a_type *type1,
                           a_type *type2);
void pos_stsy_diagnostic(an_error_severity severity, an_error_code code,
                         const a_source_position *pos, const char *text, a_symbol *symbol);
void pos_st2_sy_diagnostic(an_error_severity severity, an_error_code code,
                           const a_source_position *pos, const char *text1, const char *text2,
                           a_symbol *symbol);
void pos_st3_sy2_diagnostic(an_error_severity severity, an_error_code code,
                            const a_source_position *pos, const char *text1, const char *text2,
                            const char *text3, a_symbol *symbol1, a_symbol *symbol2);
void pos_stty_diagnostic(an_error_severity severity, an_error_code code,
                         const a_source_position *pos, const char *text, a_type *type);
void pos_stty2_diagnostic(an_error_severity severity, an_error_code code,
                          const a_source_position *pos, const char *text, a_type *type1,
                          a_type *type2);
void pos_st2ty_diagnostic(an_error_severity severity, an_error_code code,
                          const a_source_position *pos, const char *text1, const char *text2,
                          a_type *type);
// A second position, as the argument %p.
void pos2_diagnostic(an_error_severity severity, an_error_code code, const a_source_position *pos,
                     const a_source_position *pos2);
void pos2_sy_diagnostic(an_error_severity severity, an_error_code code,
                        const a_source_position *pos, const a_source_position *pos2,
                        a_symbol *symbol);

inline void pos_remark(an_error_code code, const a_source_position *pos) {
  pos_diagnostic(es_remark, code, pos);
}
inline void pos_warning(an_error_code code, const a_source_position *pos) {
  pos_diagnostic(es_warning, code, pos);
}
inline void pos_error(an_error_code code, const a_source_position *pos) {
  pos_diagnostic(es_error, code, pos);
}

// Each family with the severity in its name: the same arguments as its _diagnostic form, without
// the severity.
#define DIAG_FAMILY(name)                                                      \
  template <class... Arguments>                                                \
  inline void name##_remark(an_error_code code, const a_source_position *pos,  \
                            Arguments... arguments) {                          \
    name##_diagnostic(es_remark, code, pos, arguments...);                     \
  }                                                                            \
  template <class... Arguments>                                                \
  inline void name##_warning(an_error_code code, const a_source_position *pos, \
                             Arguments... arguments) {                         \
    name##_diagnostic(es_warning, code, pos, arguments...);                    \
  }                                                                            \
  template <class... Arguments>                                                \
  inline void name##_error(an_error_code code, const a_source_position *pos,   \
                           Arguments... arguments) {                           \
    name##_diagnostic(es_error, code, pos, arguments...);                      \
  }
DIAG_FAMILY(pos_st)
DIAG_FAMILY(pos_st2)
DIAG_FAMILY(pos_num)
DIAG_FAMILY(pos_ty)
DIAG_FAMILY(pos_ty2)
DIAG_FAMILY(pos_opt_ty2)
DIAG_FAMILY(pos_sy)
DIAG_FAMILY(pos_sy2)
DIAG_FAMILY(pos_syty)
DIAG_FAMILY(pos_stsy)
DIAG_FAMILY(pos_stty)
DIAG_FAMILY(pos2)
DIAG_FAMILY(pos2_sy)
#undef DIAG_FAMILY
inline void pos_ststst_warning(an_error_code code, const a_source_position *pos, const char *text1,
                               const char *text2, const char *text3) {
  pos_st3_diagnostic(es_warning, code, pos, text1, text2, text3);
}
inline void pos_ty_str_error(an_error_code code, const a_source_position *pos, a_type *type,
                             const char *text) {
  pos_stty_diagnostic(es_error, code, pos, text, type);
}

// ---- Reports at error_position or at a symbol --------------------------------------------------

void diagnostic(an_error_severity severity, an_error_code code);
void str_diagnostic(an_error_severity severity, an_error_code code, const char *text);
void type_diagnostic(an_error_severity severity, an_error_code code, a_type *type);
void sym_diagnostic(an_error_severity severity, an_error_code code, a_symbol *symbol);
inline void str_remark(an_error_code code, const char *text) {
  str_diagnostic(es_remark, code, text);
}
inline void str_warning(an_error_code code, const char *text) {
  str_diagnostic(es_warning, code, text);
}
inline void str_error(an_error_code code, const char *text) {
  str_diagnostic(es_error, code, text);
}
inline void type_warning(an_error_code code, a_type *type) {
  type_diagnostic(es_warning, code, type);
}
inline void type_error(an_error_code code, a_type *type) {
  type_diagnostic(es_error, code, type);
}
inline void sym_remark(an_error_code code, a_symbol *symbol) {
  sym_diagnostic(es_remark, code, symbol);
}
inline void sym_warning(an_error_code code, a_symbol *symbol) {
  sym_diagnostic(es_warning, code, symbol);
}
inline void sym_error(an_error_code code, a_symbol *symbol) {
  sym_diagnostic(es_error, code, symbol);
}
// At error_position, then skips tokens to where the enclosing constructs can go on.
void syntax_error(an_error_code code);
// The same without skipping. Where the last syntax error stood, a further one is only its
// consequence: both forms are silent there.
void pos_syntax_error(an_error_code code, const a_source_position *pos);
// What is wrong at pos was told: a syntax error there is silent.
void forgive_syntax_error_at(const a_source_position *pos);

// ---- The end of the compilation ----------------------------------------------------------------

[[noreturn]] void catastrophe(an_error_code code);
[[noreturn]] void str_catastrophe(an_error_code code, const char *text);
[[noreturn]] void pos_st_catastrophe(an_error_code code, const a_source_position *pos,
                                     const char *text);
[[noreturn]] void pos_str2_catastrophe(an_error_code code, const a_source_position *pos,
                                       const char *text1, const char *text2);
// The second text is that of errno.
[[noreturn]] void str_errno_catastrophe(an_error_code code, const char *text, int errno_value);
[[noreturn]] void command_line_error(an_error_code code);
[[noreturn]] void str_command_line_error(an_error_code code, const char *text);
void str_command_line_warning(an_error_code code, const char *text);
// Says on which invariant the program itself failed, and aborts.
[[noreturn]] void internal_error(const char *text);
// Writes the sign-off and ends the process.
[[noreturn]] void term_compilation(an_error_severity severity);
// The count of errors, when there were any.
void write_signoff();

// ---- In steps: messages with more arguments or with supplements ---------------------------------

a_diagnostic *pos_start_diagnostic(an_error_severity severity, an_error_code code,
                                   const a_source_position *pos);
a_diagnostic *pos_ty_start_diagnostic(an_error_severity severity, an_error_code code,
                                      const a_source_position *pos, a_type *type);
a_diagnostic *pos_sy_start_diagnostic(an_error_severity severity, an_error_code code,
                                      const a_source_position *pos, a_symbol *symbol);
a_diagnostic *pos_start_error(an_error_code code, const a_source_position *pos);
a_diagnostic *pos_st_start_error(an_error_code code, const a_source_position *pos,
                                 const char *text);
a_diagnostic *pos_ty_start_error(an_error_code code, const a_source_position *pos, a_type *type);
a_diagnostic *pos_ty2_start_error(an_error_code code, const a_source_position *pos, a_type *type1,
                                  a_type *type2);
a_diagnostic *pos_sy_start_error(an_error_code code, const a_source_position *pos,
                                 a_symbol *symbol);
a_diagnostic *pos_stsy_start_error(an_error_code code, const a_source_position *pos,
                                   const char *text, a_symbol *symbol);
a_diagnostic *start_command_line_error(an_error_code code);

// Arguments, in the order in which the text numbers them within their kind. A text must stand until
// the message ends.
void add_number_argument(a_diagnostic *d, std::int64_t number);
void add_string_argument(a_diagnostic *d, const char *text);
void add_position_argument(a_diagnostic *d, const a_source_position *pos);
void add_type_argument(a_diagnostic *d, a_type *type);
void add_symbol_argument(a_diagnostic *d, a_symbol *symbol);

// Supplements, written below the main text.
a_diagnostic *add_diag_info(a_diagnostic *d, an_error_code code);
void str_add_diag_info(a_diagnostic *d, an_error_code code, const char *text);
void copy_str_add_diag_info(a_diagnostic *d, an_error_code code, const char *text);
void ty_add_diag_info(a_diagnostic *d, an_error_code code, a_type *type);
void sym_add_diag_info(a_diagnostic *d, an_error_code code, a_symbol *symbol);
void add_diag_info_with_pos_insert(a_diagnostic *d, an_error_code code,
                                   const a_source_position *pos);
// Moves gathered notes below the message; the list is empty then.
void add_more_info_list(a_diagnostic *d, a_diag_list *list);

// Decides about the message, writes it, and gives its record back.
void end_diagnostic(a_diagnostic *d);
[[noreturn]] void end_command_line_error(a_diagnostic *d);

// Notes: appended to the list, or with a null list reported at once.
void more_info_diagnostic(an_error_code code, const a_source_position *pos, a_diag_list *list);
void more_info_type_diagnostic(an_error_code code, const a_source_position *pos, a_type *type,
                               a_diag_list *list);
void more_info_type2_diagnostic(an_error_code code, const a_source_position *pos, a_type *type1,
                                a_type *type2, a_diag_list *list);
void more_info_sym_diagnostic(an_error_code code, const a_source_position *pos, a_symbol *symbol,
                              a_diag_list *list);
void more_info_sym_type_diagnostic(an_error_code code, const a_source_position *pos,
                                   a_symbol *symbol, a_type *type, a_diag_list *list);
void more_info_sym2_diagnostic(an_error_code code, const a_source_position *pos, a_symbol *symbol1,
                               a_symbol *symbol2, a_diag_list *list);
void more_info_num_diagnostic(an_error_code code, const a_source_position *pos, std::int64_t number,
                              a_diag_list *list);
void more_info_num2_diagnostic(an_error_code code, const a_source_position *pos,
                               std::int64_t number1, std::int64_t number2, a_diag_list *list);
void discard_more_info_list(a_diag_list *list);

// ---- Questions ---------------------------------------------------------------------------------

// Would a report of this severity count as an error, with the user's overrides?
bool is_effective_error(an_error_code code, an_error_severity severity,
                        const a_source_position *pos);
bool is_effective_sfinae_error(an_error_code code, an_error_severity severity,
                               const a_source_position *pos);
// Would it be shown?
bool is_effective_diagnostic(an_error_code code, an_error_severity severity,
                             const a_source_position *pos);
// The severity that overrides give; false if it is the one given.
bool reported_error_severity(an_error_code code, an_error_severity severity,
                             an_error_severity *out);
bool treat_as_warning(an_error_code code);  // an override says warning
bool treat_as_none(an_error_code code);     // an override says nothing
bool misra_c_2004_generate_diagnostic(an_error_code code, an_error_severity severity);
bool pwa_generate_diagnostic(an_error_code code, an_error_severity severity);

// ---- Overrides ---------------------------------------------------------------------------------

// Changes what is reported under a tag from a position on (null: everywhere). also_default: this is
// what diag_default goes back to. Returns 1 when there is no such tag or number, else 0.
int set_severity_for_error_tag(const char *tag, an_error_severity severity,
                               const a_source_position *pos, bool also_default);
int set_severity_for_error_number(int number, an_error_severity severity,
                                  const a_source_position *pos, bool also_default);
// A list "20,tag, 111" of an option --diag_...; reports a bad tag as a command-line error.
void set_severity_for_error_list(const char *list, an_error_severity severity);
// The stack of #pragma diag_push. Pop returns false when it is empty.
void push_diag_severities();
bool pop_diag_severities(const a_source_position *pos);
// The pragmas, called with their tokens still to be scanned; severity is that of the pragma's kind:
// diag_suppress es_none, _remark es_remark, _warning es_warning, _error es_discretionary_error,
// _once es_once, _default es_default.
void diag_pragma(a_pending_pragma *pragma, an_error_severity severity);
void diag_push_pragma(a_pending_pragma *pragma);
void diag_pop_pragma(a_pending_pragma *pragma);

// ---- Files -------------------------------------------------------------------------------------

// The kinds of files in messages are texts of the catalogue without tag (ect_1971 "source").
enum an_open_file_policy : unsigned {
  // Bits 1, 2, 4, 8: that failure (an_open_file_flag) gives null without a report.
  ofp_command_line = 16,  // a failure is a command-line error
};
void file_open_error(an_error_severity severity, an_error_code kind_text, const char *name,
                     const an_open_file_result *result);
[[noreturn]] void file_write_error(an_error_code kind_text, int errno_value);
std::FILE *open_output_file_with_error_handling(const char *name, bool binary, bool append_read,
                                                unsigned flags, an_error_code kind_text);
std::FILE *open_input_file_with_error_handling(const char *name, bool binary, unsigned flags,
                                               an_error_code kind_text);
std::FILE *fopen_with_error(const char *name, const char *mode, an_error_code kind_text);
// Closes *stream (null: nothing is done) and clears it; a failure is a catastrophe.
void close_output_file_with_error_handling(std::FILE **stream, an_error_code kind_text);

// ---- Others ------------------------------------------------------------------------------------

// A one-time warning for a C++11 feature used as an extension.
void f_report_gnu_cpp11_extensions_if_needed(const a_source_position *pos, an_error_code code);
void embedded_cplusplus_noncompliance_diagnostic(const a_source_position *pos, an_error_code code);
// The message as it would be printed without header, for other writers.
void format_message_text(an_error_code code, const char *const *strings, int string_count,
                         a_text_buffer *out);

void error_early_init();
void error_one_time_init();
void error_init();
void error_trans_unit_init();

#endif
