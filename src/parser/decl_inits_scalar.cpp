// The values of initializers that are single expressions: scalars, strings, whole class objects.
//
// An expression is scanned before it is known what it initializes: "{ x, y }" for a struct of
// structs gives x to the inner struct as a whole if it has that type, and to its first member
// otherwise. The scanned operand waits in the walk with its expression context open, until
// convert_pending closes both. A literal that is plainly the value of the scalar it stands for, as
// in tables of numbers, takes a short way without an expression context.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_inits_internal.h"
#include "parser/expr.h"
#include "parser/exprutil.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/types.h"
#include "source/lexical.h"

// ---- Expressions -------------------------------------------------------------------------------

void fetch_operand(an_init_walk &walk) {
  if (walk.has_pending) return;
  begin_initializer_expression(&walk.entry, walk.constant_required);
  scan_initializer_operand(&walk.pending);
  walk.has_pending = true;
}

a_type *type_of_pending(const an_init_walk &walk) {
  return walk.pending.type;
}

// static struct s v = (struct s){1, 2};   GNU C takes the value of the literal.
a_constant *constant_of_pending_literal(const an_init_walk &walk) {
  const an_operand &pending = walk.pending;
  if (!walk.constant_required || !gnu_mode || pending.kind != ok_expression ||
      !pending.is_compound_literal || pending.value_category != vc_glvalue)
    return nullptr;
  const an_expr_node *node = pending.expr;
  a_constant *value = nullptr;
  if (node->kind == enk_variable && node->variable->init_kind == init_constant)
    value = node->variable->initializer.constant;
  else if (node->kind == enk_temp_init && node->init->kind == dik_constant)
    value = node->init->constant;
  if (value == nullptr || (value->kind == ck_aggregate && value->has_dynamic_init_component))
    return nullptr;
  return value;
}

namespace {

a_constant *wrap_dynamic_value(an_init_walk &walk, an_expr_node *node, a_type *type) {
  a_dynamic_init *init = alloc_dynamic_init(dik_expression);
  init->expr = node;
  init->type = type;
  a_constant *value = alloc_constant(ck_dynamic_init);
  value->type = type;
  value->dynamic_init = init;
  walk.any_dynamic = true;
  return value;
}

bool is_constant_literal_token() {
  return curr_token == tok_int_constant || curr_token == tok_char_constant ||
         curr_token == tok_float_constant;
}

// 12,   'a'}   1.5;   where the scalar takes the literal as it is; null: the long way.
a_constant *take_plain_literal(a_type *type) {
  if (!is_constant_literal_token() || check_misra_c_2004) return nullptr;
  a_type *target = skip_typerefs(type);
  const a_constant &literal = const_for_curr_token;
  if (literal.kind == ck_integer) {
    if (target->kind != tk_integer || target->is_enum || target->is_bool) return nullptr;
    if (!in_range_for_integer_kind(&literal, nullptr, target->int_kind)) return nullptr;
  } else if (literal.kind != ck_float || target->kind != tk_float ||
             skip_typerefs(literal.type)->kind != tk_float ||
             skip_typerefs(literal.type)->float_kind != target->float_kind) {
    return nullptr;
  }
  a_token_kind next = next_token();
  if (next != tok_comma && next != tok_rbrace && next != tok_semicolon) return nullptr;
  a_constant *value = alloc_constant(literal.kind);
  if (literal.kind == ck_integer) {
    value->integer_value = literal.integer_value;
  } else {
    value->float_value = literal.float_value;
    value->float_class = literal.float_class;
  }
  value->type = make_unqualified_type(type);
  get_token();
  return value;
}

}  // namespace

a_constant *convert_pending(an_init_walk &walk, a_type *type) {
  walk.has_pending = false;
  a_constant result;
  clear_constant(&result, ck_error);
  an_expr_node *node = nullptr;
  bool ok = finish_initializer_expression(&walk.entry, &walk.pending, type, walk.constant_required,
                                          &result, &node);
  if (!ok) return make_error_value(walk);
  if (node == nullptr) return alloc_unshared_constant(&result);
  return wrap_dynamic_value(walk, node, type);
}

void drop_pending(an_init_walk &walk) {
  if (!walk.has_pending) return;
  walk.has_pending = false;
  abandon_initializer_expression();
}

a_constant *scan_scalar_value(an_init_walk &walk, a_type *type) {
  if (!walk.has_pending) {
    a_constant *literal = take_plain_literal(type);
    if (literal != nullptr) return literal;
  }
  fetch_operand(walk);
  const a_constant *literal = constant_of_pending_literal(walk);
  if (literal != nullptr && is_scalar_type(type_of_pending(walk)))
    make_constant_operand(literal, &walk.pending);
  return convert_pending(walk, type);
}

// { value }   { value , }   {{ value }}
a_constant *scan_braced_scalar(an_init_walk &walk, a_type *type) {
  a_source_position position = pos_curr_token;
  if (++walk.depth > max_initializer_depth) {
    pos_st_error(ec_not_supported, &position, "an initializer nested this deeply is");
    flush_until_matching_token();
    get_token();
    --walk.depth;
    return make_error_value(walk);
  }
  get_token();
  add_stop_token(tok_rbrace);
  add_stop_token(tok_comma);
  a_constant *value = nullptr;
  if (curr_token == tok_rbrace) {
    pos_error(ec_exp_primary_expr, &pos_curr_token);
    value = make_error_value(walk);
  } else if (curr_token == tok_period || (curr_token == tok_lbracket && !in_cplusplus())) {
    pos_error(ec_invalid_designator_kind, &pos_curr_token);  // a scalar has no parts
    value = make_error_value(walk);
    a_stop_token_count stops[tok_last] = {};
    stops[tok_comma] = stops[tok_rbrace] = stops[tok_semicolon] = 1;
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
  } else if (curr_token == tok_lbrace) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity
                   : in_cplusplus() ? es_warning
                                    : es_none,
                   ec_nonstd_braces, &pos_curr_token);
    value = scan_braced_scalar(walk, type);
  } else {
    value = scan_scalar_value(walk, type);
  }
  bool reported = false;
  while (curr_token == tok_comma) {
    get_token();
    if (curr_token == tok_rbrace) break;
    if (!reported && gcc_mode)
      pos_warning(ec_excess_initializers_ignored, &pos_curr_token);
    else if (!reported)
      pos_error(ec_too_many_initializer_values, &pos_curr_token);
    if (!gcc_mode) walk.error = true;
    reported = true;
    a_stop_token_count stops[tok_last] = {};
    stops[tok_comma] = stops[tok_rbrace] = stops[tok_semicolon] = 1;
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
  }
  remove_stop_token(tok_comma);
  remove_stop_token(tok_rbrace);
  scan_end_of_braced_list();
  --walk.depth;
  return value;
}

// ---- Strings -----------------------------------------------------------------------------------

// "text"    ("text")    and nothing more that would make it an operand
bool at_whole_string() {
  if (curr_token == tok_lparen && next_token() == tok_string_literal) {
    a_token_cache cache;
    clear_token_cache(&cache, false);
    cache_curr_token(&cache);
    get_token();
    bool answer = next_token() == tok_rparen;
    rescan_cached_tokens(&cache);
    return answer;
  }
  if (curr_token != tok_string_literal) return false;
  a_token_kind next = next_token();
  return next == tok_comma || next == tok_rbrace || next == tok_semicolon || next == tok_rparen ||
         next == tok_attribute;
}

bool at_string_for(const a_type *type) {
  a_string_char_kind kind;
  return may_be_string_type(type, &kind) && at_whole_string();
}

namespace {

bool char_kinds_fit(const a_type *type, const a_constant *string) {
  // By the literal: in C one integer type can be that of several kinds of characters.
  switch (string->string_char_kind) {
    case chk_wchar_t:
      return is_wchar_t_array_type(type);
    case chk_char16_t:
      return is_char16_t_array_type(type);
    case chk_char32_t:
      return is_char32_t_array_type(type);
    default:
      return is_char_array_type(type);
  }
}

std::uint64_t characters_of(const a_constant *string) {
  a_type *element = string_literal_element_type(string->string_char_kind);
  return element->size == 0 ? string->string_length
                            : string->string_length / skip_typerefs(element)->size;
}

}  // namespace

bool check_string_constant_initializer_full(a_type **type, a_constant *string, bool *too_long) {
  *too_long = false;
  if (!char_kinds_fit(*type, string)) return false;
  std::uint64_t length = characters_of(string);
  if (is_incomplete_array_type(*type)) {
    *type = make_array_type(array_element_type(*type), length);
    return true;
  }
  std::uint64_t bound = skip_typerefs(*type)->number_of_elements;
  if (length <= bound) return true;
  // Only the terminator is lost: fine in C.
  bool only_terminator = length == bound + 1 && !in_cplusplus();
  std::uint64_t width = string->string_length / length;
  string->string_length = bound * width;
  string->type = string_literal_type(string->string_char_kind, bound);
  *too_long = !only_terminator;
  return true;
}

a_constant *scan_string_initializer(an_init_walk &walk, a_type **type) {
  a_source_position position = pos_curr_token;
  bool parenthesized = curr_token == tok_lparen;
  if (parenthesized) {
    get_token();
    if (strict_ansi_mode)
      pos_diagnostic(strict_ansi_discretionary_severity,
                     ec_nonstandard_parenthesized_string_initializer, &position);
  }
  a_constant *value = alloc_unshared_constant(&const_for_curr_token);
  bool too_long = false;
  bool fits = check_string_constant_initializer_full(type, value, &too_long);
  get_token();
  if (parenthesized) required_token(tok_rparen, ec_exp_rparen);
  if (!fits) {
    if (!is_error_type(*type))
      pos_ty2_error(ec_bad_initializer_type, &position, value->type, *type);
    return make_error_value(walk);
  }
  if (too_long && gcc_mode) {
    pos_warning(ec_excess_characters_in_literal_ignored, &position);
  } else if (too_long) {
    pos_error(ec_too_many_initializer_values, &position);
    return make_error_value(walk);
  }
  return value;
}
