// The reporting families: each makes a record, adds its arguments in order, and ends the message.
#include <cstring>
#include <set>

#include "DIAG/error_internal.h"
#include "UTIL/basics.h"
#include "driver/host_envir.h"

static a_source_position pos_of_last_syntax_error;
static std::set<int> gnu_cpp11_extensions_reported;  // by code, in this compilation

namespace {

// The command line's own position: no line of any source.
const a_source_position *command_line_position() {
  static a_source_position pos{};
  pos.column = 1;
  return &pos;
}

const a_source_position *symbol_position(a_symbol *symbol) {
  return diag_hooks.position_of_symbol != nullptr ? diag_hooks.position_of_symbol(symbol) : nullptr;
}

void add_arguments(a_diagnostic *) {}
template <class... Rest>
void add_arguments(a_diagnostic *d, const char *text, Rest... rest);
template <class... Rest>
void add_arguments(a_diagnostic *d, a_type *type, Rest... rest);
template <class... Rest>
void add_arguments(a_diagnostic *d, a_symbol *symbol, Rest... rest);
template <class... Rest>
void add_arguments(a_diagnostic *d, const a_source_position *pos, Rest... rest);
template <class... Rest>
void add_arguments(a_diagnostic *d, std::int64_t number, Rest... rest);

template <class... Rest>
void add_arguments(a_diagnostic *d, const char *text, Rest... rest) {
  add_string_argument(d, text);
  add_arguments(d, rest...);
}
template <class... Rest>
void add_arguments(a_diagnostic *d, a_type *type, Rest... rest) {
  add_type_argument(d, type);
  add_arguments(d, rest...);
}
template <class... Rest>
void add_arguments(a_diagnostic *d, a_symbol *symbol, Rest... rest) {
  add_symbol_argument(d, symbol);
  add_arguments(d, rest...);
}
template <class... Rest>
void add_arguments(a_diagnostic *d, const a_source_position *pos, Rest... rest) {
  add_position_argument(d, pos);
  add_arguments(d, rest...);
}
template <class... Rest>
void add_arguments(a_diagnostic *d, std::int64_t number, Rest... rest) {
  add_number_argument(d, number);
  add_arguments(d, rest...);
}

template <class... Arguments>
a_diagnostic *start(an_error_severity severity, an_error_code code, const a_source_position *pos,
                    Arguments... arguments) {
  a_diagnostic *d = alloc_diagnostic(dk_main, severity, code, pos);
  add_arguments(d, arguments...);
  return d;
}

template <class... Arguments>
void report(an_error_severity severity, an_error_code code, const a_source_position *pos,
            Arguments... arguments) {
  end_diagnostic(start(severity, code, pos, arguments...));
}

// Reports what ends the process.
template <class... Arguments>
[[noreturn]] void report_last(an_error_severity severity, an_error_code code,
                              const a_source_position *pos, Arguments... arguments) {
  report(severity, code, pos, arguments...);
  exit_compilation(es_internal_error);
}

template <class... Arguments>
void add_note(an_error_code code, const a_source_position *pos, a_diag_list *list,
              Arguments... arguments) {
  a_diagnostic *d = start(effective_severity(code, es_note, pos), code, pos, arguments...);
  if (list != nullptr) {
    append_to_diag_list(list, d);
  } else {
    end_diagnostic(d);
  }
}

}  // namespace

// ---- At a position -----------------------------------------------------------------------------

#define SEVERITY_CODE_POS \
  an_error_severity severity, an_error_code code, const a_source_position *pos

void pos_diagnostic(SEVERITY_CODE_POS) {
  report(severity, code, pos);
}
void pos_st_diagnostic(SEVERITY_CODE_POS, const char *text) {
  report(severity, code, pos, text);
}
void pos_st2_diagnostic(SEVERITY_CODE_POS, const char *text1, const char *text2) {
  report(severity, code, pos, text1, text2);
}
void pos_st3_diagnostic(SEVERITY_CODE_POS, const char *text1, const char *text2,
                        const char *text3) {
  report(severity, code, pos, text1, text2, text3);
}
void pos_num_diagnostic(SEVERITY_CODE_POS, std::int64_t number) {
  report(severity, code, pos, number);
}
void pos_ty_diagnostic(SEVERITY_CODE_POS, a_type *type) {
  report(severity, code, pos, type);
}
void pos_ty2_diagnostic(SEVERITY_CODE_POS, a_type *type1, a_type *type2) {
  report(severity, code, pos, type1, type2);
}
void pos_opt_ty2_diagnostic(SEVERITY_CODE_POS, a_type *type1, a_type *type2) {
  a_diagnostic *d = start(severity, code, pos, type1);
  if (type2 != type1) add_type_argument(d, type2);
  end_diagnostic(d);
}
void pos_sy_diagnostic(SEVERITY_CODE_POS, a_symbol *symbol) {
  report(severity, code, pos, symbol);
}
void pos_sy2_diagnostic(SEVERITY_CODE_POS, a_symbol *symbol1, a_symbol *symbol2) {
  report(severity, code, pos, symbol1, symbol2);
}
void pos_syty_diagnostic(SEVERITY_CODE_POS, a_symbol *symbol, a_type *type) {
  report(severity, code, pos, symbol, type);
}
void pos_sy_ty2_diagnostic(SEVERITY_CODE_POS, a_symbol *symbol, a_type *type1, a_type *type2) {
  report(severity, code, pos, symbol, type1, type2);
}
void pos_stsy_diagnostic(SEVERITY_CODE_POS, const char *text, a_symbol *symbol) {
  report(severity, code, pos, text, symbol);
}
void pos_st2_sy_diagnostic(SEVERITY_CODE_POS, const char *text1, const char *text2,
                           a_symbol *symbol) {
  report(severity, code, pos, text1, text2, symbol);
}
void pos_st3_sy2_diagnostic(SEVERITY_CODE_POS, const char *text1, const char *text2,
                            const char *text3, a_symbol *symbol1, a_symbol *symbol2) {
  report(severity, code, pos, text1, text2, text3, symbol1, symbol2);
}
void pos_stty_diagnostic(SEVERITY_CODE_POS, const char *text, a_type *type) {
  report(severity, code, pos, text, type);
}
void pos_stty2_diagnostic(SEVERITY_CODE_POS, const char *text, a_type *type1, a_type *type2) {
  report(severity, code, pos, text, type1, type2);
}
void pos_st2ty_diagnostic(SEVERITY_CODE_POS, const char *text1, const char *text2, a_type *type) {
  report(severity, code, pos, text1, text2, type);
}
void pos2_diagnostic(SEVERITY_CODE_POS, const a_source_position *pos2) {
  report(severity, code, pos, pos2);
}
void pos2_sy_diagnostic(SEVERITY_CODE_POS, const a_source_position *pos2, a_symbol *symbol) {
  report(severity, code, pos, pos2, symbol);
}

// ---- At error_position or at a symbol ----------------------------------------------------------

void diagnostic(an_error_severity severity, an_error_code code) {
  report(severity, code, &error_position);
}
void str_diagnostic(an_error_severity severity, an_error_code code, const char *text) {
  report(severity, code, &error_position, text);
}
void type_diagnostic(an_error_severity severity, an_error_code code, a_type *type) {
  report(severity, code, &error_position, type);
}
void sym_diagnostic(an_error_severity severity, an_error_code code, a_symbol *symbol) {
  report(severity, code, symbol_position(symbol), symbol);
}

void pos_syntax_error(an_error_code code, const a_source_position *pos) {
  if (pos->seq != 0 && compare_source_positions(*pos, pos_of_last_syntax_error) == 0) return;
  pos_of_last_syntax_error = *pos;
  report(es_error, code, pos);
}

void forgive_syntax_error_at(const a_source_position *pos) {
  pos_of_last_syntax_error = *pos;
}

void syntax_error(an_error_code code) {
  pos_syntax_error(code, &error_position);
  if (diag_hooks.flush_tokens != nullptr) diag_hooks.flush_tokens();
}

// ---- The end of the compilation ----------------------------------------------------------------

void catastrophe(an_error_code code) {
  report_last(es_catastrophe, code, &error_position);
}
void str_catastrophe(an_error_code code, const char *text) {
  report_last(es_catastrophe, code, &error_position, text);
}
void pos_st_catastrophe(an_error_code code, const a_source_position *pos, const char *text) {
  report_last(es_catastrophe, code, pos, text);
}
void pos_str2_catastrophe(an_error_code code, const a_source_position *pos, const char *text1,
                          const char *text2) {
  report_last(es_catastrophe, code, pos, text1, text2);
}
void str_errno_catastrophe(an_error_code code, const char *text, int errno_value) {
  report_last(es_catastrophe, code, &error_position, text,
              static_cast<const char *>(std::strerror(errno_value)));
}
void internal_error(const char *text) {
  report_last(es_internal_error, ect_1812, &error_position, text);
}

void command_line_error(an_error_code code) {
  end_command_line_error(start_command_line_error(code));
}
void str_command_line_error(an_error_code code, const char *text) {
  a_diagnostic *d = start_command_line_error(code);
  add_string_argument(d, text);
  end_command_line_error(d);
}
void str_command_line_warning(an_error_code code, const char *text) {
  report(es_command_line_warning, code, command_line_position(), text);
}

// ---- In steps ----------------------------------------------------------------------------------

a_diagnostic *start_command_line_error(an_error_code code) {
  return start(es_command_line_error, code, command_line_position());
}
a_diagnostic *pos_start_diagnostic(SEVERITY_CODE_POS) {
  return start(severity, code, pos);
}
a_diagnostic *pos_ty_start_diagnostic(SEVERITY_CODE_POS, a_type *type) {
  return start(severity, code, pos, type);
}
a_diagnostic *pos_sy_start_diagnostic(SEVERITY_CODE_POS, a_symbol *symbol) {
  return start(severity, code, pos, symbol);
}
a_diagnostic *pos_start_error(an_error_code code, const a_source_position *pos) {
  return start(es_error, code, pos);
}
a_diagnostic *pos_st_start_error(an_error_code code, const a_source_position *pos,
                                 const char *text) {
  return start(es_error, code, pos, text);
}
a_diagnostic *pos_ty_start_error(an_error_code code, const a_source_position *pos, a_type *type) {
  return start(es_error, code, pos, type);
}
a_diagnostic *pos_ty2_start_error(an_error_code code, const a_source_position *pos, a_type *type1,
                                  a_type *type2) {
  return start(es_error, code, pos, type1, type2);
}
a_diagnostic *pos_sy_start_error(an_error_code code, const a_source_position *pos,
                                 a_symbol *symbol) {
  return start(es_error, code, pos, symbol);
}
a_diagnostic *pos_stsy_start_error(an_error_code code, const a_source_position *pos,
                                   const char *text, a_symbol *symbol) {
  return start(es_error, code, pos, text, symbol);
}

// ---- Notes -------------------------------------------------------------------------------------

void more_info_diagnostic(an_error_code code, const a_source_position *pos, a_diag_list *list) {
  add_note(code, pos, list);
}
void more_info_type_diagnostic(an_error_code code, const a_source_position *pos, a_type *type,
                               a_diag_list *list) {
  add_note(code, pos, list, type);
}
void more_info_type2_diagnostic(an_error_code code, const a_source_position *pos, a_type *type1,
                                a_type *type2, a_diag_list *list) {
  add_note(code, pos, list, type1, type2);
}
void more_info_sym_diagnostic(an_error_code code, const a_source_position *pos, a_symbol *symbol,
                              a_diag_list *list) {
  add_note(code, pos, list, symbol);
}
void more_info_sym_type_diagnostic(an_error_code code, const a_source_position *pos,
                                   a_symbol *symbol, a_type *type, a_diag_list *list) {
  add_note(code, pos, list, symbol, type);
}
void more_info_sym2_diagnostic(an_error_code code, const a_source_position *pos, a_symbol *symbol1,
                               a_symbol *symbol2, a_diag_list *list) {
  add_note(code, pos, list, symbol1, symbol2);
}
void more_info_num_diagnostic(an_error_code code, const a_source_position *pos, std::int64_t number,
                              a_diag_list *list) {
  add_note(code, pos, list, number);
}
void more_info_num2_diagnostic(an_error_code code, const a_source_position *pos,
                               std::int64_t number1, std::int64_t number2, a_diag_list *list) {
  add_note(code, pos, list, number1, number2);
}

// ---- Others ------------------------------------------------------------------------------------

void embedded_cplusplus_noncompliance_diagnostic(const a_source_position *pos, an_error_code code) {
  report(es_discretionary_error, code, pos);
}

void f_report_gnu_cpp11_extensions_if_needed(const a_source_position *pos, an_error_code code) {
  if (diag_hooks.gnu_cpp11_warning_is_inhibited != nullptr &&
      diag_hooks.gnu_cpp11_warning_is_inhibited(code)) {
    return;
  }
  if (!gnu_cpp11_extensions_reported.insert(code).second) return;
  report(es_warning, code, pos);
}

void forget_what_was_reported_once() {
  pos_of_last_syntax_error = null_source_position;
  gnu_cpp11_extensions_reported.clear();
}
