// Address constants: arithmetic on them, their differences and comparisons.
//
// An address is a base (a variable, a routine, a string, a label) and an offset in bytes that the
// linker adds. Two addresses can be told apart only as far as their bases are the same or cannot
// coincide.
#include "semantics/folding_internal.h"

namespace {

int pointer_precision() {
  return targ_sizeof_pointer * targ_char_bit;
}

// 0: unknown, of a variable-length or incomplete type.
std::uint64_t size_of_pointed_to(const a_type *pointer) {
  const a_type *target = skip_typerefs(type_pointed_to(pointer));
  if (target->kind == tk_void || target->kind == tk_routine) return gnu_mode ? 1 : 0;
  if (is_vla_type(target) || is_incomplete_type(target)) return 0;
  return target->size;
}

void add_path_element(a_constant *address, std::int64_t index) {
  a_subobject_path *element = alloc_subobject_path();
  element->kind = a_subobject_path::spk_array_element;
  element->index = static_cast<a_targ_size_t>(index);
  element->next = address->subobject_path;
  address->subobject_path = element;
}

std::int64_t wrapped_to_pointer(std::int64_t value) {
  a_host_large_integer word = static_cast<a_host_large_integer>(value);
  truncate_integer_value(&word, pointer_precision(), true);
  return static_cast<std::int64_t>(word);
}

}  // namespace

// ---- Arithmetic --------------------------------------------------------------------------------

void fold_pointer_arithmetic(a_fold &fold, bool subtract, const a_constant *pointer,
                             const a_constant *index, std::uint64_t element_size,
                             a_constant *result) {
  a_host_large_integer step = index->integer_value;
  bool is_signed = int_constant_is_signed(index);
  bool overflow;
  multiply_integer_values(&step, element_size, is_signed, &overflow);
  if (overflow) {
    fold.note(ec_integer_overflow, es_error);
    return;
  }
  copy_constant_with_type(pointer, result, result->type);
  if (pointer->kind == ck_integer) {
    a_host_large_integer mask;
    make_integer_value_mask(&mask, pointer_precision());
    result->integer_value += subtract ? a_host_large_integer{0} - step : step;
    result->integer_value &= mask;
    return;
  }
  std::int64_t signed_step = static_cast<std::int64_t>(step);
  result->address_offset = wrapped_to_pointer(subtract ? result->address_offset - signed_step
                                                       : result->address_offset + signed_step);
  if (in_cplusplus()) {
    std::int64_t count = static_cast<std::int64_t>(index->integer_value);
    add_path_element(result, subtract ? -count : count);
  }
}

void fold_ptr_add(a_fold &fold, bool subtract, const a_constant *left, const a_constant *right,
                  a_constant *result) {
  const a_constant *pointer = left, *index = right;
  if (!subtract && !is_pointer_type(left->type)) {
    pointer = right;
    index = left;
  }
  std::uint64_t size = size_of_pointed_to(pointer->type);
  bool is_address = pointer->kind == ck_address || pointer->kind == ck_integer;
  if (index->kind != ck_integer || !is_address || size == 0) {
    fold.not_constant = true;
    return;
  }
  fold_pointer_arithmetic(fold, subtract, pointer, index, size, result);
}

bool fold_field_selection(const a_constant *object_address, a_field *field, a_type *pointer_type,
                          a_constant *result) {
  if (field->is_bit_field || field->has_error_type) return false;
  if (object_address->kind == ck_integer) {
    copy_constant_with_type(object_address, result, pointer_type);
    result->integer_value += field->offset;
    result->came_from_cast = true;
    return true;
  }
  if (object_address->kind != ck_address) return false;
  copy_constant_with_type(object_address, result, pointer_type);
  result->address_offset += static_cast<std::int64_t>(field->offset);
  return true;
}

bool fold_element_of_string_literal(const a_constant *address, a_type *type, a_constant *result) {
  if (address->kind != ck_address || address->address_kind != abk_constant) return false;
  const a_constant *string = address->address_constant;
  const a_type *element = skip_typerefs(type);
  if (string->kind != ck_string || element->kind != tk_integer) return false;
  const a_type *unit = skip_typerefs(string_literal_element_type(string->string_char_kind));
  std::int64_t size = static_cast<std::int64_t>(element->size), offset = address->address_offset;
  std::int64_t length = static_cast<std::int64_t>(string->string_length);
  if (element->size != unit->size || offset < 0 || offset % size != 0 || offset > length - size)
    return false;
  a_host_large_integer value = 0;
  for (std::int64_t i = 0; i < size; ++i) {
    std::int64_t place = targ_little_endian ? size - 1 - i : i;
    value =
        value << targ_char_bit | static_cast<unsigned char>(string->string_text[offset + place]);
  }
  set_integer_constant_of_type(result, static_cast<std::int64_t>(value), type);
  return true;
}

// ---- Bases -------------------------------------------------------------------------------------

namespace {

// What an address is relative to; null: an integer.
const void *base_entity_of(const a_constant *c) {
  if (c->kind != ck_address) return nullptr;
  switch (c->address_kind) {
    case abk_typeinfo:
    case abk_base:
      return c;
    default:
      return c->address_target;
  }
}

bool same_string(const a_constant *a, const a_constant *b) {
  if (a->kind != ck_address || b->kind != ck_address) return false;
  if (a->address_kind != abk_constant || b->address_kind != abk_constant) return false;
  const a_constant *sa = a->address_constant, *sb = b->address_constant;
  return sa->kind == ck_string && sb->kind == ck_string && sa->string_text == sb->string_text;
}

bool same_base(const a_constant *a, const a_constant *b) {
  return base_entity_of(a) == base_entity_of(b) || same_string(a, b);
}

std::int64_t offset_of(const a_constant *c) {
  return c->kind == ck_address ? c->address_offset
                               : wrapped_to_pointer(static_cast<std::int64_t>(c->integer_value));
}

bool is_comparable(const a_constant *c) {
  return c->kind == ck_address || c->kind == ck_integer;
}

bool is_label_address(const a_constant *c) {
  return c->kind == ck_address && c->address_kind == abk_label;
}

}  // namespace

// ---- Differences -------------------------------------------------------------------------------

void do_pdiff(const a_constant *left, const a_constant *right, a_constant *result,
              bool *not_constant, an_error_code *, int *) {
  if (!is_comparable(left) || !is_comparable(right)) {
    *not_constant = true;
    return;
  }
  if (!same_base(left, right)) {
    if (!gnu_mode || !is_label_address(left) || !is_label_address(right)) {
      *not_constant = true;
      return;
    }
    a_constant *from = alloc_shareable_constant(left);
    a_constant *subtract = alloc_shareable_constant(right);
    set_constant_kind(result, ck_address_difference);
    result->difference_from = from;
    result->difference_subtract = subtract;
    return;
  }
  bool has_elements = is_pointer_type(left->type);
  std::uint64_t size = has_elements ? size_of_pointed_to(left->type) : 1;
  if (size == 0) {
    *not_constant = true;
    return;
  }
  std::int64_t difference = wrapped_to_pointer(offset_of(left) - offset_of(right));
  set_integer_constant_of_type(result, difference / static_cast<std::int64_t>(size), result->type);
}

// ---- Comparisons -------------------------------------------------------------------------------

namespace {

// An object of this program against a null pointer.
bool is_known_object_against_null(const a_constant *address, const a_constant *null) {
  if (!is_null_pointer_value(null) && !(null->kind == ck_integer && null->integer_value == 0))
    return false;
  if (address->kind != ck_address || address->is_weak_addr) return false;
  switch (address->address_kind) {
    case abk_variable:
      return variable_has_non_null_address(address->address_variable);
    case abk_constant:
      return true;
    default:
      return false;
  }
}

bool can_be_null(const a_constant *c) {
  return c->kind == ck_address && !constant_bool_value_known_at_compile_time(c);
}

}  // namespace

void fold_pointer_comparison(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                             const a_constant *right, a_constant *result) {
  if (!is_comparable(left) || !is_comparable(right)) {
    fold.not_constant = true;
    return;
  }
  if (same_base(left, right)) {
    std::int64_t a = offset_of(left), b = offset_of(right);
    // Plain integers compare as unsigned addresses.
    bool as_unsigned = left->kind == ck_integer && right->kind == ck_integer;
    int order = as_unsigned
                    ? cmp_integer_values(left->integer_value, false, right->integer_value, false)
                    : (a < b ? -1 : a > b);
    set_bool_result(result, order_satisfies(op, order));
    return;
  }
  bool is_equality = op == eok_eq || op == eok_ne;
  bool against_null = left->kind == ck_integer || right->kind == ck_integer;
  bool differ =
      is_known_object_against_null(left, right) || is_known_object_against_null(right, left);
  if (constexpr_enabled && !(against_null && (can_be_null(left) || can_be_null(right))))
    differ = true;
  if (is_equality && differ)
    set_bool_result(result, op == eok_ne);
  else
    fold.not_constant = true;
}

void fold_ptr_to_member_comparison(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                                   const a_constant *right, a_constant *result) {
  if (left->kind != ck_ptr_to_member || right->kind != ck_ptr_to_member) {
    fold.not_constant = true;
    return;
  }
  bool equal = left->pm_is_null == right->pm_is_null &&
               left->pm_base_class == right->pm_base_class &&
               left->pm_is_function == right->pm_is_function;
  if (equal && !left->pm_is_null)
    equal = left->pm_is_function ? left->pm_routine == right->pm_routine
                                 : left->pm_field == right->pm_field;
  set_bool_result(result, equal == (op == eok_eq));
}
