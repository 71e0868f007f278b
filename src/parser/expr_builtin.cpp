// Operands in the form of calls that are no functions: types among the arguments, operands that are
// not evaluated, parameters that are named.
#include "driver/switches.h"
#include "il/il.h"
#include "parser/declarator.h"
#include "parser/depth_guard.h"
#include "parser/disambig.h"
#include "parser/expr_internal.h"
#include "semantics/folding.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// The parentheses around what such a form takes.
class a_parenthesized_form {
 public:
  a_parenthesized_form() : start(pos_curr_token) {
    get_token();
    add_stop_token(tok_rparen);
    has_paren = required_token(tok_lparen, ec_exp_lparen);
  }
  // Goes behind ")" and sets the positions of the result.
  void close(an_operand *result) {
    a_source_position end = end_pos_curr_token;
    bool closed = required_token(tok_rparen, ec_exp_rparen);
    remove_stop_token(tok_rparen);
    if (!closed || !has_paren) make_error_operand(result);
    result->start_pos = start;
    result->end_pos = end;
  }

 private:
  a_source_position start;
  bool has_paren;
};

void scan_comma_between() {
  required_token(tok_comma, ec_exp_comma);
}

a_type *scan_type_argument() {
  a_type *type = nullptr;
  type_name(&type);
  return type;
}

void make_size_operand(std::uint64_t value, an_operand *result) {
  a_constant constant;
  set_unsigned_integer_constant(&constant, value, targ_size_t_int_kind);
  make_constant_operand(&constant, result);
}

// An operand that is looked at and not evaluated.
void scan_unevaluated(an_operand *operand) {
  an_expr_stack_entry entry;
  push_expr_stack(ek_unevaluated, &entry);
  scan_expr_at_level(operand, level_comma);
  pop_expr_stack();
  operand->ref_entry = nullptr;
}

}  // namespace

// ---- offsetof, types_compatible_p --------------------------------------------------------------

// __builtin_offsetof(type, member.member[index]...)
void scan_offsetof(an_operand *result) {
  a_parenthesized_form form;
  add_stop_token(tok_comma);
  a_source_position type_position = pos_curr_token;
  a_type *type = scan_type_argument();
  remove_stop_token(tok_comma);
  scan_comma_between();
  an_operand object;
  bool ok = !is_error_type(type);
  if (ok && !is_class_struct_union_type(type)) {
    expr_pos_error(ec_expr_not_struct_or_union, &type_position);
    ok = false;
  }
  if (ok) {
    a_constant null;
    make_zero_constant(&null, make_pointer_type(type));
    make_constant_operand(&null, &object);
  } else {
    make_error_operand(&object);
  }
  scan_member_name(&object, true, result);
  while (curr_token == tok_period || curr_token == tok_lbracket) {
    an_operand left = *result;
    if (curr_token == tok_period)
      scan_field_selection(&left, result);
    else
      scan_subscript(&left, result);
  }
  if (bit_field_of_operand(result) != nullptr) {
    error_in_operand(ec_offsetof_bit_field, result);
  } else if (result->kind != ok_error) {
    an_operand place = *result;
    make_address_of(&place, result, &place.start_pos);
    c_style_cast(result, size_type(), &place.start_pos);
    if (result->kind == ok_constant) result->not_integral_constant = false;
  }
  form.close(result);
}

void scan_types_compatible(an_operand *result) {
  a_parenthesized_form form;
  add_stop_token(tok_comma);
  a_type *first = scan_type_argument();
  remove_stop_token(tok_comma);
  scan_comma_between();
  a_type *second = scan_type_argument();
  bool compatible =
      types_are_compatible(make_unqualified_type(first), make_unqualified_type(second));
  make_integer_constant_operand(compatible, ik_int, result);
  if (is_error_type(first) || is_error_type(second)) make_error_operand(result);
  form.close(result);
}

// ---- _Generic ----------------------------------------------------------------------------------

namespace {

void cache_association(a_token_cache *cache) {
  a_stop_token_count stops[tok_last] = {};
  stops[tok_comma] = stops[tok_rparen] = stops[tok_semicolon] = stops[tok_rbrace] = 1;
  cache_token_stream(cache, stops);
}

struct a_type_list_entry {
  a_type_list_entry *next;
  a_type *type;
};

bool type_is_listed(const a_type_list_entry *list, a_type *type) {
  for (; list != nullptr; list = list->next)
    if (types_are_compatible(list->type, type)) return true;
  return false;
}

// type :   or   default :   Is the colon there? *result is null for default; after a message *ok is
// cleared.
bool scan_association_head(bool *seen_default, const a_type_list_entry *listed, a_type **result,
                           bool *ok) {
  a_source_position position = pos_curr_token;
  a_type *type = nullptr;
  if (curr_token == tok_default) {
    if (*seen_default) {
      expr_pos_error(ec_default_association_appears_more_than_once, &position);
      *ok = false;
    }
    *seen_default = true;
    get_token();
  } else {
    add_stop_token(tok_colon);
    type = scan_type_argument();
    remove_stop_token(tok_colon);
    if (is_error_type(type) || curr_token != tok_colon) {
      *ok = false;
    } else if (is_function_type(type) || is_incomplete_type(type)) {
      if (is_function_type(type))
        expr_pos_error(ec_type_must_be_object_type, &position);
      else if (expr_error_should_be_issued())
        pos_ty_error(ec_incomplete_type_not_allowed, &position, type);
      *ok = false;
    } else if (type_is_listed(listed, type)) {
      if (expr_error_should_be_issued())
        pos_ty_error(ec_duplicate_type_in_c11_generic, &position, type);
      *ok = false;
    }
  }
  *result = type;
  bool has_colon = required_token(tok_colon, ec_exp_colon);
  *ok &= has_colon;
  return has_colon;
}

void scan_cached_association(a_token_cache *cache, an_operand *result) {
  terminate_token_cache(cache);
  rescan_cached_tokens(cache);
  scan_expr_at_level(result, level_comma);
  if (curr_token != tok_end_of_source) {
    expr_syntax_error(ec_exp_rparen);
    while (curr_token != tok_end_of_source)
      get_token();
  }
  get_token();
}

}  // namespace

// The expression of a default is kept until all types are known and then read again: at each level
// anew, when such expressions are nested.
static constexpr int max_generic_depth = 256;

// _Generic(selector, type : expression, ..., default : expression)
// C11 6.5.1.1
void scan_generic_selection(an_operand *result) {
  a_depth_guard guard(generic_depth, max_generic_depth);
  a_source_position start = pos_curr_token;
  a_parenthesized_form form;
  add_stop_token(tok_comma);
  an_operand selector;
  scan_unevaluated(&selector);
  do_operand_transformations(&selector);
  a_type *selector_type = make_unqualified_type(selector.type);
  a_type_list_entry *listed = nullptr;
  a_token_cache chosen;
  clear_token_cache(&chosen, false);
  bool ok = selector.kind != ok_error, seen_default = false, found = false, has_default = false;
  while (curr_token == tok_comma) {
    get_token();
    a_type *type;
    if (!scan_association_head(&seen_default, listed, &type, &ok)) continue;
    bool matches = type != nullptr && !is_error_type(type) && selector.kind != ok_error &&
                   types_are_compatible(type, selector_type);
    if (type != nullptr) {
      auto *entry = static_cast<a_type_list_entry *>(
          alloc_in_region(permanent_region, sizeof(a_type_list_entry)));
      *entry = {listed, type};
      listed = entry;
    }
    if (matches && !found) {
      discard_token_cache(&chosen);
      scan_expr_at_level(result, level_comma);
      found = true;
    } else if (type == nullptr && !found) {
      discard_token_cache(&chosen);
      cache_association(&chosen);
      has_default = true;
    } else {
      an_operand other;
      scan_unevaluated(&other);
    }
  }
  remove_stop_token(tok_comma);
  ok &= curr_token == tok_rparen;
  an_operand outside;
  form.close(&outside);
  a_source_position end = outside.end_pos;
  if (!found && has_default && ok) {
    scan_cached_association(&chosen, result);
  } else if (!found || !ok) {
    if (ok && expr_error_should_be_issued())
      pos_ty_error(ec_no_match_in_c11_generic, &start, selector_type);
    discard_token_cache(&chosen);
    make_error_operand(result);
  }
  result->start_pos = start;
  result->end_pos = end;
}

// ---- Keywords of <stdarg.h> --------------------------------------------------------------------

namespace {

// __va_parmadr(p): the address of a parameter in the memory of the arguments.
void make_parameter_address(an_operand *parameter, an_operand *result) {
  bool is_parameter = parameter->kind == ok_expression && parameter->value_category == vc_glvalue &&
                      parameter->expr->kind == enk_variable &&
                      parameter->expr->variable->is_parameter;
  if (parameter->kind == ok_error || !is_parameter) {
    error_in_operand(ec_bad_va_parmadr, parameter);
    make_error_operand(result);
    return;
  }
  take_address_of_lvalue(parameter);
  an_expr_node *node = make_operator_node(eok_gnu_address_of_label,
                                          make_pointer_type(parameter->type), parameter->expr);
  make_expression_operand(node, result);
  result->not_constant = result->not_integral_constant = true;
}

}  // namespace

void scan_va_keyword(an_operand *result) {
  a_token_kind keyword = curr_token;
  a_parenthesized_form form;
  if (keyword == tok_va_parmadr) {
    an_operand parameter;
    scan_expr_at_level(&parameter, level_comma);
    make_parameter_address(&parameter, result);
  } else {
    an_expr_stack_entry entry;
    push_expr_stack(ek_unevaluated, &entry);
    an_operand operand;
    a_type *type = scan_type_or_unevaluated_operand(&operand);
    if (type == nullptr) type = operand.type;
    pop_expr_stack();
    if (is_error_type(type))
      make_error_operand(result);
    else if (keyword == tok_va_argref)
      make_size_operand(is_passed_by_ref_type(type), result);
    else
      make_size_operand(is_class_struct_union_type(type), result);
  }
  form.close(result);
}

// __INTADDR__(expression): an address as an integer constant.
void scan_intaddr(an_operand *result) {
  a_parenthesized_form form;
  scan_expr_at_level(result, level_any);
  a_source_position position = result->start_pos;
  c_style_cast(result, size_type(), &position);
  if (result->kind == ok_constant) result->not_integral_constant = false;
  form.close(result);
}

void scan_builtin_addressof(an_operand *result) {
  a_parenthesized_form form;
  an_operand operand;
  scan_expr_at_level(&operand, level_comma);
  a_source_position position = operand.start_pos;
  make_address_of(&operand, result, &position);
  form.close(result);
}

// ---- Builtins with arguments of their own ------------------------------------------------------

namespace {

// An argument that names a va_list: the object, or a pointer to it where it is a parameter that
// was adjusted.
bool scan_va_list(an_operand *list) {
  scan_expr_at_level(list, level_comma);
  do_operand_transformations(list, dot_keep_lvalue);
  if (list->kind == ok_error) return false;
  a_type *type = list->type;
  if (is_pointer_type(type)) {
    do_operand_transformations(list);
    type = type_pointed_to(type);
  } else if (list->value_category == vc_glvalue) {
    modifying_lvalue(list, true);
  }
  if (is_va_list_type(type)) return true;
  a_type *wanted = get_default_va_list_type();
  expr_pos_ty2_diagnostic(es_error, ec_incompatible_param, &list->start_pos, list->type, wanted);
  conv_to_error_operand(list);
  return false;
}

void make_va_operation(an_expr_operator_kind op, a_type *type, an_operand *first,
                       an_operand *second, an_operand *result) {
  if (first->kind == ok_error || (second != nullptr && second->kind == ok_error)) {
    make_error_operand(result);
    return;
  }
  an_expr_node *node = make_node_from_operand(first);
  if (second != nullptr) node->next = make_node_from_operand(second);
  make_expression_operand(make_operator_node(op, type, node), result);
  result->not_constant = result->not_integral_constant = true;
}

void scan_builtin_va_start(an_operand *result) {
  an_operand list, parameter;
  scan_va_list(&list);
  const a_routine *routine = innermost_function();
  if (list.kind != ok_error &&
      (routine == nullptr || !skip_typerefs(routine->type)->routine_supplement->has_ellipsis))
    error_in_operand(ec_va_start_requires_ellipsis_function, &list);
  scan_comma_between();
  scan_expr_at_level(&parameter, level_comma);
  bool is_parameter = parameter.kind == ok_expression && parameter.expr->kind == enk_variable &&
                      parameter.expr->variable->is_parameter;
  if (parameter.kind != ok_error && !is_parameter) error_in_operand(ec_bad_va_parmadr, &parameter);
  if (parameter.kind != ok_error) take_address_of_lvalue(&parameter);
  make_va_operation(eok_va_start, void_type(), &list, &parameter, result);
}

void scan_builtin_va_arg(an_operand *result) {
  an_operand list;
  scan_va_list(&list);
  scan_comma_between();
  a_source_position position = pos_curr_token;
  a_type *type = make_unqualified_type(scan_type_argument());
  if (is_error_type(type)) conv_to_error_operand(&list);
  if (list.kind != ok_error && is_function_type(type)) {
    expr_pos_error(ec_type_must_be_object_type, &position);
    conv_to_error_operand(&list);
  } else if (list.kind != ok_error && is_incomplete_type(type)) {
    if (expr_error_should_be_issued())
      pos_ty_error(ec_incomplete_type_not_allowed, &position, type);
    conv_to_error_operand(&list);
  }
  // Nothing narrow travels: a value of the promoted type is there.
  a_type *promoted = default_argument_promotion(type);
  make_va_operation(eok_va_arg, promoted, &list, nullptr, result);
  if (promoted == type || result->kind == ok_error) return;
  expr_pos_ty2_diagnostic(es_warning, ec_va_arg_would_have_been_promoted, &position, type,
                          promoted);
  cast_operand(type, result, false);
}

void scan_builtin_va_copy(an_operand *result) {
  an_operand to, from;
  scan_va_list(&to);
  scan_comma_between();
  scan_va_list(&from);
  make_va_operation(eok_va_copy, void_type(), &to, &from, result);
}

void scan_builtin_va_end(an_operand *result) {
  an_operand list;
  scan_va_list(&list);
  make_va_operation(eok_va_end, void_type(), &list, nullptr, result);
}

// Only an inline function that is expanded could say what it passes on.
void scan_va_arg_pack(an_operand *result) {
  expr_pos_error(ec_bad_function_for_gnu_va_arg_pack, &pos_curr_token);
  make_error_operand(result);
}

void scan_constant_p(an_operand *result) {
  an_operand operand;
  scan_unevaluated(&operand);
  bool is_string = operand.kind == ok_constant && operand.string_literal;
  do_operand_transformations(&operand);
  bool is_constant =
      is_string || (operand.kind == ok_constant && operand.constant.kind != ck_address);
  make_integer_constant_operand(is_constant, ik_int, result);
}

void scan_classify_type(an_operand *result) {
  an_operand operand;
  scan_unevaluated(&operand);
  do_operand_transformations(&operand);
  int answer = -1;
  switch (skip_typerefs(operand.type)->kind) {
    case tk_void:
      answer = 0;
      break;
    case tk_integer:
      answer = 1;
      break;
    case tk_pointer:
      answer = 5;
      break;
    case tk_float:
      answer = 8;
      break;
    case tk_complex:
    case tk_imaginary:
      answer = 9;
      break;
    case tk_struct:
    case tk_class:
      answer = 12;
      break;
    case tk_union:
      answer = 13;
      break;
    default:
      break;
  }
  make_integer_constant_operand(answer, ik_int, result);
  if (operand.kind == ok_error) make_error_operand(result);
}

void scan_choose_expr(an_operand *result) {
  an_operand condition;
  scan_expr_at_level(&condition, level_comma);
  do_operand_transformations(&condition);
  bool ok = condition.kind == ok_constant && condition.constant.kind == ck_integer;
  if (!ok && condition.kind != ok_error)
    expr_pos_error(ec_expr_not_integral_constant, &condition.start_pos);
  bool first = ok && !is_zero_constant(&condition.constant);
  an_operand other;
  scan_comma_between();
  if (first)
    scan_expr_at_level(result, level_comma);
  else
    scan_unevaluated(&other);
  scan_comma_between();
  if (!first)
    scan_expr_at_level(result, level_comma);
  else
    scan_unevaluated(&other);
  if (!ok) make_error_operand(result);
}

// ---- Comparisons that raise no exception -------------------------------------------------------

// The value of an argument of such a function; *setup collects what keeps it for a second use.
void scan_compared_value(an_operand *value, bool twice, an_expr_node **setup) {
  scan_expr_at_level(value, level_comma);
  do_operand_transformations(value);
  if (!check_arithmetic_or_enum_operand(value) || !twice || value->kind == ok_constant) return;
  an_expr_node *assignment = nullptr;
  copy_to_temporary(value, &assignment);
  *setup = *setup == nullptr ? assignment : make_comma_node(*setup, assignment);
}

// The same value once more.
an_operand second_use(const an_operand *value) {
  an_operand copy = *value;
  if (copy.kind == ok_expression) copy.expr = copy_node(value->expr);
  copy.ref_entry = nullptr;
  return copy;
}

void compare(an_expr_operator_kind op, an_operand left, an_operand right, an_operand *result) {
  a_type *type = usual_arithmetic_conversions(left.type, right.type);
  cast_operand(type, &left, true);
  cast_operand(type, &right, true);
  a_source_position position = left.start_pos;
  do_binary_operation(op, &left, &right, integer_type(ik_int), result, &position);
}

void either(an_operand *left, an_operand *right, an_operand *result) {
  do_binary_operation(eok_lor, left, right, integer_type(ik_int), result, &left->start_pos);
}

void put_setup_in_front(an_expr_node *setup, an_operand *result) {
  if (setup == nullptr || result->kind == ok_error) return;
  an_operand saved = *result;
  make_expression_operand(make_comma_node(setup, make_node_from_operand(result)), result);
  restore_operand_details(result, &saved);
  result->not_constant = result->not_integral_constant = true;
}

// __builtin_isgreater(a, b) and its kin
void scan_quiet_comparison(int builtin, an_operand *result) {
  bool twice = builtin == bi_islessgreater || builtin == bi_isunordered;
  if (twice && innermost_function_scope == nullptr) {
    expr_pos_error(ec_expr_not_constant, &pos_curr_token);
    twice = false;
  }
  an_expr_node *setup = nullptr;
  an_operand left, right;
  scan_compared_value(&left, twice, &setup);
  scan_comma_between();
  scan_compared_value(&right, twice, &setup);
  if (left.kind == ok_error || right.kind == ok_error) {
    make_error_operand(result);
    return;
  }
  an_operand first, second;
  switch (builtin) {
    case bi_isgreater:
      compare(eok_gt, left, right, result);
      break;
    case bi_isgreaterequal:
      compare(eok_ge, left, right, result);
      break;
    case bi_isless:
      compare(eok_lt, left, right, result);
      break;
    case bi_islessequal:
      compare(eok_le, left, right, result);
      break;
    case bi_islessgreater:
      compare(eok_lt, left, right, &first);
      compare(eok_gt, second_use(&left), second_use(&right), &second);
      either(&first, &second, result);
      break;
    default:  // a value that is no number differs from itself
      compare(eok_ne, left, second_use(&left), &first);
      compare(eok_ne, right, second_use(&right), &second);
      either(&first, &second, result);
      break;
  }
  put_setup_in_front(setup, result);
}

}  // namespace

bool scan_builtin_call(a_routine *routine, an_operand *function, an_operand *result) {
  void (*scan)(an_operand *) = nullptr;
  int builtin = builtin_function_number(routine);
  bool is_atomic = false;
  switch (builtin) {
    case bi_isgreater:
    case bi_isgreaterequal:
    case bi_isless:
    case bi_islessequal:
    case bi_islessgreater:
    case bi_isunordered:
      break;
    case bi_va_start:
    case bi_stdarg_start:
      scan = scan_builtin_va_start;
      break;
    case bi_va_arg:
      scan = scan_builtin_va_arg;
      break;
    case bi_va_copy:
      scan = scan_builtin_va_copy;
      break;
    case bi_va_end:
      scan = scan_builtin_va_end;
      break;
    case bi_constant_p:
      scan = scan_constant_p;
      break;
    case bi_classify_type:
      scan = scan_classify_type;
      break;
    case bi_choose_expr:
      scan = scan_choose_expr;
      break;
    case bi_va_arg_pack:
    case bi_va_arg_pack_len:
      scan = scan_va_arg_pack;
      break;
    default:
      is_atomic = is_generic_atomic_builtin(routine);
      if (!is_atomic) return false;
  }
  change_ref_kinds(function, ref_call);
  a_source_position start = function->start_pos;
  get_token();
  add_stop_token(tok_rparen);
  add_stop_token(tok_comma);
  if (scan != nullptr)
    scan(result);
  else if (is_atomic)
    scan_generic_atomic(routine, &start, result);
  else
    scan_quiet_comparison(builtin, result);
  remove_stop_token(tok_comma);
  a_source_position end = end_pos_curr_token;
  if (!required_token(tok_rparen, ec_exp_rparen)) make_error_operand(result);
  remove_stop_token(tok_rparen);
  result->start_pos = start;
  result->end_pos = end;
  return true;
}
