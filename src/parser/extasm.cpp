// asm: reads one, tests its directive, and keeps its text.
//
// A directive that changes the section or the location counter inside a function would tear the
// function's code apart, and one that the lists do not know may do so: the first is an error, the
// second a warning. Outside functions nearly everything passes.
#include "parser/extasm.h"

#include <cstring>
#include <iterator>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "semantics/scope_stk.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

enum a_directive_action : std::uint8_t { da_silent, da_warning, da_error };
struct a_directive_row {
  const char *name;  // null: every other directive
  a_directive_action action;
};

constexpr a_directive_row function_directives[] = {
    {".text", da_error},   {".usect", da_error},   {".sect", da_error}, {".bss", da_error},
    {".data", da_error},   {".align", da_error},   {".bes", da_error},  {".space", da_error},
    {".cdecls", da_error}, {".global", da_silent}, {".ref", da_silent}, {".eval", da_silent},
    {nullptr, da_warning},
};
constexpr a_directive_row file_directives[] = {
    {".cdecls", da_error}, {".global", da_silent}, {".ref", da_silent},
    {".eval", da_silent},  {nullptr, da_silent},
};

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\n';
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equals_lowered(const char *word, std::size_t length, const char *name) {
  if (std::strlen(name) != length) return false;
  for (std::size_t i = 0; i < length; ++i)
    if (lower(word[i]) != name[i]) return false;
  return true;
}

a_directive_action action_for_directive(const char *word, std::size_t length, bool in_function) {
  const a_directive_row *row = in_function ? function_directives : file_directives;
  while (row->name != nullptr && !equals_lowered(word, length, row->name))
    ++row;
  return row->action;
}

//     label: .directive operands
void check_asm_text(const char *text, std::size_t length, bool in_function,
                    const a_source_position *position) {
  const char *end = text + length;
  const char *p = text;
  if (p == end || *p == '*' || *p == ';') return;
  if (!is_blank(*p)) {
    while (p != end && !is_blank(*p) && *p != ':')
      ++p;
    if (p != end && *p == ':') ++p;
  }
  while (p != end && is_blank(*p))
    ++p;
  const char *word = p;
  while (p != end && !is_blank(*p))
    ++p;
  if (word == p || *word != '.') return;
  switch (action_for_directive(word, static_cast<std::size_t>(p - word), in_function)) {
    case da_silent:
      break;
    case da_warning:
      pos_warning(in_function ? ec_unsafe_asm_in_func : ec_unsafe_asm, position);
      break;
    case da_error:
      pos_error(in_function ? ec_invalid_asm_in_func : ec_invalid_asm, position);
      break;
  }
}

// const, volatile and goto behind the keyword.
void scan_asm_qualifiers(an_asm_entry *entry) {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  a_source_position position = pos_curr_token;
  unsigned qualifiers = collect_type_qualifiers(&state);
  if ((qualifiers & ~static_cast<unsigned>(tq_const | tq_volatile)) != 0)
    pos_error(ec_invalid_asm_qualifiers, &position);
  if ((qualifiers & tq_const) != 0) pos_warning(ec_const_ignored, &position);
  if ((qualifiers & tq_volatile) != 0) {
    if (report_gnu_extensions) pos_warning(ec_volatile_asm_is_gnu_extension, &position);
    entry->is_volatile = true;
  }
  if (curr_token == tok_goto && gnu_version >= 40500) {
    entry->is_goto = true;
    get_token();
  }
}

// ( string-literal )  into a constant of the IL.
a_constant *scan_asm_string(bool in_function) {
  a_constant *text = alloc_constant(ck_error);
  text->type = error_type();
  add_stop_token(tok_rparen);
  if (!required_token(tok_lparen, ec_exp_lparen)) {
    if (curr_token == tok_rparen) get_token();
    remove_stop_token(tok_rparen);
    return text;
  }
  if (curr_token != tok_string_literal) {
    required_token_no_advance(tok_string_literal, ec_exp_asm_string);
  } else if (const_for_curr_token.string_char_kind != chk_char) {
    pos_error(gnu_mode ? ec_wide_string_invalid_in_asm : ec_wide_string_not_allowed,
              &pos_curr_token);
    get_token();
  } else {
    const a_constant &literal = const_for_curr_token;
    text = alloc_unshared_constant_full(&literal);
    std::size_t length = literal.string_length > 0 ? literal.string_length - 1 : 0;
    check_asm_text(text->string_text, length, in_function, &pos_curr_token);
    get_token();
  }
  required_token(tok_rparen, ec_exp_rparen);
  remove_stop_token(tok_rparen);
  return text;
}

// The keyword came with its text: __asm { ... }.
a_constant *text_of_asm_block() {
  a_constant *text = alloc_constant(ck_string);
  std::size_t length = std::strlen(curr_token_asm_string);
  char *copy = static_cast<char *>(alloc_text_of_string_literal(length + 1));
  std::memcpy(copy, curr_token_asm_string, length + 1);
  text->string_text = copy;
  text->string_length = length + 1;
  text->type = string_literal_type(chk_char, length + 1);
  return text;
}

// ---- Registers ---------------------------------------------------------------------------------

struct a_register_name {
  const char *name;
  int number;
};

// Sorted by name.
constexpr a_register_name register_names[] = {
#define REGISTER(name, number) {name, number},
#include "parser/extasm_registers.def"
};

constexpr bool names_are_sorted() {
  for (std::size_t i = 1; i < std::size(register_names); ++i) {
    const char *a = register_names[i - 1].name, *b = register_names[i].name;
    while (*a != 0 && *a == *b)
      ++a, ++b;
    if (*a >= *b) return false;
  }
  return true;
}
static_assert(names_are_sorted());

}  // namespace

int name_to_register(const char *name) {
  if (*name == '%') ++name;
  std::size_t low = 0, high = std::size(register_names);
  while (low < high) {
    std::size_t middle = (low + high) / 2;
    int order = std::strcmp(name, register_names[middle].name);
    if (order == 0) return register_names[middle].number;
    if (order < 0)
      high = middle;
    else
      low = middle + 1;
  }
  return invalid_register;
}

an_asm_entry *asm_declaration(bool allowed, bool in_function, an_attribute *attributes) {
  a_source_position position = pos_curr_token;
  if (!allowed)
    pos_error(ec_asm_decl_not_allowed, &position);
  else if (attributes != nullptr)
    pos_warning(ec_invalid_attribute_location, &position);
  an_asm_entry *entry = alloc_asm_entry();
  entry->position = entry->decl_position = position;
  entry->form = 2;
  add_stop_token(tok_semicolon);
  if (curr_token == tok_asm_gnu && curr_token_asm_string != nullptr) {
    entry->asm_text = text_of_asm_block();
    get_token();
  } else {
    get_token();
    if (gnu_mode) scan_asm_qualifiers(entry);
    entry->asm_text = scan_asm_string(in_function);
  }
  required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
  if (!allowed) return nullptr;
  if (in_function) {
    if (innermost_function() != nullptr) innermost_function()->has_asm = true;
  } else {
    add_to_asm_entries_list(entry, decl_scope_level);
  }
  return entry;
}

void extasm_one_time_init() {}
