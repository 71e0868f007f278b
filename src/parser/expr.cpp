// The scanner's loop, and the entry points for full expressions.
#include "parser/expr.h"

#include <initializer_list>

#include "driver/switches.h"
#include "il/il.h"
#include "parser/depth_guard.h"
#include "parser/expr_internal.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/scope_stk.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_util.h"

namespace {

// The level of an operator token behind an operand; 0: it is none. One load for each token.
constexpr struct a_level_table {
  std::uint8_t level[tok_last] = {};
  constexpr a_level_table() {
    for (a_token_kind t :
         {tok_lbracket, tok_lparen, tok_period, tok_arrow, tok_plus_plus, tok_minus_minus})
      level[t] = level_postfix;
    for (a_token_kind t : {tok_star, tok_divide, tok_remainder})
      level[t] = level_multiplicative;
    level[tok_plus] = level[tok_minus] = level_additive;
    level[tok_shift_left] = level[tok_shift_right] = level_shift;
    for (a_token_kind t : {tok_lt, tok_gt, tok_le, tok_ge})
      level[t] = level_relational;
    level[tok_eq] = level[tok_ne] = level_equality;
    level[tok_ampersand] = level_and;
    level[tok_excl_or] = level_excl_or;
    level[tok_or] = level_or;
    level[tok_and_and] = level_and_and;
    level[tok_or_or] = level_or_or;
    level[tok_quest_mark] = level_conditional;
    for (a_token_kind t :
         {tok_assign, tok_times_assign, tok_divide_assign, tok_remainder_assign, tok_add_assign,
          tok_subtract_assign, tok_shift_left_assign, tok_shift_right_assign, tok_and_assign,
          tok_excl_or_assign, tok_or_assign})
      level[t] = level_assignment;
    level[tok_comma] = level_comma;
  }
} operator_levels;

bool is_right_associative(int level) {
  return level == level_conditional || level == level_assignment;
}

void scan_operator(an_operand *left, an_operand *result, int level) {
  switch (curr_token) {
    case tok_lbracket:
      scan_subscript(left, result);
      return;
    case tok_lparen:
      scan_function_call(left, result);
      return;
    case tok_period:
    case tok_arrow:
      scan_field_selection(left, result);
      return;
    case tok_plus_plus:
    case tok_minus_minus:
      scan_postfix_incr_decr(left, result);
      return;
    case tok_quest_mark:
      scan_conditional(left, result);
      return;
    case tok_comma:
      scan_comma(left, result);
      return;
    default:
      if (level == level_assignment)
        scan_assignment(left, result);
      else
        scan_binary_operator(left, result, level);
      return;
  }
}

// The context of a full expression: of its own, unless it stands inside another one of this scope.
class a_full_expression {
 public:
  explicit a_full_expression(an_expression_kind kind) : saved(expr_stack) {
    if (expr_stack != nullptr && expr_stack->scope_depth_at_push != depth_scope_stack)
      expr_stack = nullptr;
    push_expr_stack(kind, &entry);
  }
  ~a_full_expression() {
    pop_expr_stack();
    expr_stack = saved;
  }

 private:
  an_expr_stack_entry *saved;
  an_expr_stack_entry entry;
};

bool has_effect(const an_expr_node *node) {
  if (node->kind == enk_constant || node->kind == enk_variable || node->kind == enk_routine)
    return false;
  if (node->kind != enk_operation) return true;
  switch (node->op) {
    case eok_post_incr:
    case eok_post_decr:
    case eok_pre_incr:
    case eok_pre_decr:
    case eok_assign:
    case eok_struct_assign:
    case eok_call:
    case eok_va_arg:
    case eok_va_start:
    case eok_va_end:
    case eok_va_copy:
      return true;
    case eok_comma:
    case eok_land:
    case eok_lor:
      return has_effect(node->operands->next);
    case eok_conditional:
      return has_effect(node->operands->next) || has_effect(node->operands->next->next);
    case eok_cast:
      return is_void_type(node->type) || has_effect(node->operands);
    case eok_parens:
    case eok_extension:
      return has_effect(node->operands);
    default:
      return is_compound_assignment_operator(node->op) || is_volatile_type(node->type) ||
             (node->orig_lvalue_type != nullptr && is_volatile_type(node->orig_lvalue_type));
  }
}

bool operand_has_effect(const an_operand *operand) {
  if (operand->kind == ok_error) return true;
  if (operand->kind != ok_expression) return false;
  if (is_volatile_type(operand->type) || is_void_type(operand->type)) return true;
  return has_effect(operand->expr);
}

// An operand that must be an integral constant expression.
void extract_integral_constant(an_operand *operand, a_constant *constant) {
  do_operand_transformations(operand);
  if (operand->kind == ok_error) {
    clear_constant(constant, ck_error);
    set_error_constant(constant);
    return;
  }
  bool is_integer_type = is_integral_or_enum_type(operand->type);
  bool is_value = operand->kind == ok_constant && operand->constant.kind == ck_integer;
  if (is_integer_type && is_value && (!operand->not_integral_constant || gnu_mode)) {
    *constant = operand->constant;
    return;
  }
  expr_pos_error(
      is_integer_type && !is_value ? ec_expr_not_constant : ec_expr_not_integral_constant,
      &operand->start_pos);
  clear_constant(constant, ck_error);
  set_error_constant(constant);
}

}  // namespace

bool is_expr_start_token() {
  switch (curr_token) {
    case tok_rparen:
    case tok_rbracket:
    case tok_rbrace:
    case tok_comma:
    case tok_semicolon:
    case tok_colon:
    case tok_end_of_source:
      return false;
    default:
      return true;
  }
}

void scan_operators(an_operand *operand, int level) {
  for (;;) {
    int operator_level = operator_levels.level[curr_token];
    if (operator_level == 0 || operator_level < level) return;
    if (operator_level == level && level != level_any && !is_right_associative(level)) return;
    an_operand left = *operand;
    scan_operator(&left, operand, operator_level);
  }
}

// assignment-expression and the levels below and above it, by precedence climbing.
// C11 6.5.3 to 6.5.17
void scan_expr_at_level(an_operand *result, int level) {
  a_depth_guard guard(expr_depth, max_expr_depth);
  scan_primary(result);
  scan_operators(result, level);
}

// Only a volatile object is read although nobody wants its value.
static void drop_operand_value(an_operand *operand) {
  if (operand->value_category == vc_glvalue && is_volatile_type(operand->type) &&
      !is_array_type(operand->type))
    do_operand_transformations(operand);
  else if (operand->value_category != vc_prvalue)
    do_operand_transformations(operand, dot_keep_lvalue | dot_keep_array | dot_keep_function);
}

void discard_operand_value(an_operand *operand) {
  if (!operand_has_effect(operand)) expr_pos_warning(ec_expr_has_no_effect, &operand->start_pos);
  drop_operand_value(operand);
}

// ---- Full expressions --------------------------------------------------------------------------

// ({ ...; value; })   Null statements behind the value do not count, nor does a forgotten ";".
static bool at_end_of_statement_expression() {
  if (curr_token == tok_rbrace) return true;
  if (curr_token != tok_semicolon) return false;
  while (next_token() == tok_semicolon)
    get_token();
  return next_token() == tok_rbrace;
}

an_expr_node *scan_void_expression(bool *is_result, a_dynamic_init **init) {
  a_full_expression context(ek_normal);
  an_operand operand;
  scan_expr_at_level(&operand, level_any);
  *init = nullptr;
  bool is_tail = is_result != nullptr && at_end_of_statement_expression();
  if (is_tail && !is_void_type(operand.type)) {
    do_operand_transformations(&operand);
    an_expr_node *node = make_node_from_operand(&operand);
    *is_result = true;
    *init = make_expression_dynamic_init(node);
    return node;
  }
  discard_operand_value(&operand);
  an_expr_node *node = make_node_from_operand(&operand);
  node->result_not_used = true;
  replace_math_funcs(node, node->type);
  return node;
}

an_expr_node *scan_boolean_controlling_expression() {
  a_full_expression context(ek_normal);
  an_operand operand;
  scan_expr_at_level(&operand, level_any);
  check_boolean_controlling_expr(&operand);
  an_expr_node *node = make_node_from_operand(&operand);
  replace_math_funcs(node, node->type);
  return node;
}

an_expr_node *scan_integer_expression(a_type **orig_type) {
  a_full_expression context(ek_normal);
  an_operand operand;
  scan_expr_at_level(&operand, level_any);
  do_operand_transformations(&operand);
  *orig_type = operand.type;
  if (check_integral_or_enum_operand(&operand))
    promote_operand(&operand);
  else
    *orig_type = integer_type(ik_int);
  an_expr_node *node = make_node_from_operand(&operand);
  if (node->kind == enk_error) node->type = integer_type(ik_int);
  return node;
}

an_expr_node *scan_typed_expression(a_type *type, an_error_code code) {
  a_full_expression context(ek_normal);
  an_operand operand;
  scan_expr_at_level(&operand, level_any);
  prep_assignment_operand(&operand, type, code);
  an_expr_node *node = make_node_from_operand(&operand);
  replace_math_funcs(node, node->type);
  return node;
}

an_expr_node *scan_return_expression(a_type *type, a_dynamic_init **init) {
  *init = nullptr;
  return scan_typed_expression(type, ec_bad_return_value_type);
}

an_expr_node *scan_unwanted_return_expression() {
  a_full_expression context(ek_normal);
  an_operand operand;
  scan_expr_at_level(&operand, level_any);
  drop_operand_value(&operand);
  an_expr_node *node = make_node_from_operand(&operand);
  node->result_not_used = true;
  return node;
}

// ---- Constant expressions ----------------------------------------------------------------------

void scan_integral_constant_expression(a_constant *constant) {
  a_full_expression context(ek_integral_constant);
  an_operand operand;
  scan_expr_at_level(&operand, level_assignment);
  extract_integral_constant(&operand, constant);
}

void scan_bool_constant_expression(a_constant *constant) {
  scan_integral_constant_expression(constant);
}

void scan_constant_dimension_expression(a_constant *constant) {
  scan_integral_constant_expression(constant);
}

void scan_nonconstant_dimension_expression(int flags, an_expr_node **node, a_constant *constant) {
  a_full_expression context(ek_normal);
  *node = nullptr;
  clear_constant(constant, ck_error);
  an_operand operand;
  scan_expr_at_level(&operand, level_comma);
  do_operand_transformations(&operand);
  if (!check_integral_or_enum_operand(&operand)) {
    set_error_constant(constant);
    *node = error_node();
    return;
  }
  if (operand.kind == ok_constant && operand.constant.kind == ck_integer) {
    *constant = operand.constant;
    return;
  }
  *node = make_node_from_operand(&operand);
  if ((flags & ndf_value_is_forgotten) != 0 && has_effect(*node))
    expr_pos_st_error(ec_not_supported, &operand.start_pos,
                      "an array bound of a parameter that has an effect is");
}

a_constant *scan_case_label_constant(a_type *, a_type *promoted_type) {
  a_full_expression context(ek_integral_constant);
  an_operand operand;
  scan_expr_at_level(&operand, level_assignment);
  a_constant constant;
  extract_integral_constant(&operand, &constant);
  if (constant.kind != ck_integer) return nullptr;
  make_constant_operand(&constant, &operand);
  cast_operand(promoted_type, &operand, true);
  return operand.kind == ok_constant ? alloc_shareable_constant(&operand.constant) : nullptr;
}

void scan_expr_for_attribute(a_constant *constant) {
  a_full_expression context(ek_unevaluated);
  an_operand operand;
  scan_expr_at_level(&operand, level_comma);
  do_operand_transformations(&operand);
  extract_constant_from_operand(&operand, constant);
}

// ---- Initializers ------------------------------------------------------------------------------

void begin_initializer_expression(an_expr_stack_entry *entry, bool constant_required) {
  push_expr_stack(constant_required ? ek_constant : ek_normal, entry);
  if (!constant_required) entry->must_be_constant = false;
}

void scan_initializer_operand(an_operand *operand) {
  scan_expr_at_level(operand, level_comma);
}

bool finish_initializer_expression(an_expr_stack_entry *, an_operand *operand, a_type *type,
                                   bool constant_required, a_constant *constant,
                                   an_expr_node **node) {
  *node = nullptr;
  clear_constant(constant, ck_error);
  prep_assignment_operand(operand, type, ec_bad_initializer_type);
  bool ok = operand->kind != ok_error;
  if (ok && operand->kind == ok_constant && operand->value_category == vc_prvalue) {
    *constant = operand->constant;
    constant->type = make_unqualified_type(type);
  } else if (ok && constant_required) {
    expr_pos_error(ec_expr_not_constant, &operand->start_pos);
    ok = false;
  } else if (ok) {
    *node = make_node_from_operand(operand);
  }
  pop_expr_stack();
  return ok;
}

void abandon_initializer_expression() {
  pop_expr_stack();
}

a_type *scan_typeof() {
  a_full_expression context(ek_unevaluated);
  an_operand operand;
  add_stop_token(tok_rparen);
  if (!required_token(tok_lparen, ec_exp_lparen)) {
    remove_stop_token(tok_rparen);
    return error_type();
  }
  a_type *type = scan_type_or_unevaluated_operand(&operand);
  if (type == nullptr) {
    do_operand_transformations(&operand, dot_keep_array | dot_keep_function | dot_keep_lvalue);
    type = operand.type;
    if (bit_field_of_operand(&operand) != nullptr && operand.value_category == vc_glvalue) {
      expr_pos_error(ec_sizeof_bit_field, &operand.start_pos);
      type = error_type();
    }
  }
  required_token(tok_rparen, ec_exp_rparen);
  remove_stop_token(tok_rparen);
  return type;
}
