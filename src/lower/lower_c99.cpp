// Complex types, _Atomic and variable-length arrays: told to the user, as they have no lowered
// form.
#include "lower/lower_c99.h"

#include "DIAG/error.h"
#include "il/il.h"
#include "semantics/types.h"

namespace {

const char *unlowered_part(a_type *type);

const char *unlowered_part_of_routine_type(const a_type *type) {
  const char *part = unlowered_part(type->return_type);
  for (a_param_type *p = type->routine_supplement->param_types; p != nullptr && part == nullptr;
       p = p->next)
    part = unlowered_part(p->type);
  return part;
}

const char *unlowered_part_of_kind(const a_type *type) {
  switch (type->kind) {
    case tk_complex:
    case tk_imaginary:
      return "a complex type is";
    case tk_array:
      if (type->is_vla) return "a variable-length array is";
      return unlowered_part(type->element_type);
    case tk_pointer:
      return unlowered_part(type->pointed_to);
    case tk_routine:
      return unlowered_part_of_routine_type(type);
    default:
      return nullptr;
  }
}

// What of a type has no lowered form, as a subject for the message; null: nothing. The members of a
// class are told where the class is. Every expression asks: the answer "nothing" is kept.
const char *unlowered_part(a_type *type) {
  a_type *asked = type;
  for (; type->kind == tk_typeref && !type->has_lowered_form; type = type->referenced_type)
    if ((type->qualifiers & tq_atomic) != 0) return "an _Atomic type is";
  if (type->has_lowered_form) return nullptr;
  const char *part = unlowered_part_of_kind(type);
  asked->has_lowered_form = type->has_lowered_form = part == nullptr;
  return part;
}

bool report(const char *subject, const a_source_position *position) {
  if (subject == nullptr) return false;
  pos_st_error(ec_not_supported, position, subject);
  return true;
}

}  // namespace

bool report_unlowered_c99_type(a_type *type, const a_source_position *position) {
  return type != nullptr && report(unlowered_part(type), position);
}

bool report_unlowered_c99_expr(const an_expr_node *expr) {
  if (expr->kind == enk_sizeof || expr->kind == enk_vla_dealloc)
    return report("a variable-length array is", &expr->position);
  return report_unlowered_c99_type(expr->type, &expr->position);
}
