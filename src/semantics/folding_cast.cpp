// Conversions of constants: implicit ones and casts, chosen by the kinds of source and target.
//
// A conversion that the target machine could only do at run time (an address to a floating type, a
// weak address to bool) is not folded; the cast stays in the tree. The value is computed in a copy
// and replaces the operand only when it is known.
#include "semantics/folding_internal.h"

namespace {

// One conversion: the fold it belongs to, and what kind of conversion it is.
struct a_type_change {
  a_fold fold;
  const a_type_change_options *options;
};

bool is_arithmetic_constant_type(const a_type *type) {
  return is_integral_or_enum_type(type) || is_floating_type(type);
}

// ---- To bool, to integers ----------------------------------------------------------------------

void change_to_bool(a_type_change &change, const a_constant *from, a_constant *to) {
  if (!constant_bool_value_known_at_compile_time(from)) {
    change.fold.not_constant = true;
    return;
  }
  set_bool_result(to, !is_false_constant(from));
}

void change_float_to_integer(a_type_change &change, const a_constant *from, a_constant *to) {
  bool error;
  conv_float_to_integer(from, to, &change.fold.code, &change.fold.severity, &error,
                        !change.fold.constant_kind);
}

// ---- To floating types -------------------------------------------------------------------------

void change_integer_to_float(a_type_change &change, const a_constant *from, a_constant *to) {
  simul_fval value;
  bool error = false;
  conv_integer_value_to_float(from->integer_value, int_constant_is_signed(from), &value,
                              float_kind_of(to->type), &error);
  switch (skip_typerefs(to->type)->kind) {
    case tk_imaginary:
      set_constant_kind(to, ck_imaginary);
      to->float_value = pos_zero;
      break;
    case tk_complex:
      set_constant_kind(to, ck_complex);
      to->complex_value = new_complex_value();
      to->complex_value->real_part = value;
      to->complex_value->imag_part = pos_zero;
      break;
    default:
      set_constant_kind(to, ck_float);
      to->float_value = value;
      break;
  }
  if (error) change.fold.note(ec_integer_to_float_conversion, es_error);
}

void change_float_to_float(a_type_change &change, const a_constant *from, a_constant *to) {
  bool failed;
  change_float_constant(from, to, &failed);
  if (failed) change.fold.note(ec_float_to_float_conversion, es_error);
}

// ---- To pointers -------------------------------------------------------------------------------

void change_integer_to_pointer(a_type_change &change, const a_constant *from, a_constant *to) {
  bool is_null = from->kind == ck_integer && from->integer_value == 0;
  if (change.options->warn_int_to_pointer && !is_null && !is_ptr_or_ref_type(from->type))
    change.fold.note(ec_non_zero_int_conv_to_pointer, es_warning);
  copy_constant_with_type(from, to, to->type);
  to->came_from_cast = true;
  to->explicit_cast = change.options->is_explicit;
  if (to->kind != ck_integer) return;
  a_host_large_integer mask;
  make_integer_value_mask(&mask, targ_sizeof_pointer * targ_char_bit);
  to->integer_value &= mask;
}

// An address keeps what it points to under a new type.
void change_address(a_type_change &change, const a_constant *from, a_constant *to) {
  if (is_floating_type(to->type)) {
    change.fold.not_constant = true;
    return;
  }
  copy_constant_with_type(from, to, to->type);
  if (!is_integral_or_enum_type(to->type)) {
    if (is_integral_address(from)) to->came_from_cast = true;
    return;
  }
  to->came_from_cast = true;
  to->explicit_cast = change.options->is_explicit;
  std::uint64_t size = skip_typerefs(to->type)->size;
  if (size >= static_cast<std::uint64_t>(targ_sizeof_pointer)) return;
  // The low bits of an address are known to the linker at best. The cast was warned about.
  change.fold.not_constant = true;
}

// ---- Pointers to members -----------------------------------------------------------------------

void change_to_ptr_to_member(a_type_change &change, const a_constant *from, a_constant *to) {
  if (from->kind == ck_integer) {
    make_zero_constant(to, to->type);
    return;
  }
  const a_type *source_class = skip_typerefs(pm_class_type(from->type));
  const a_type *target_class = skip_typerefs(pm_class_type(to->type));
  bool reinterpreted = change.options->reinterpret && !from->pm_is_null && !from->came_from_cast;
  if (reinterpreted || (source_class != target_class && !from->pm_is_null)) {
    change.fold.not_constant = true;
    return;
  }
  copy_constant_with_type(from, to, to->type);
}

// ---- The choice --------------------------------------------------------------------------------

void change_integer(a_type_change &change, const a_constant *from, a_constant *to) {
  switch (skip_typerefs(to->type)->kind) {
    case tk_integer:
      conv_integer_to_integer(from, to, change.options->check, &change.fold.code,
                              &change.fold.severity);
      break;
    case tk_float:
    case tk_imaginary:
    case tk_complex:
      if (from->kind == ck_integer)
        change_integer_to_float(change, from, to);
      else
        change.fold.not_constant = true;
      break;
    case tk_pointer:
      change_integer_to_pointer(change, from, to);
      break;
    case tk_ptr_to_member:
      change_to_ptr_to_member(change, from, to);
      break;
    default:
      change.fold.not_constant = true;
      break;
  }
}

void change_float(a_type_change &change, const a_constant *from, a_constant *to) {
  if (is_floating_type(to->type))
    change_float_to_float(change, from, to);
  else if (is_integral_or_enum_type(to->type))
    change_float_to_integer(change, from, to);
  else
    change.fold.not_constant = true;
}

void change_by_kind(a_type_change &change, const a_constant *from, a_constant *to) {
  const a_type *target = skip_typerefs(to->type);
  if (target->kind == tk_integer && target->is_bool) {
    change_to_bool(change, from, to);
    return;
  }
  if (target->kind == tk_nullptr) {
    make_zero_constant(to, to->type);
    to->came_from_cast = true;
    return;
  }
  switch (from->kind) {
    case ck_address:
      change_address(change, from, to);
      break;
    case ck_integer:
    case ck_address_difference:
      change_integer(change, from, to);
      break;
    case ck_float:
    case ck_imaginary:
    case ck_complex:
      change_float(change, from, to);
      break;
    case ck_ptr_to_member:
      if (target->kind == tk_ptr_to_member)
        change_to_ptr_to_member(change, from, to);
      else
        change.fold.not_constant = true;
      break;
    case ck_aggregate:
    case ck_repeat:
    case ck_string:
      if (is_class_kind(target->kind) || target->kind == tk_array)
        copy_constant_with_type(from, to, to->type);
      else
        change.fold.not_constant = true;
      break;
    default:
      change.fold.not_constant = true;
      break;
  }
}

// A cast to an integer keeps an expression constant only from an arithmetic type.
void mark_changed_constant(const a_constant *from, a_constant *to) {
  to->not_a_constant_expression = from->not_a_constant_expression;
  bool between_arithmetic =
      is_arithmetic_constant_type(from->type) && is_arithmetic_constant_type(to->type);
  if (is_null_pointer_constant(from) && is_pointer_type(to->type)) return;
  if (!between_arithmetic) to->not_a_constant_expression = true;
}

}  // namespace

void type_change_constant_full(a_constant *c, a_type *type, const a_type_change_options *options,
                               bool constant_kind, bool value_needed, bool *not_constant,
                               bool *not_computed, an_error_code *error,
                               const a_source_position *position) {
  *not_constant = *not_computed = false;
  if (c->kind == ck_error || is_error_type(type)) {
    set_error_constant(c);
    c->type = type;
    return;
  }
  if (c->kind == ck_template_param || is_template_dependent_type(type)) {
    *not_constant = *not_computed = true;
    return;
  }
  if (identical_types_ignoring_qualifiers(c->type, type)) {
    c->type = type;
    if (options->is_explicit) c->explicit_cast = c->came_from_cast;
    return;
  }
  a_type_change change = {};
  change.fold = {constant_kind, value_needed, error,       position,
                 false,         false,        ec_no_error, es_warning};
  change.options = options;
  a_constant *result = local_constant();
  begin_result(result, type);
  change_by_kind(change, c, result);
  if (!change.fold.not_constant) mark_changed_constant(c, result);
  finish_fold(change.fold, result);
  if (!change.fold.not_constant) copy_constant(result, c);
  release_local_constant(&result);
  *not_constant = change.fold.not_constant;
}

void type_change_constant(a_constant *c, a_type *type, bool check, bool *not_constant,
                          const a_source_position *position) {
  a_type_change_options options = {};
  options.check = check;
  bool not_computed;
  type_change_constant_full(c, type, &options, true, true, not_constant, &not_computed, nullptr,
                            position);
}

bool implicit_cast(a_constant *c, a_type *type) {
  a_type_change_options options = {};
  bool not_constant, not_computed;
  an_error_code error = ec_no_error;
  type_change_constant_full(c, type, &options, true, true, &not_constant, &not_computed, &error,
                            &null_source_position);
  return !not_constant && error == ec_no_error;
}
