// Initializations of C: constants in the order of the type, and values computed at run time.
//
//     struct s v = { 1, f(), .a = { x } };
//
// becomes the constant part, with zeros where values are computed, and an assignment for each of
// those, in the order of the members. Where every member is computed there is no constant part. The
// same happens for the unnamed objects of compound literals and of casts to unions, but inside an
// expression: there the constant part is copied from a static object.
#include <unordered_map>

#include "driver/trans_unit.h"
#include "lower/lower_c99.h"
#include "lower/lower_internal.h"
#include "semantics/folding.h"
#include "semantics/types.h"

namespace {

std::unordered_map<const a_constant *, a_variable *> vars_of_constants;

// The way from the object to one of its parts.
struct a_part {
  const a_part *outer;  // null: the object itself
  a_variable *variable;
  a_field *field;  // null: an element of an array
  std::uint64_t index;
};

an_expr_node *lvalue_of(const a_part *part) {
  if (part->outer == nullptr) return var_lvalue_expr(part->variable);
  an_expr_node *whole = lvalue_of(part->outer);
  if (part->field != nullptr) return field_lvalue_selection_expr(whole, part->field);
  a_type *element = array_element_type(whole->type);
  an_expr_node *pointer =
      make_operator_node(eok_array_to_pointer, make_pointer_type(element), whole);
  pointer->next = int_node(static_cast<std::int64_t>(part->index));
  return make_lvalue_operator_node(eok_subscript, element, pointer);
}

// Takes what is computed out of a constant.
struct a_splitter {
  an_expr_node *expr;  // the assignments
  bool needs_constant;

  void take(a_constant *constant, a_type *type, const a_part *part);
  void take_array(a_constant *constant, a_type *type, const a_part *part);
  void take_class(a_constant *constant, a_type *type, const a_part *part);
  void take_dynamic(a_constant *constant, a_type *type, const a_part *part);
};

void make_zero(a_constant *constant, a_type *type) {
  a_constant *next = constant->next_in_list;
  if (is_scalar_type(type)) {
    make_zero_constant(constant, make_unqualified_type(type));
  } else {
    clear_constant(constant, ck_aggregate);
    constant->type = type;
  }
  constant->next_in_list = next;
}

void a_splitter::take_dynamic(a_constant *constant, a_type *type, const a_part *part) {
  a_dynamic_init *init = constant->dynamic_init;
  switch (init->kind) {
    case dik_expression:
    case dik_call: {
      an_expr_node *assignment = assignment_node(lvalue_of(part), init->expr);
      assignment->position = init->expr->position;
      assignment->end_position = init->expr->end_position;
      expr = expr == nullptr ? assignment : comma_node(expr, assignment);
      make_zero(constant, type);
      return;
    }
    case dik_constant:
    case dik_aggregate:
    case dik_nonconstant_aggr: {
      a_constant *next = constant->next_in_list;
      copy_constant(init->constant, constant);
      constant->next_in_list = next;
      normalize_designated_aggregate(constant, type);
      take(constant, type, part);
      return;
    }
    case dik_zero:
      needs_constant = true;
      make_zero(constant, type);
      return;
    default:
      unexpected_state(dynamic_init_kind_names[init->kind]);
  }
}

void a_splitter::take_array(a_constant *constant, a_type *type, const a_part *part) {
  a_type *element = array_element_type(type);
  std::uint64_t index = 0;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    a_part inner = {part, nullptr, nullptr, index};
    if (e->kind == ck_repeat) {
      needs_constant = true;  // a range of values is never computed
      index += e->repeat_count;
    } else {
      take(e, element, &inner);
      index++;
    }
  }
  const a_type *array = skip_typerefs(static_cast<const a_type *>(type));
  if (index < array->number_of_elements) needs_constant = true;
}

a_field *next_with_value(a_field *field) {
  while (field != nullptr && field->is_bit_field && field->name == nullptr)
    field = field->next;
  return field;
}

void a_splitter::take_class(a_constant *constant, a_type *type, const a_part *part) {
  a_type *class_type = f_skip_typerefs(type);
  bool is_union = class_type->kind == tk_union;
  a_field *field = next_with_value(class_type->fields);
  bool any = false;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    if (e->kind == ck_designator) {
      field = e->designator_field;
      if (!is_union) needs_constant = true;
      continue;
    }
    a_part inner = {part, nullptr, field, 0};
    take(e, field->type, &inner);
    any = true;
    field = is_union ? nullptr : next_with_value(field->next);
  }
  if (is_union ? !any : field != nullptr) needs_constant = true;
}

void a_splitter::take(a_constant *constant, a_type *type, const a_part *part) {
  switch (constant->kind) {
    case ck_dynamic_init:
      take_dynamic(constant, type, part);
      break;
    case ck_aggregate:
      constant->has_dynamic_init_component = false;
      if (is_array_type(type))
        take_array(constant, type, part);
      else if (is_class_struct_union_type(type))
        take_class(constant, type, part);
      else if (constant->first_element != nullptr)
        take(constant->first_element, type, part);
      break;
    default:
      needs_constant = true;
      break;
  }
}

void lower_initial_value(a_variable *variable) {
  if (variable->init_kind != init_constant || variable->initializer.constant == nullptr) return;
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  normalize_designated_aggregate(variable->initializer.constant, variable->type);
  lower_constant(variable->initializer.constant);
  switch_back_to_original_region(saved);
}

}  // namespace

void split_dynamic_init(a_dynamic_init *init, a_variable *variable, a_constant **constant,
                        an_expr_node **expr) {
  normalize_designated_aggregate(init->constant, init->type);
  a_splitter splitter = {};
  a_part whole = {nullptr, variable, nullptr, 0};
  splitter.take(init->constant, init->type, &whole);
  *constant = splitter.needs_constant ? init->constant : nullptr;
  *expr = splitter.expr;
}

// ---- Statements --------------------------------------------------------------------------------

namespace {

// The statement becomes its run, itself or nothing, and the computed parts.
void split_init_statement(a_statement *statement) {
  a_dynamic_init *init = statement->init;
  a_constant *constant;
  an_expr_node *expr;
  if (init->type == nullptr) init->type = init->variable->type;
  split_dynamic_init(init, init->variable, &constant, &expr);
  if (constant != nullptr) {
    lower_constant(constant);
    set_dynamic_init_kind(init, dik_constant);
    init->constant = constant;
  }
  if (expr == nullptr) return;
  a_statement *computed = make_expr_statement(expr);
  computed->position = statement->position;
  computed->end_position = statement->end_position;
  if (constant == nullptr) {
    init->variable->init_kind = init_none;
    init->variable->initializer.entry = nullptr;
    set_statement_kind(statement, stmk_expr);
    statement->expr = expr;
  } else {
    change_statement_into_block(statement);
    computed->parent = statement;
    statement->first_statement->is_lowered = true;
    statement->first_statement->next = computed;
  }
  statement->is_lowered = false;
  lower_statement(statement);
}

}  // namespace

void lower_stmk_init(a_statement *statement) {
  a_dynamic_init *init = statement->init;
  if (init == nullptr || report_unlowered_c99_type(init->variable->type, &statement->position))
    return;
  switch (init->kind) {
    case dik_constant:
      normalize_designated_aggregate(init->constant, init->variable->type);
      lower_constant(init->constant);
      break;
    case dik_call:
    case dik_expression: {
      init->kind = dik_expression;
      a_statement_run run = {};
      a_statement_run *outer = current_run;
      current_run = &run;
      lower_expr(init->expr, false);
      current_run = outer;
      if (run.first == nullptr) break;
      change_statement_into_block(statement);
      a_statement *child = statement->first_statement;
      run.last->next = child;
      statement->first_statement = run.first;
      break;
    }
    case dik_aggregate:
    case dik_nonconstant_aggr:
      split_init_statement(statement);
      break;
    default:
      break;
  }
}

// ---- Objects inside expressions ----------------------------------------------------------------

namespace {

// Copies a constant object: object = static object.
an_expr_node *copy_of_constant(a_variable *object, a_constant *constant) {
  if (is_scalar_type(object->type))
    return make_var_assignment_expr(object, node_for_il_constant(constant));
  an_expr_node *from = var_lvalue_expr(assoc_var_for_constant(constant, object->type));
  an_expr_node *to = var_lvalue_expr(object);
  if (!is_array_type(object->type)) return assignment_node(to, rvalue_expr_for_lvalue(from));
  object->address_taken = true;
  return binary_node(eok_struct_assign, void_type(), to, from);
}

// What stores the value of an unnamed object.
an_expr_node *setup_of_object(a_dynamic_init *init, a_variable *object) {
  switch (init->kind) {
    case dik_expression:
    case dik_call:
      return make_var_assignment_expr(object, init->expr);
    case dik_constant:
    case dik_aggregate:
    case dik_nonconstant_aggr: {
      a_constant *constant;
      an_expr_node *expr;
      split_dynamic_init(init, object, &constant, &expr);
      if (constant != nullptr) {
        lower_constant(constant);
        an_expr_node *copy = copy_of_constant(object, constant);
        expr = expr == nullptr ? copy : comma_node(copy, expr);
      }
      return expr;
    }
    case dik_zero: {
      a_constant *zero = alloc_constant(ck_aggregate);
      zero->type = object->type;
      make_zero(zero, object->type);
      return copy_of_constant(object, zero);
    }
    default:
      unexpected_state(dynamic_init_kind_names[init->kind]);
  }
}

}  // namespace

// (T){...} and (union u)x: (object = ..., object)
void lower_temp_init(an_expr_node *expr) {
  a_dynamic_init *init = expr->init;
  a_type *type = init->type != nullptr ? init->type : expr->type;
  init->type = type;
  bool is_lvalue = expr->is_lvalue;
  a_variable *object = init->variable;
  if (object == nullptr) {
    object = make_local_temporary(type);
    object->type = type;
  }
  an_expr_node *setup = setup_of_object(init, object);
  init->temp_variable = object;
  an_expr_node *place = var_lvalue_expr(object);
  place->position = expr->position;
  if (!is_lvalue && !is_array_type(type)) place = rvalue_expr_for_lvalue(place);
  if (setup != nullptr) {
    setup->position = expr->position;
    lower_expr(setup, true);
    place = comma_node(setup, place);
  }
  replace_node(expr, place);
}

// ---- Constants ---------------------------------------------------------------------------------

a_variable *assoc_var_for_constant(a_constant *constant, a_type *type) {
  a_variable *&variable = vars_of_constants[constant];
  if (variable != nullptr) return variable;
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  variable = alloc_variable(sc_static);
  variable->type = make_qualified_type(type, tq_const);
  variable->is_compiler_generated = true;
  variable->defined = true;
  variable->init_kind = init_constant;
  variable->initializer.constant =
      in_file_scope_region(constant) ? constant : copy_constant_tree(constant);
  a_scope *scope = lowered_scope;
  if (scope == nullptr) {
    scope = curr_translation_unit->file_scope;
    variable->is_file_scope = true;
  } else {
    variable->is_local_to_routine = true;
    variable->enclosing_routine = lowered_routine;
  }
  insert_in_variables_list(variable, nullptr, scope);
  switch_back_to_original_region(saved);
  return variable;
}

void forget_vars_of_constants() {
  vars_of_constants.clear();
}

namespace {

// The elements are in order already.
void lower_ordered_constant(a_constant *constant) {
  switch (constant->kind) {
    case ck_aggregate:
      for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list)
        lower_ordered_constant(e);
      break;
    case ck_repeat:
      lower_ordered_constant(constant->repeat_element);
      break;
    case ck_address: {
      // &(struct s){1}: the object gets a name.
      if (constant->address_kind != abk_constant) break;
      a_constant *target = constant->address_constant;
      lower_constant(target);
      if (target->kind == ck_string) break;
      constant->address_variable = assoc_var_for_constant(target, target->type);
      constant->address_kind = abk_variable;
      break;
    }
    default:
      break;
  }
}

}  // namespace

void lower_constant(a_constant *constant) {
  if (constant == nullptr || il_marks(constant).il_lowered) return;
  il_marks(constant).il_lowered = true;
  if (constant->type != nullptr) normalize_designated_aggregate(constant, constant->type);
  lower_ordered_constant(constant);
}

static void check_members(const a_type *type) {
  if (!is_class_struct_union_type(type)) return;
  for (a_field *field = type->fields; field != nullptr; field = field->next)
    report_unlowered_c99_type(field->type, &field->decl_position);
}

void lower_variables_of_scope(a_scope *scope) {
  for (a_type *type = scope->types; type != nullptr; type = type->next)
    if (type->kind != tk_typeref) check_members(type);
  for (a_variable *v = scope->variables; v != nullptr; v = v->next) {
    if (v->defined && report_unlowered_c99_type(v->type, &v->decl_position)) continue;
    lower_initial_value(v);
  }
  for (a_variable *v = scope->local_variables; v != nullptr; v = v->next)
    report_unlowered_c99_type(v->type, &v->decl_position);
  for (a_scope *inner = scope->nested_scopes; inner != nullptr; inner = inner->next)
    lower_variables_of_scope(inner);
}
