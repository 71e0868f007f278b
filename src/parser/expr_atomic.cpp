// Atomic builtins that fit any size, by what their pointer points to: __atomic_load_n(p, order) on
// a pointer to short is (short)__atomic_load_2(p, order).
#include <string>
#include <string_view>

#include "il/il.h"
#include "parser/expr_internal.h"
#include "semantics/symbol_tbl.h"
#include "semantics/sys_predef.h"
#include "semantics/types.h"

bool is_generic_atomic_builtin(const a_routine *routine) {
  int number = builtin_function_number(routine);
  bool is_operation = (number >= bi_atomic_compare_exchange && number <= bi_atomic_store_n) ||
                      (number >= bi_sync_fetch_and_add && number < bi_sync_synchronize);
  if (!is_operation) return false;
  // The others say what follows the pointer, or have the size in their name.
  const a_routine_type_supplement *supplement = skip_typerefs(routine->type)->routine_supplement;
  if (!supplement->has_ellipsis || supplement->param_types->next != nullptr) return false;
  std::string_view name = routine->name;
  return name.back() < '1' || name.back() > '8';
}

namespace {

// Of a sized form: does a value of the object's type travel here?
bool is_object_value(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_integer && !type->is_bool && !is_signed_integral_type(type);
}

// The type of the object; null after a message.
a_type *scan_object_pointer(an_operand *pointer) {
  scan_expr_at_level(pointer, level_comma);
  do_operand_transformations(pointer);
  if (pointer->kind == ok_error) return nullptr;
  a_type *type = is_pointer_type(pointer->type)
                     ? make_unqualified_type(type_pointed_to(pointer->type))
                     : nullptr;
  if (type == nullptr || !(is_integral_or_enum_type(type) || is_pointer_type(type))) {
    error_in_operand(ec_bad_type_for_gnu_sync_function, pointer);
    return nullptr;
  }
  std::uint64_t size = skip_typerefs(type)->size;
  if (size != 1 && size != 2 && size != 4 && size != 8) {
    error_in_operand(ec_invalid_gnu_sync_size, pointer);
    return nullptr;
  }
  return type;
}

a_routine *sized_form(const a_routine *routine, std::uint64_t size) {
  std::string name = routine->name;
  if (name.ends_with("_n")) name.resize(name.size() - 2);
  name += '_' + std::to_string(size);
  a_symbol_locator locator;
  a_symbol *symbol = find_symbol(name.c_str(), name.size(), &locator);
  if (symbol == nullptr) symbol = load_matching_builtin_function(locator.header);
  return symbol->variant.routine;
}

class an_atomic_call {
 public:
  an_atomic_call(a_routine *routine, an_operand *pointer) : routine_(routine) {
    an_operand designator;
    make_function_designator_operand(routine, &designator);
    last_ = callee_ = make_node_from_operand(&designator);
    add(pointer, param_types_of(routine->type)->type);
  }
  bool failed() const { return failed_; }
  void add(an_operand *argument, a_type *type) {
    if (argument->kind != ok_error) cast_operand(type, argument, true);
    failed_ |= argument->kind == ok_error;
    if (failed_) return;
    last_->next = make_node_from_operand(argument);
    last_ = last_->next;
  }
  void finish(a_type *object, const a_source_position *position, an_operand *result) {
    a_type *type = return_type_of(routine_->type);
    an_expr_node *call = make_operator_node(eok_call, type, callee_);
    call->position = *position;
    make_expression_operand(call, result);
    result->start_pos = *position;
    result->not_constant = result->not_integral_constant = true;
    if (is_object_value(type)) cast_operand(object, result, true);
  }

 private:
  a_routine *routine_;
  an_expr_node *callee_, *last_;
  bool failed_ = false;
};

// What follows the pointer; the __sync forms take and ignore anything behind their values.
void scan_operation(const a_routine *generic, a_type *object, an_operand *pointer,
                    const a_source_position *position, an_operand *result) {
  a_routine *routine = sized_form(generic, skip_typerefs(object)->size);
  an_atomic_call call(routine, pointer);
  bool has_ellipsis = skip_typerefs(routine->type)->routine_supplement->has_ellipsis;
  const a_param_type *param = param_types_of(routine->type)->next;
  an_operand argument;
  for (; param != nullptr && curr_token == tok_comma; param = param->next) {
    get_token();
    scan_expr_at_level(&argument, level_comma);
    bool is_value = is_object_value(param->type);
    prep_assignment_operand(&argument, is_value ? object : param->type, ec_incompatible_param);
    call.add(&argument, param->type);
  }
  if (param != nullptr) {
    if (!call.failed()) expr_pos_error(ec_too_few_arguments, &pos_curr_token);
    make_error_operand(result);
    return;
  }
  while (has_ellipsis && curr_token == tok_comma) {
    get_token();
    scan_expr_at_level(&argument, level_comma);
    do_operand_transformations(&argument);
  }
  if (call.failed())
    make_error_operand(result);
  else
    call.finish(object, position, result);
}

}  // namespace

void scan_generic_atomic(const a_routine *routine, const a_source_position *position,
                         an_operand *result) {
  an_operand pointer;
  a_type *object = scan_object_pointer(&pointer);
  if (object != nullptr) {
    scan_operation(routine, object, &pointer, position, result);
    return;
  }
  make_error_operand(result);
  while (curr_token == tok_comma) {
    get_token();
    an_operand rest;
    scan_expr_at_level(&rest, level_comma);
  }
}
