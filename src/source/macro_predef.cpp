// The life of macro symbols: entering, removing, saving by pragma; the macros that the system
// defines, and those of the command line.

#include <initializer_list>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/symbol_tbl.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/preproc.h"
#include "source/preproc_internal.h"

a_macro_cmd_line_item *defs_from_cmd_line;

static a_macro_cmd_line_item *last_def_from_cmd_line;
static int predef_macro_modes[pmm_last];

// ---- Symbols -----------------------------------------------------------------------------------

a_macro_def *macro_def_of(const a_symbol *macro_symbol) {
  return macro_symbol->variant.macro_def;
}

a_symbol_header *header_of_identifier(const char *text, std::size_t length) {
  if (memchr(text, '\\', length) != nullptr) {
    std::size_t canonical_length;
    text = make_canonical_identifier(text, length, &canonical_length);
    length = canonical_length;
  }
  return find_symbol_header(text, length);
}

bool is_operator_word(const a_symbol_header *header) {
  for (const a_symbol *symbol = header->active_symbols; symbol != nullptr;
       symbol = symbol->next_active)
    if (symbol->kind == syk_keyword && token_classes[symbol->variant.keyword] == tcl_punctuator)
      return true;
  return false;
}

a_symbol *new_macro_symbol(a_symbol_header *header, const a_source_position *pos) {
  a_symbol *macro_symbol = enter_macro_symbol(header, pos);
  a_macro_def *def = static_cast<a_macro_def *>(alloc_in_region(0, sizeof(a_macro_def)));
  *def = {};
  macro_symbol->variant.macro_def = def;
  return macro_symbol;
}

void clear_macro_def(a_macro_def *def) {
  std::uint8_t kept = def->flags & 0xE0u;
  *def = {};
  def->flags = kept;
}

void undefine_macro(a_symbol *macro_symbol) {
  remove_symbol(macro_symbol);
}

a_symbol *find_defined_macro(a_symbol_header *header) {
  a_symbol *macro_symbol = find_macro_symbol(header);
  if (macro_symbol == nullptr) return nullptr;
  a_magic_macro magic = macro_def_of(macro_symbol)->magic;
  return magic == mm_defined || magic == mm_pragma_operator ? nullptr : macro_symbol;
}

bool is_valid_identifier(const char *text, std::size_t length, a_symbol **symbol,
                         a_symbol_locator *locator) {
  // The end of a literal would be searched for behind the text, which no marker ends.
  for (std::size_t i = 0; i < length; ++i)
    if (text[i] == '"' || text[i] == '\'') return false;
  a_pp_text_kind kind;
  if (length == 0 || end_of_pp_token(text, &kind, nullptr) != text + length ||
      kind != ptk_identifier)
    return false;
  if (locator != nullptr) {
    a_symbol *found = find_symbol(text, length, locator);
    if (symbol != nullptr) *symbol = found;
  }
  return true;
}

// ---- push_macro, pop_macro ---------------------------------------------------------------------

namespace {

struct a_saved_macro {
  a_saved_macro *next;
  a_symbol_header *header;
  bool defined;
  a_macro_def def;
  a_source_position position;
};
a_saved_macro *saved_macros;

}  // namespace

void push_macro_definition(a_symbol_header *header) {
  a_saved_macro *saved = static_cast<a_saved_macro *>(alloc_in_region(0, sizeof(a_saved_macro)));
  *saved = {};
  saved->header = header;
  a_symbol *macro_symbol = find_macro_symbol(header);
  saved->defined = macro_symbol != nullptr;
  if (saved->defined) {
    saved->def = *macro_def_of(macro_symbol);
    saved->position = macro_symbol->decl_position;
  }
  saved->next = saved_macros;
  saved_macros = saved;
}

void pop_macro_definition(a_symbol_header *header) {
  a_saved_macro **link = &saved_macros;
  while (*link != nullptr && (*link)->header != header)
    link = &(*link)->next;
  a_saved_macro *saved = *link;
  if (saved == nullptr) return;
  *link = saved->next;
  a_symbol *macro_symbol = find_macro_symbol(header);
  if (!saved->defined) {
    if (macro_symbol != nullptr) undefine_macro(macro_symbol);
    return;
  }
  if (macro_symbol == nullptr) macro_symbol = new_macro_symbol(header, &saved->position);
  std::uint32_t open_texts = macro_def_of(macro_symbol)->open_texts;
  *macro_def_of(macro_symbol) = saved->def;
  macro_def_of(macro_symbol)->open_texts = open_texts;
  macro_symbol->decl_position = saved->position;
}

// ---- Macros of the system ----------------------------------------------------------------------

// Defines "name list" (or "name(params) list") as if by a directive.
static a_symbol *define_from_text(const char *text, std::size_t length) {
  char *copy = alloc_macro_text(length + 4);
  std::memcpy(copy, text, length);
  std::memcpy(copy + length, "\0\2\0\1", 4);
  bool saved_directive = in_preprocessing_directive;
  bool saved_fetch = fetch_pp_tokens;
  in_preprocessing_directive = fetch_pp_tokens = true;
  a_source_position pos = make_source_position(0, 1);
  a_saved_text_place place;
  begin_inserted_text(copy, &pos, &place);
  a_symbol *macro_symbol = proc_define();
  end_inserted_text(&place);
  in_preprocessing_directive = saved_directive;
  fetch_pp_tokens = saved_fetch;
  release_macro_text_from(copy);
  return macro_symbol;
}

void enter_predef_macro(const char *name, const char *text, unsigned flags) {
  static a_text_buffer *buffer;
  if (buffer == nullptr) buffer = alloc_text_buffer(128);
  reset_text_buffer(buffer);
  f_add_string_to_text_buffer(buffer, name);
  add_char_to_text_buffer(buffer, ' ');
  f_add_string_to_text_buffer(buffer, text);
  const char *saved_def = curr_cmd_line_or_predef_macro_def;
  bool saved_predef = processing_predefined_macro;
  curr_cmd_line_or_predef_macro_def = name;
  processing_predefined_macro = true;
  a_symbol *macro_symbol = define_from_text(buffer->buffer, buffer->size_used);
  curr_cmd_line_or_predef_macro_def = saved_def;
  processing_predefined_macro = saved_predef;
  if (macro_symbol != nullptr) {
    a_macro_def *def = macro_def_of(macro_symbol);
    def->flags = static_cast<std::uint8_t>((def->flags & ~mf_from_predef_file) | flags);
  }
}

void set_predef_macro_mode(int mode, int value) {
  if (mode > pmm_none && mode < pmm_last) predef_macro_modes[mode] = value;
}

int predef_macro_mode_value(int mode) {
  return mode > pmm_none && mode < pmm_last ? predef_macro_modes[mode] : 0;
}

static void enter_magic_macro(const char *name, a_magic_macro magic) {
  a_source_position pos = make_source_position(0, 1);
  a_symbol_header *header = find_symbol_header(name, std::strlen(name));
  if (find_macro_symbol(header) != nullptr) return;
  a_macro_def *def = macro_def_of(new_macro_symbol(header, &pos));
  def->flags = mf_object_like | mf_predefined | mf_not_for_listing;
  def->magic = magic;
  if ((magic < mm_has_feature || magic > mm_has_cpp_attribute) && magic != mm_pragma_operator)
    return;
  static a_macro_param operand = {nullptr, "operand", 7, true, true};
  def->num_params = 1;
  def->params = &operand;
}

void enter_magic_macros() {
  enter_magic_macro("__LINE__", mm_line);
  enter_magic_macro("__FILE__", mm_file);
  enter_magic_macro("defined", mm_defined);
  enter_magic_macro("__BASE_FILE__", mm_base_file);
  if (pragma_operator_allowed) enter_magic_macro("_Pragma", mm_pragma_operator);
  if (gnu_mode) {
    enter_magic_macro("__COUNTER__", mm_counter);
    enter_magic_macro("__TIMESTAMP__", mm_timestamp);
    enter_magic_macro("__INCLUDE_LEVEL__", mm_include_level);  // foreign headers ask
  }
  enter_magic_macro("__has_feature", mm_has_feature);
  enter_magic_macro("__has_extension", mm_has_extension);
  enter_magic_macro("__has_attribute", mm_has_attribute);
  enter_magic_macro("__has_builtin", mm_has_builtin);
  // Foreign libraries for newer C++ ask without a test.
  if (in_cplusplus() && (clang_mode ? clang_version >= 30600 : gnu_mode && gnu_version >= 50000))
    enter_magic_macro("__has_cpp_attribute", mm_has_cpp_attribute);
  enter_magic_macro("__has_include_next", mm_has_include_next);
  enter_magic_macro("__has_include", mm_has_include);
}

static void define(const char *name, const char *text = "1") {
  enter_predef_macro(name, text, mf_predefined);
}

static void define_if(bool condition, const char *name, const char *text = "1") {
  if (condition) define(name, text);
}

// "Mon Nov 23 02:00:00 2026" gives "Nov 23 2026" and "02:00:00".
static void define_date_and_time(const char *ctime_text) {
  char date[16];
  char time[16];
  std::snprintf(date, sizeof date, "\"%.3s %.2s %.4s\"", ctime_text + 4, ctime_text + 8,
                ctime_text + 20);
  std::snprintf(time, sizeof time, "\"%.8s\"", ctime_text + 11);
  enter_predef_macro("__DATE__", date, mf_predefined | mf_not_for_listing);
  enter_predef_macro("__TIME__", time, mf_predefined | mf_not_for_listing);
}

void fixup_predefined_macros(const char *date_and_time) {
  for (const char *name : {"__DATE__", "__TIME__"}) {
    a_symbol *macro_symbol = find_macro_symbol_by_name(name);
    if (macro_symbol != nullptr) undefine_macro(macro_symbol);
  }
  define_date_and_time(date_and_time);
}

static void define_standard_macros() {
  bool is_c = !in_cplusplus();
  if (stdc_zero_in_system_headers)
    enter_magic_macro("__STDC__", mm_stdc);
  else
    define_if(!in_pcc_mode(), "__STDC__",
              stdc_zero_in_nonstrict_mode && !strict_ansi_mode ? "0" : "1");
  if (is_c) {
    define("__STDC_VERSION__", std_version < 199901    ? "199409L"
                               : std_version >= 201112 ? "201112L"
                                                       : "199901L");
    bool c99 = std_version >= 199901;
    define_if(c99 && !vla_enabled, "__STDC_NO_VLA__");
    define_if(c99 && !c11_atomic_enabled, "__STDC_NO_ATOMICS__");
    define_if(c99 && uliterals_enabled, "__STDC_UTF_16__");
    define_if(c99 && uliterals_enabled, "__STDC_UTF_32__");
  }
  define("__STDC_HOSTED__");
  if (!is_c)
    define("__cplusplus", clang_mode && std_version > 201700 ? "201406L"
                          : std_version >= 201402            ? "201402L"
                          : std_version > 201102             ? "201103L"
                                                             : "199711L");
}

static void define_feature_macros() {
  bool cplusplus = in_cplusplus();
  define_if(report_embedded_cplusplus_noncompliance, "__embedded_cplusplus");
  define_if(cplusplus && wchar_t_is_keyword, "_WCHAR_T");
  define_if(char16_t_and_char32_t_are_keywords, "__CHAR16_T_AND_CHAR32_T");
  define_if(cplusplus && bool_is_keyword, "_BOOL");
  define_if(array_new_and_delete_enabled, "__ARRAY_OPERATORS");
  define_if(exceptions_enabled, "__EXCEPTIONS");
  define_if(rtti_enabled, "__rtti_enabled__");
  define_if(cplusplus, "__PLACEMENT_DELETE");
  define_if(cplusplus, "__ZVN_RUNTIME_USES_NAMESPACES");
  define_if(implicit_using_std, "__ZVN_IMPLICIT_USING_STD");
  define_if(cplusplus, "__ZVN_IA64_ABI");
  define_if(cplusplus, "__ZVN_IA64_ABI_VARIANT_CTORS_AND_DTORS_RETURN_THIS");
  define_if(cplusplus, "__ZVN_IA64_ABI_USE_INT_STATIC_INIT_GUARD");
  if (define_portable_feature_test_macros) {
#define FEATURE_TEST(name, condition, value) define_if(condition, #name, value);
#include "source/macro_feature_tests.def"
  }
  define_if(c99_complex_enabled, "__QX_C99_COMPLEX_ENABLED__");
  define_if(strict_ansi_mode && !long_long_is_standard, "__NO_LONG_LONG");
  define_if(type_traits_helpers_enabled, "__ZVN_TYPE_TRAITS_ENABLED");
  define_if(variadic_templates_enabled, "__VARIADIC_TEMPLATES");
  define_if(!cplusplus, "__STDC_NO_THREADS__");
  define_if(constexpr_enabled, "__ZVN_CONSTEXPR_ENABLED__");
}

static void define_gnu_macros() {
  define_if(gpp_mode && gnu_version >= 40300 && rtti_enabled, "__GXX_RTTI");
  if (gnu_mode && gnu_version >= 40103) {
    bool stdc_inline = in_cplusplus() ? std_version > 201102 : gcc_mode && std_c99_inlining;
    define_if(stdc_inline, "__GNUC_STDC_INLINE__");
    define_if(!stdc_inline && (gnu_c89_inlining || gpp_mode), "__GNUC_GNU_INLINE__");
  }
  char text[64];
  if (clang_mode) {
    int major = clang_version / 10000;
    int minor = clang_version / 100 % 100;
    int patch = clang_version % 100;
    define("__clang__");
    std::snprintf(text, sizeof text, "%d", major);
    define("__clang_major__", text);
    std::snprintf(text, sizeof text, "%d", minor);
    define("__clang_minor__", text);
    std::snprintf(text, sizeof text, "%d", patch);
    define("__clang_patchlevel__", text);
    std::snprintf(text, sizeof text, "\"%d.%d.%d\"", major, minor, patch);
    define("__clang_version__", text);
  } else if (gnu_mode) {
    std::snprintf(text, sizeof text, "\"ZVN %s %d.%d mode\"", gpp_mode ? "g++" : "gcc",
                  gnu_version / 10000, gnu_version / 100 % 100);
    define("__VERSION__", text);
  }
  if (gnu_mode && gnu_version >= 40400) {
    define("__CHAR16_TYPE__", int_kind_name(targ_char16_t_int_kind));
    define("__CHAR32_TYPE__", int_kind_name(targ_char32_t_int_kind));
  }
}

static void define_runtime_macros() {
  static const char *const rows[][2] = {
      {"__ZVN_DELTA_TYPE", "int"},
      {"__ZVN_IA64_VTABLE_ENTRY_TYPE", "int"},
      {"__ZVN_VIRTUAL_FUNCTION_INDEX_TYPE", "unsigned short"},
      {"__ZVN_LOWER_VARIABLE_LENGTH_ARRAYS", "1"},
      {"__ZVN_IA64_ABI_USE_VARIANT_ARRAY_COOKIES", "1"},
      {"__ZVN_ABI_COMPATIBILITY_VERSION", "413"},
      {"__ZVN_ABI_CHANGES_FOR_RTTI", "1"},
      {"__ZVN_ABI_CHANGES_FOR_ARRAY_NEW_AND_DELETE", "1"},
      {"__ZVN_ABI_CHANGES_FOR_PLACEMENT_DELETE", "1"},
      {"__ZVN_BSD", "0"},
      {"__ZVN_SYSV", "0"},
      {"__ZVN_ANSIC", "1"},
      {"__ZVN_CPP11_IL_EXTENSIONS_SUPPORTED", "1"},
      {"__ZVN_FLOAT80_ENABLING_POSSIBLE", "0"},
      {"__ZVN_FLOAT128_ENABLING_POSSIBLE", "0"},
  };
  if (!building_runtime) return;
  for (const auto &row : rows)
    define(row[0], row[1]);
}

// ---- The command line --------------------------------------------------------------------------

void add_macro_definition_from_cmd_line(const char *text, bool is_undefinition) {
  a_macro_cmd_line_item *item =
      static_cast<a_macro_cmd_line_item *>(alloc_general(sizeof(a_macro_cmd_line_item)));
  *item = {nullptr, text, is_undefinition};
  if (defs_from_cmd_line == nullptr)
    defs_from_cmd_line = item;
  else
    last_def_from_cmd_line->next = item;
  last_def_from_cmd_line = item;
}

static void undefine_from_cmd_line(const char *name) {
  if (!is_valid_identifier(name, std::strlen(name), nullptr, nullptr))
    str_command_line_error(ec_cl_invalid_macro_undefinition, name);
  a_symbol *macro_symbol = find_macro_symbol_by_name(name);
  if (macro_symbol == nullptr) return;
  if ((macro_def_of(macro_symbol)->flags & mf_predefined) != 0)
    str_command_line_error(ec_cl_invalid_macro_undefinition, name);
  undefine_macro(macro_symbol);
}

// -Dname, -Dname=list, -Dname(params)=list
static void define_from_cmd_line(const char *text) {
  if (std::strchr(text, '\n') != nullptr)
    str_command_line_error(ec_cl_invalid_macro_definition, text);
  a_text_buffer *buffer = alloc_text_buffer(128);
  f_add_string_to_text_buffer(buffer, text);
  char *equals = static_cast<char *>(std::memchr(buffer->buffer, '=', buffer->size_used));
  if (equals == nullptr)
    f_add_string_to_text_buffer(buffer, gnu_mode ? " 1" : "=1");
  else if (gnu_mode)
    *equals = ' ';
  curr_cmd_line_or_predef_macro_def = text;
  define_from_text(buffer->buffer, buffer->size_used);
  curr_cmd_line_or_predef_macro_def = nullptr;
}

static void process_cmd_line_definitions() {
  for (const a_macro_cmd_line_item *i = defs_from_cmd_line; i != nullptr; i = i->next) {
    if (i->is_undefinition)
      undefine_from_cmd_line(i->text);
    else
      define_from_cmd_line(i->text);
  }
}

void init_predefined_macros(const char *date_and_time) {
  define(targ_has_signed_chars ? "__signed_chars__" : "__unsigned_chars__");
  define("__PRAGMA_REDEFINE_EXTNAME");
  define_date_and_time(date_and_time);
  define_standard_macros();
  define_feature_macros();
  define("__zvn_front_end__");
  define("__ZVN_VERSION__", "413");
  define("__ZVN_SIZE_TYPE__", int_kind_name(targ_size_t_int_kind));
  define("__ZVN_PTRDIFF_TYPE__", int_kind_name(targ_ptrdiff_t_int_kind));
  define_gnu_macros();
  define_runtime_macros();
  enter_system_specific_predefined_macros_and_assertions();
  enter_magic_macros();
  process_cmd_line_definitions();
}

// ---- Life cycle --------------------------------------------------------------------------------

void macro_one_time_init() {
  init_magic_macros();
}

void macro_trans_unit_init() {
  init_magic_macros();
  init_macro_listing();
  macro_depth = num_macro_invocations_in_process = 0;
  in_macro_arg_list = false;
  saved_macros = nullptr;
}

void macro_init() {}
