// Operands: their making, their references, their way into nodes and constants.
#include "parser/exprutil.h"

#include <cstring>

#include "driver/switches.h"
#include "il/il.h"
#include "parser/statements.h"
#include "semantics/folding.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/lexical.h"

an_expr_stack_entry *expr_stack = nullptr;
int expr_depth = 0;
int generic_depth = 0;

namespace {

// References of the expression in hand, in order, and the records that are free.
a_ref_entry *curr_expr_ref_entries;
a_ref_entry *last_expr_ref_entry;
a_ref_entry *avail_ref_entries;

void clear_operand(an_operand_kind kind, an_operand *operand) {
  // The constant at the end is written by the kinds that have one.
  auto head = reinterpret_cast<char *>(&operand->expr) - reinterpret_cast<char *>(operand);
  std::memset(static_cast<void *>(operand), 0,
              static_cast<std::size_t>(head) + sizeof(operand->expr));
  operand->kind = kind;
  operand->start_pos = pos_curr_token;
  operand->end_pos = end_pos_curr_token;
}

// int x; return x;  warns once a variable. Only where the text runs in its order, and only of what
// has one value: a part of a record or an array may have been set through the whole. A program with
// errors may have lost what sets it.
void check_use_before_set(const a_ref_entry *entry) {
  const a_symbol *symbol = entry->symbol;
  if (symbol->kind != syk_variable || symbol->value_set || symbol->is_error_symbol) return;
  a_variable *variable = symbol->variant.variable;
  if (variable == nullptr ||
      (variable->storage_class != sc_auto && variable->storage_class != sc_register) ||
      variable->is_parameter || variable->used_before_set_reported ||
      variable->is_compiler_generated || variable->asm_register_given ||
      !is_scalar_type(variable->type) || is_volatile_type(variable->type) ||
      !runs_straight_on_from(symbol->decl_position)) {
    return;
  }
  variable->used_before_set_reported = true;
  pos_sy_warning(ec_used_before_set, &entry->position, entry->symbol);
}

void record_refs() {
  // The uses of an inner context are recorded before those in front of it in the outer one.
  const bool in_order = expr_stack->enclosing == nullptr && expr_stack->evaluated &&
                        !expr_stack->suppress_errors && !suppress_used_before_set_warnings &&
                        total_errors == 0;
  a_ref_entry *entry = curr_expr_ref_entries;
  while (entry != nullptr) {
    a_ref_entry *next = entry->next_in_expr;
    bool evaluated = expr_stack->evaluated;
    if (!entry->is_error) {
      unsigned kinds = entry->kinds;
      if (in_order && (kinds & ref_read) != 0 && !entry->value_is_dropped)
        check_use_before_set(entry);
      if (kinds == 0) kinds = ref_read;
      if (!evaluated) kinds = ref_unevaluated;
      record_symbol_reference(kinds, entry->symbol, &entry->position, evaluated);
    }
    entry->next_in_expr = avail_ref_entries;
    avail_ref_entries = entry;
    entry = next;
  }
}

}  // namespace

// ---- Contexts ----------------------------------------------------------------------------------

void push_expr_stack(an_expression_kind kind, an_expr_stack_entry *entry) {
  std::memset(static_cast<void *>(entry), 0, sizeof *entry);
  entry->enclosing = expr_stack;
  entry->expr_kind = kind;
  entry->value_needed = entry->evaluated = true;
  if (expr_stack != nullptr) {
    entry->value_needed = expr_stack->value_needed;
    entry->evaluated = expr_stack->evaluated;
    entry->suppress_errors = expr_stack->suppress_errors;
  }
  if (kind < ek_normal) entry->must_be_constant = true;
  if (kind == ek_unevaluated) entry->value_needed = entry->evaluated = false;
  entry->scope_depth_at_push = depth_scope_stack;
  entry->saved_ref_entries = curr_expr_ref_entries;
  entry->saved_last_ref_entry = last_expr_ref_entry;
  curr_expr_ref_entries = last_expr_ref_entry = nullptr;
  expr_stack = entry;
}

void pop_expr_stack() {
  an_expr_stack_entry *entry = expr_stack;
  record_refs();
  curr_expr_ref_entries = entry->saved_ref_entries;
  last_expr_ref_entry = entry->saved_last_ref_entry;
  expr_stack = entry->enclosing;
  if (entry->error_suppressed && expr_stack != nullptr && expr_stack->suppress_errors)
    expr_stack->error_suppressed = true;
}

// ---- Messages ----------------------------------------------------------------------------------

bool expr_error_should_be_issued() {
  if (expr_stack == nullptr || !expr_stack->suppress_errors) return true;
  expr_stack->error_suppressed = true;
  return false;
}

bool expr_diagnostic_should_be_issued(an_error_severity severity, an_error_code code,
                                      const a_source_position *position) {
  if (expr_stack == nullptr || !expr_stack->suppress_errors) return true;
  if (is_effective_sfinae_error(code, severity, position)) expr_stack->error_suppressed = true;
  return false;
}

void expr_pos_error(an_error_code code, const a_source_position *position) {
  if (expr_error_should_be_issued()) pos_error(code, position);
}

void expr_pos_warning(an_error_code code, const a_source_position *position) {
  expr_pos_diagnostic(es_warning, code, position);
}

void expr_pos_diagnostic(an_error_severity severity, an_error_code code,
                         const a_source_position *position) {
  if (expr_diagnostic_should_be_issued(severity, code, position))
    pos_diagnostic(severity, code, position);
}

void expr_pos_ty2_diagnostic(an_error_severity severity, an_error_code code,
                             const a_source_position *position, a_type *type1, a_type *type2) {
  if (expr_diagnostic_should_be_issued(severity, code, position))
    pos_ty2_diagnostic(severity, code, position, type1, type2);
}

void expr_pos_st_error(an_error_code code, const a_source_position *position, const char *text) {
  if (expr_error_should_be_issued()) pos_st_error(code, position, text);
}

void expr_syntax_error(an_error_code code) {
  error_position = pos_curr_token;
  if (expr_error_should_be_issued()) syntax_error(code);
}

// ---- Making operands ---------------------------------------------------------------------------

void make_error_operand(an_operand *operand) {
  clear_operand(ok_error, operand);
  operand->type = error_type();
}

void conv_to_error_operand(an_operand *operand) {
  a_source_position start = operand->start_pos, end = operand->end_pos;
  change_operand_refs_to_error(operand);
  make_error_operand(operand);
  operand->start_pos = start;
  operand->end_pos = end;
}

void make_constant_operand(const a_constant *constant, an_operand *operand) {
  if (constant->kind == ck_error) {
    make_error_operand(operand);
    return;
  }
  a_constant copy = *constant;  // the constant may lie in the operand itself
  clear_operand(ok_constant, operand);
  operand->constant = copy;
  operand->type = copy.type;
  operand->value_category = vc_prvalue;
}

void make_integer_constant_operand(std::int64_t value, an_integer_kind kind, an_operand *operand) {
  a_constant constant;
  clear_constant(&constant, ck_integer);
  set_integer_constant(&constant, value, kind);
  make_constant_operand(&constant, operand);
}

void make_string_constant_operand(const a_constant *string, an_operand *operand) {
  make_constant_operand(string, operand);
  operand->value_category = vc_glvalue;
  operand->string_literal = true;
}

void make_expression_operand(an_expr_node *node, an_operand *operand) {
  clear_operand(ok_expression, operand);
  operand->expr = node;
  operand->type = node->type;
  operand->value_category = vc_prvalue;
  if (node->kind == enk_error) conv_to_error_operand(operand);
}

void make_glvalue_expression_operand(an_expr_node *node, an_operand *operand) {
  make_expression_operand(node, operand);
  if (operand->kind == ok_error) return;
  node->is_lvalue = true;
  operand->value_category = is_function_type(node->type) ? vc_function : vc_glvalue;
}

void make_lvalue_variable_operand(a_variable *variable, an_operand *operand) {
  make_glvalue_expression_operand(var_lvalue_expr(variable), operand);
}

void make_function_designator_operand(a_routine *routine, an_operand *operand) {
  make_glvalue_expression_operand(function_lvalue_expr(routine), operand);
  operand->value_category = vc_function;
}

void make_undefined_symbol_operand(a_symbol_locator *locator, an_operand *operand) {
  clear_operand(ok_undefined_symbol, operand);
  operand->type = unknown_type();
  operand->symbol = locator->symbol;
}

void restore_operand_details(an_operand *operand, const an_operand *saved) {
  operand->start_pos = saved->start_pos;
  operand->end_pos = saved->end_pos;
  operand->not_integral_constant |= saved->not_integral_constant;
  operand->not_constant |= saved->not_constant;
  operand->parenthesized = saved->parenthesized;
  if (operand->kind == ok_expression) {
    operand->expr->position = saved->start_pos;
    operand->expr->end_position = saved->end_pos;
  }
}

// ---- References --------------------------------------------------------------------------------

a_ref_entry *ref_entry(a_symbol *symbol, const a_source_position *position) {
  a_ref_entry *entry = avail_ref_entries;
  if (entry != nullptr)
    avail_ref_entries = entry->next_in_expr;
  else
    entry = static_cast<a_ref_entry *>(alloc_in_region(permanent_region, sizeof(a_ref_entry)));
  *entry = {nullptr, symbol, *position, 0, false, false, nullptr};
  (last_expr_ref_entry != nullptr ? last_expr_ref_entry->next_in_expr : curr_expr_ref_entries) =
      entry;
  last_expr_ref_entry = entry;
  return entry;
}

void change_ref_kinds(an_operand *operand, unsigned kinds) {
  for (a_ref_entry *entry = operand->ref_entry; entry != nullptr; entry = entry->object)
    entry->kinds |= kinds;
}

void change_operand_refs_to_error(an_operand *operand) {
  // The use still counts as one, so that the mistake is not followed by remarks about the name.
  change_ref_kinds(operand, ref_read);
}

// The variable of which the node is the whole or a part, or null.
static a_variable *variable_of_lvalue(an_expr_node *node) {
  while (node->kind == enk_operation &&
         (node->op == eok_dot_field || node->op == eok_lvalue_cast ||
          node->op == eok_array_to_pointer || node->op == eok_parens))
    node = node->operands;
  return node->kind == enk_variable ? node->variable : nullptr;
}

void modifying_lvalue(an_operand *operand, bool also_read) {
  change_ref_kinds(operand, also_read ? ref_modify | ref_read : ref_modify);
  if (operand->kind != ok_expression) return;
  a_variable *variable = variable_of_lvalue(operand->expr);
  if (variable != nullptr) variable->modified_after_init = true;
}

void take_address_of_lvalue(an_operand *operand) {
  change_ref_kinds(operand, ref_address);
  if (operand->kind != ok_expression) return;
  a_variable *variable = variable_of_lvalue(operand->expr);
  if (variable != nullptr) variable->address_taken = true;
}

// ---- Leaving operand form ----------------------------------------------------------------------

an_expr_node *make_node_from_operand(an_operand *operand) {
  an_expr_node *node;
  switch (operand->kind) {
    case ok_expression:
      node = operand->expr;
      break;
    case ok_constant:
      node = alloc_node_for_constant(&operand->constant);
      node->type = operand->type;
      node->is_lvalue = operand->value_category == vc_glvalue;
      break;
    default:
      node = error_node();
      break;
  }
  node->position = operand->start_pos;
  node->end_position = operand->end_pos;
  return node;
}

bool extract_constant_from_operand(an_operand *operand, a_constant *constant) {
  if (operand->kind == ok_constant && operand->value_category == vc_prvalue) {
    *constant = operand->constant;
    return true;
  }
  if (operand->kind != ok_error) expr_pos_error(ec_expr_not_constant, &operand->start_pos);
  clear_constant(constant, ck_error);
  set_error_constant(constant);
  return false;
}

a_field *bit_field_of_operand(const an_operand *operand) {
  if (operand->kind != ok_expression) return nullptr;
  const an_expr_node *node = operand->expr;
  if (node->kind != enk_operation || (node->op != eok_dot_field && node->op != eok_arrow_field))
    return nullptr;
  a_field *field = node->operands->next->field;
  return field->is_bit_field ? field : nullptr;
}

// ---- Standard conversions ----------------------------------------------------------------------

// Walks to the object that an lvalue names; the way adds a number of bytes that must be known.
static bool address_of_lvalue(an_expr_node *lvalue, a_constant *result) {
  switch (lvalue->kind) {
    case enk_variable: {
      a_variable *variable = lvalue->variable;
      if (variable->storage_class >= sc_auto || variable->is_thread_local) return false;
      set_variable_address_constant(result, variable, make_pointer_type(lvalue->type));
      return true;
    }
    case enk_constant:
      if (lvalue->constant->kind != ck_string) return false;
      set_constant_address_constant(result, lvalue->constant, make_pointer_type(lvalue->type));
      return true;
    case enk_routine:
      set_routine_address_constant(result, lvalue->routine, make_pointer_type(lvalue->type));
      return true;
    case enk_operation:
      break;
    default:
      return false;
  }
  an_expr_node *operand = lvalue->operands;
  switch (lvalue->op) {
    case eok_indirect:
      if (operand->kind != enk_constant) return false;
      *result = *operand->constant;
      return true;
    case eok_dot_field:
    case eok_arrow_field: {
      a_constant object;
      clear_constant(&object, ck_error);
      if (lvalue->op == eok_dot_field) {
        if (!address_of_lvalue(operand, &object)) return false;
      } else {
        if (operand->kind != enk_constant) return false;
        object = *operand->constant;
      }
      a_field *field = operand->next->field;
      if (field->is_bit_field) return false;
      return fold_field_selection(&object, field, make_pointer_type(lvalue->type), result);
    }
    default:
      return false;
  }
}

bool fold_address_of_lvalue(an_expr_node *lvalue, a_type *pointer_type, a_constant *result) {
  clear_constant(result, ck_error);
  if (!address_of_lvalue(lvalue, result)) return false;
  if (result->kind != ck_address && result->kind != ck_integer) return false;
  result->type = pointer_type;
  return true;
}

void conv_array_operand_to_pointer_operand(an_operand *operand) {
  an_operand saved = *operand;
  a_type *pointer = make_pointer_type(array_element_type(operand->type));
  if (operand->value_category == vc_prvalue && std_version < 199901 && !gcc_mode) {
    error_in_operand(ec_bad_rvalue_array, operand);
    return;
  }
  change_ref_kinds(operand, ref_address);
  a_constant address;
  if (operand->kind == ok_constant) {
    clear_constant(&address, ck_error);
    set_constant_address_constant(&address, alloc_unshared_constant(&operand->constant), pointer);
    make_constant_operand(&address, operand);
  } else if (fold_address_of_lvalue(operand->expr, pointer, &address)) {
    take_address_of_lvalue(operand);
    make_constant_operand(&address, operand);
  } else {
    take_address_of_lvalue(operand);
    an_expr_node *node = make_operator_node(eok_array_to_pointer, pointer, operand->expr);
    node->is_implicit = true;
    make_expression_operand(node, operand);
  }
  restore_operand_details(operand, &saved);
  operand->not_integral_constant = true;
}

void conv_function_designator_to_ptr_to_function(an_operand *operand) {
  an_operand saved = *operand;
  a_type *pointer = make_pointer_type(operand->type);
  a_constant address;
  change_ref_kinds(operand, ref_address);
  if (fold_address_of_lvalue(operand->expr, pointer, &address)) {
    if (operand->expr->kind == enk_routine) operand->expr->routine->address_taken = true;
    make_constant_operand(&address, operand);
  } else {
    make_expression_operand(add_address_of_to_node(operand->expr), operand);
  }
  restore_operand_details(operand, &saved);
  operand->not_integral_constant = true;
}

namespace {

// "text"[2]   *"text"   As other compilers have it, a constant for an initializer, but no part of
// an integral constant expression.
bool take_element_of_string_literal(an_operand *operand) {
  if (in_cplusplus() || operand->kind != ok_expression || is_volatile_type(operand->type) ||
      (expr_stack != nullptr && expr_stack->expr_kind <= ek_integral_constant))
    return false;
  const an_expr_node *node = operand->expr;
  if (node->kind != enk_operation || node->op != eok_indirect ||
      node->operands->kind != enk_constant)
    return false;
  a_constant element;
  if (!fold_element_of_string_literal(node->operands->constant,
                                      make_unqualified_type(operand->type), &element))
    return false;
  make_constant_operand(&element, operand);
  return true;
}

}  // namespace

void conv_glvalue_to_prvalue(an_operand *operand) {
  an_operand saved = *operand;
  change_ref_kinds(operand, ref_read);
  if (is_incomplete_type(operand->type) && !is_void_type(operand->type)) {
    if (expr_error_should_be_issued())
      pos_ty_error(ec_incomplete_type_not_allowed, &operand->start_pos, operand->type);
    conv_to_error_operand(operand);
    return;
  }
  if (operand->kind == ok_constant) {  // a string as a whole: only an initializer takes it
    operand->value_category = vc_prvalue;
    return;
  }
  if (take_element_of_string_literal(operand)) {
    restore_operand_details(operand, &saved);
    operand->not_integral_constant = true;
    return;
  }
  make_expression_operand(rvalue_expr_for_lvalue(operand->expr), operand);
  restore_operand_details(operand, &saved);
  operand->not_integral_constant = operand->not_constant = true;
}

void do_operand_transformations(an_operand *operand, unsigned keep) {
  switch (operand->kind) {
    case ok_error:
      return;
    case ok_undefined_symbol:
      if (expr_error_should_be_issued())
        pos_st_error(ec_undefined_identifier, &operand->start_pos, operand->symbol->header->name);
      conv_to_error_operand(operand);
      return;
    default:
      break;
  }
  if (is_array_type(operand->type)) {
    if ((keep & dot_keep_array) == 0) conv_array_operand_to_pointer_operand(operand);
    return;
  }
  if (operand->value_category == vc_function) {
    if ((keep & dot_keep_function) == 0) conv_function_designator_to_ptr_to_function(operand);
    return;
  }
  if (operand->value_category == vc_glvalue && (keep & dot_keep_lvalue) == 0)
    conv_glvalue_to_prvalue(operand);
}

a_type *promoted_type_of_operand(const an_operand *operand) {
  a_field *field = bit_field_of_operand(operand);
  return field != nullptr ? type_after_integral_promotion_of_field(field, operand->type)
                          : type_after_integral_promotion(operand->type);
}

void promote_operand(an_operand *operand) {
  if (operand->kind == ok_error || !is_integral_or_enum_type(operand->type)) return;
  a_type *promoted = promoted_type_of_operand(operand);
  if (!identical_types(promoted, operand->type)) cast_operand(promoted, operand, true);
}

// ---- Checks ------------------------------------------------------------------------------------

void error_in_operand(an_error_code code, an_operand *operand) {
  if (operand->kind != ok_error) expr_pos_error(code, &operand->start_pos);
  conv_to_error_operand(operand);
}

static bool check_operand(bool holds, an_error_code code, an_operand *operand) {
  if (operand->kind == ok_error) return false;
  if (holds) return true;
  error_in_operand(code, operand);
  return false;
}

bool check_integral_or_enum_operand(an_operand *operand) {
  return check_operand(is_integral_or_enum_type(operand->type), ec_expr_not_integral, operand);
}

bool check_arithmetic_or_enum_operand(an_operand *operand) {
  return check_operand(is_arithmetic_or_enum_type(operand->type), ec_expr_not_arithmetic, operand);
}

bool check_scalar_operand(an_operand *operand) {
  return check_operand(is_scalar_type(operand->type), ec_expr_not_scalar, operand);
}

// A pointer to an object whose size is known; void and functions step by one byte in GNU C.
bool check_object_pointer_operand(an_operand *operand) {
  if (!check_operand(is_pointer_type(operand->type), ec_expr_not_pointer, operand)) return false;
  a_type *target = type_pointed_to(operand->type);
  if (is_void_type(target) || is_function_type(target)) {
    if (!gnu_mode || strict_ansi_mode) {
      error_in_operand(ec_expr_not_pointer_to_object, operand);
      return false;
    }
    return true;
  }
  return check_operand(!is_incomplete_type(target), ec_expr_not_pointer_to_object, operand);
}

static bool has_const_part(a_type *type) {
  type = skip_typerefs(skip_array_types(type));
  return is_class_kind(type->kind) && type->class_flags.has_const_member;
}

bool check_modifiable_lvalue_operand(an_operand *operand) {
  if (operand->kind == ok_error) return false;
  bool is_lvalue = operand->value_category == vc_glvalue && operand->kind == ok_expression;
  bool is_complete = !is_incomplete_type(operand->type) && !is_array_type(operand->type);
  if (!is_lvalue || !is_complete) {
    error_in_operand(ec_expr_not_a_modifiable_lvalue, operand);
    return false;
  }
  if (!is_const_type(operand->type) && !has_const_part(operand->type)) return true;
  expr_pos_diagnostic(gcc_mode ? es_discretionary_error : es_error, ec_expr_not_a_modifiable_lvalue,
                      &operand->start_pos);
  conv_to_error_operand(operand);
  return false;
}

static bool is_assignment_of_constant(const an_operand *operand) {
  if (operand->kind != ok_expression || operand->parenthesized) return false;
  const an_expr_node *node = operand->expr;
  if (node->kind != enk_operation || node->op != eok_assign) return false;
  const an_expr_node *right = node->operands->next;
  while (right->kind == enk_operation && right->op == eok_cast)
    right = right->operands;
  return right->kind == enk_constant;
}

bool check_boolean_controlling_expr(an_operand *operand) {
  if (is_assignment_of_constant(operand))
    expr_pos_warning(ec_assign_where_compare_meant, &operand->start_pos);
  do_operand_transformations(operand);
  if (!check_scalar_operand(operand)) return false;
  if (operand->kind == ok_constant && is_pointer_type(operand->type) &&
      operand->constant.kind == ck_address)
    expr_pos_warning(ec_boolean_controlling_expr_is_constant, &operand->start_pos);
  return true;
}

a_type *size_type() {
  return integer_type(targ_size_t_int_kind);
}
a_type *ptrdiff_type() {
  return integer_type(targ_ptrdiff_t_int_kind);
}

void expr_one_time_init() {
  expr_stack = nullptr;
  expr_depth = generic_depth = 0;
}

void expr_trans_unit_init() {
  curr_expr_ref_entries = last_expr_ref_entry = avail_ref_entries = nullptr;
  expr_stack = nullptr;
  expr_depth = generic_depth = 0;
}
