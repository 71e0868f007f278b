// Prefix operators.
#include "driver/switches.h"
#include "il/il.h"
#include "parser/declarator.h"
#include "parser/disambig.h"
#include "parser/expr_internal.h"
#include "semantics/folding.h"
#include "semantics/symbol_ref.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// ++ and --, in front and behind: the operand is a modifiable scalar.
void make_incr_decr(an_expr_operator_kind op, an_operand *operand, an_operand *result,
                    const a_source_position *start) {
  a_source_position end = operand->end_pos;
  do_operand_transformations(operand, dot_keep_lvalue | dot_keep_array | dot_keep_function);
  if (in_constant_expression() && operand->kind != ok_error && expr_stack->value_needed)
    error_in_operand(ec_bad_constant_operator, operand);
  bool ok = check_modifiable_lvalue_operand(operand);
  if (ok && is_pointer_type(operand->type))
    ok = check_object_pointer_operand(operand);
  else if (ok)
    ok = check_arithmetic_or_enum_operand(operand);
  if (!ok) {
    make_error_operand(result);
  } else {
    modifying_lvalue(operand, true);
    an_expr_node *node =
        make_operator_node(op, make_unqualified_type(operand->type), operand->expr);
    make_expression_operand(node, result);
    result->not_constant = result->not_integral_constant = true;
  }
  result->start_pos = *start;
  result->end_pos = end;
}

void make_size_constant(std::uint64_t value, an_operand *result) {
  a_constant constant;
  clear_constant(&constant, ck_integer);
  set_unsigned_integer_constant(&constant, value, targ_size_t_int_kind);
  make_constant_operand(&constant, result);
}

// Size of an object of a type in bytes; false after a message.
bool size_of(a_type *type, const a_source_position *position, std::uint64_t *size) {
  if (is_error_type(type)) return false;
  if (is_function_type(type) || is_void_type(type)) {
    if (gnu_mode && !strict_ansi_mode) {
      *size = 1;
      return true;
    }
    expr_pos_error(is_void_type(type) ? ec_incomplete_type_not_allowed : ec_sizeof_function,
                   position);
    return false;
  }
  if (is_incomplete_type(type)) {
    if (expr_error_should_be_issued()) pos_ty_error(ec_incomplete_type_not_allowed, position, type);
    return false;
  }
  *size = skip_typerefs(type)->size;
  return true;
}

}  // namespace

void scan_prefix_incr_decr(an_operand *result) {
  a_source_position start = pos_curr_token;
  an_expr_operator_kind op = curr_token == tok_plus_plus ? eok_pre_incr : eok_pre_decr;
  get_token();
  an_operand operand;
  scan_expr_at_level(&operand, level_unary);
  make_incr_decr(op, &operand, result, &start);
}

void scan_postfix_incr_decr(an_operand *left, an_operand *result) {
  a_source_position start = left->start_pos;
  an_expr_operator_kind op = curr_token == tok_plus_plus ? eok_post_incr : eok_post_decr;
  left->end_pos = end_pos_curr_token;
  get_token();
  make_incr_decr(op, left, result, &start);
}

// The variable that the lvalue is, or is a member of; null for others.
static a_variable *variable_of_lvalue(const an_expr_node *node) {
  while (node->kind == enk_operation && node->op == eok_dot_field)
    node = node->operands;
  return node->kind == enk_variable ? node->variable : nullptr;
}

void make_address_of(an_operand *operand, an_operand *result, const a_source_position *start) {
  do_operand_transformations(operand, dot_keep_array | dot_keep_function | dot_keep_lvalue);
  if (operand->kind == ok_error) {
    make_error_operand(result);
    result->start_pos = *start;
    return;
  }
  if (operand->value_category != vc_glvalue && operand->value_category != vc_function) {
    error_in_operand(ec_expr_not_an_lvalue_or_function_designator, operand);
    make_error_operand(result);
    return;
  }
  if (bit_field_of_operand(operand) != nullptr) {
    error_in_operand(ec_address_of_bit_field, operand);
    make_error_operand(result);
    return;
  }
  a_type *pointer = make_pointer_type(operand->type);
  a_constant address;
  if (operand->kind == ok_constant) {
    clear_constant(&address, ck_error);
    set_constant_address_constant(&address, alloc_unshared_constant(&operand->constant), pointer);
    make_constant_operand(&address, result);
  } else {
    an_expr_node *node = operand->expr;
    a_variable *variable = variable_of_lvalue(node);
    if (variable != nullptr && variable->storage_class == sc_register && !in_cplusplus()) {
      expr_pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning,
                          ec_address_of_register_variable, &operand->start_pos);
      variable->storage_class = sc_auto;
    }
    take_address_of_lvalue(operand);
    if (fold_address_of_lvalue(node, pointer, &address)) {
      if (node->kind == enk_routine) node->routine->address_taken = true;
      make_constant_operand(&address, result);
    } else {
      an_expr_node *taken = add_address_of_to_node(node);
      make_expression_operand(taken, result);
      result->type = pointer;
    }
  }
  result->start_pos = *start;
  result->end_pos = operand->end_pos;
  result->not_integral_constant = true;
}

void scan_address_of(an_operand *result) {
  a_source_position start = pos_curr_token;
  get_token();
  an_operand operand;
  scan_expr_at_level(&operand, level_cast);
  make_address_of(&operand, result, &start);
}

void make_indirection(an_operand *pointer, an_operand *result, const a_source_position *start) {
  do_operand_transformations(pointer);
  a_source_position end = pointer->end_pos;
  if (pointer->kind == ok_error) {
    make_error_operand(result);
  } else if (!is_pointer_type(pointer->type)) {
    error_in_operand(ec_bad_indirection_operand, pointer);
    make_error_operand(result);
  } else {
    a_type *target = type_pointed_to(pointer->type);
    if (pointer->kind == ok_constant && pointer->constant.kind == ck_address &&
        pointer->constant.address_kind == abk_routine && pointer->constant.address_offset == 0) {
      make_function_designator_operand(pointer->constant.address_routine, result);
    } else {
      an_expr_node *node =
          make_lvalue_operator_node(eok_indirect, target, make_node_from_operand(pointer));
      make_glvalue_expression_operand(node, result);
    }
    result->not_integral_constant = true;
  }
  result->start_pos = *start;
  result->end_pos = end;
}

void scan_indirection(an_operand *result) {
  a_source_position start = pos_curr_token;
  get_token();
  an_operand operand;
  scan_expr_at_level(&operand, level_cast);
  make_indirection(&operand, result, &start);
}

void scan_unary_arith(an_operand *result) {
  a_source_position start = pos_curr_token;
  a_token_kind token = curr_token;
  get_token();
  an_operand operand;
  scan_expr_at_level(&operand, level_cast);
  do_operand_transformations(&operand);
  bool ok = token == tok_not     ? check_scalar_operand(&operand)
            : token == tok_compl ? check_integral_or_enum_operand(&operand)
                                 : check_arithmetic_or_enum_operand(&operand);
  if (!ok) {
    make_error_operand(result);
    result->start_pos = start;
    return;
  }
  if (token == tok_not) {
    do_unary_operation(eok_not, &operand, integer_type(ik_int), result, &start);
    return;
  }
  promote_operand(&operand);
  if (token == tok_plus) {
    *result = operand;
    result->start_pos = start;
    result->string_literal = result->is_plain_id = false;
    return;
  }
  do_unary_operation(token == tok_minus ? eok_negate : eok_complement, &operand, operand.type,
                     result, &start);
}

// Behind "sizeof (" or "typeof (", or in front of a unary expression.
a_type *scan_type_or_unevaluated_operand(an_operand *operand) {
  if (is_type_start(dst_type_id_only)) {
    add_stop_token(tok_rparen);
    a_type *type = scan_type_for_sizeof();
    remove_stop_token(tok_rparen);
    return type;
  }
  scan_expr_at_level(operand, level_any);
  return nullptr;
}

// The operand of sizeof and its kin:
//     unary-expression | ( type-name )
// "(" may begin a parenthesized expression that goes on behind ")", or a compound literal. Null
// with *operand filled for an expression.
static a_type *scan_size_operand(an_operand *operand) {
  if (curr_token == tok_lparen) {
    scan_parenthesis_for_size(operand);
    if (operand->kind == ok_type) return operand->type;
    scan_operators(operand, level_unary);
    return nullptr;
  }
  scan_expr_at_level(operand, level_unary);
  return nullptr;
}

void scan_sizeof(an_operand *result) {
  a_source_position start = pos_curr_token;
  get_token();
  an_expr_stack_entry entry;
  push_expr_stack(ek_unevaluated, &entry);
  an_operand operand;
  a_source_position position = pos_curr_token;
  a_type *type = scan_size_operand(&operand);
  if (type == nullptr) {
    do_operand_transformations(&operand, dot_keep_array | dot_keep_function | dot_keep_lvalue);
    type = operand.type;
    if (bit_field_of_operand(&operand) != nullptr && operand.value_category == vc_glvalue) {
      expr_pos_error(ec_sizeof_bit_field, &operand.start_pos);
      type = error_type();
    }
  }
  pop_expr_stack();
  std::uint64_t size = 0;
  if (size_of(type, &position, &size))
    make_size_constant(size, result);
  else
    make_error_operand(result);
  result->start_pos = start;
}

void scan_alignof(an_operand *result) {
  a_source_position start = pos_curr_token;
  bool is_standard = curr_token == tok_alignof;
  get_token();
  an_expr_stack_entry entry;
  push_expr_stack(ek_unevaluated, &entry);
  an_operand operand;
  a_source_position position = pos_curr_token;
  a_type *type = scan_size_operand(&operand);
  std::uint64_t alignment = 0;
  if (type == nullptr) {
    if (is_standard && strict_ansi_mode && operand.kind != ok_error)
      expr_pos_diagnostic(strict_ansi_error_severity, ec_std_alignof_with_expr_arg, &position);
    do_operand_transformations(&operand, dot_keep_array | dot_keep_function | dot_keep_lvalue);
    type = operand.type;
    if (operand.kind == ok_expression && operand.expr->kind == enk_variable)
      alignment = alignment_of_variable(operand.expr->variable);
  }
  pop_expr_stack();
  std::uint64_t size = 0;
  if (is_array_type(type) && is_incomplete_type(type)) type = array_element_type(type);
  if (!size_of(type, &position, &size)) {
    make_error_operand(result);
  } else {
    if (alignment == 0)
      alignment = is_function_type(type) || is_void_type(type) ? 1 : f_alignment_of_type(type);
    make_size_constant(alignment, result);
  }
  result->start_pos = start;
}

void scan_real_imag(an_operand *result) {
  a_source_position start = pos_curr_token;
  bool is_real = curr_token == tok_real;
  get_token();
  scan_expr_at_level(result, level_cast);
  do_operand_transformations(result);
  if (result->kind == ok_error) return;
  if (is_nonreal_floating_type(result->type)) {
    expr_pos_st_error(ec_not_supported, &start, "complex arithmetic is");
    conv_to_error_operand(result);
  } else if (check_arithmetic_or_enum_operand(result) && !is_real) {
    cast_operand(void_type(), result, false);
    make_integer_constant_operand(0, ik_int, result);
  }
}
