// Folding of integers. A word holds the operands sign- or zero-extended from their types, so that
// the operations of 64 bits give the true result of all narrower types, and only its range is left
// to be looked at. Unsigned results wrap in silence.
#include "semantics/folding_internal.h"

// ---- Storing a word ----------------------------------------------------------------------------

namespace {

const a_type *integer_type_of(const a_constant *c) {
  const a_type *type = skip_typerefs(c->type);
  check_invariant(type->kind == tk_integer);
  return type;
}

int precision_of(const a_constant *c) {
  return precision_of_integer_kind(integer_type_of(c)->int_kind);
}

}  // namespace

void trunc_and_set_integer(const a_host_large_integer *value, a_constant *constant, bool check,
                           bool saturate, an_error_code *code, int *severity) {
  an_integer_kind kind = integer_type_of(constant)->int_kind;
  bool is_signed = int_kind_is_signed[kind] != 0;
  set_constant_kind(constant, ck_integer);
  constant->integer_value = *value;
  if (value_in_range_for_integer_kind(*value, is_signed, kind)) return;
  if (check && *code == ec_no_error) {
    *code = ec_integer_overflow;
    *severity = strict_ansi_mode ? strict_ansi_error_severity : es_warning;
  }
  if (saturate) {
    bool is_negative = is_signed && static_cast<std::int64_t>(*value) < 0;
    constant->integer_value =
        is_negative ? min_integer_value_of_kind[kind] : max_integer_value_of_kind[kind];
    return;
  }
  truncate_integer_value(&constant->integer_value, precision_of_integer_kind(kind), is_signed);
}

void set_folded_integer(a_fold &fold, a_host_large_integer value, bool overflow,
                        a_constant *result) {
  bool is_signed = is_signed_integral_type(result->type);
  if (is_signed && overflow) fold.note_overflow();
  trunc_and_set_integer(&value, result, is_signed, false, &fold.code, &fold.severity);
}

void set_bool_result(a_constant *result, bool value) {
  set_constant_kind(result, ck_integer);
  result->integer_value = value ? 1 : 0;
}

// ---- Conversions -------------------------------------------------------------------------------

void conv_integer_to_integer(const a_constant *from, a_constant *to, bool check,
                             an_error_code *code, int *severity) {
  if (is_incomplete_type(to->type)) {
    *code = ec_incomplete_type_not_allowed;
    *severity = es_error;
    return;
  }
  if (from->kind == ck_address_difference) {
    copy_constant_with_type(from, to, to->type);
    return;
  }
  an_integer_kind kind = integer_type_of(to)->int_kind;
  bool from_is_signed = int_constant_is_signed(from);
  a_host_large_integer value = from->integer_value;
  a_host_large_integer converted = value;
  truncate_integer_value(&converted, precision_of_integer_kind(kind),
                         int_kind_is_signed[kind] != 0);
  set_constant_kind(to, ck_integer);
  to->integer_value = converted;
  if (!check || is_ptr_or_ref_type(from->type)) return;
  bool changed =
      cmp_integer_values(value, from_is_signed, converted, int_kind_is_signed[kind] != 0) != 0;
  if (!changed) return;
  const a_type *source = skip_typerefs(from->type);
  bool narrower = source->kind == tk_integer &&
                  precision_of_integer_kind(kind) < precision_of_integer_kind(source->int_kind);
  a_host_large_integer kept = value, mask;
  make_integer_value_mask(&mask, precision_of_integer_kind(kind));
  kept &= mask;
  // Bits were lost unless those cut off only repeat the sign.
  bool only_sign_bits = from_is_signed && static_cast<std::int64_t>(value) < 0 &&
                        (value | mask) == ~a_host_large_integer{0};
  if (narrower && kept != value && !only_sign_bits) {
    *code = ec_integer_truncated;
    *severity = es_warning;
  } else if (!from->not_an_overflow) {
    *code = ec_integer_sign_change;
    *severity = es_warning;
  }
}

// ---- Unary operations --------------------------------------------------------------------------

void fold_integer_unary(a_fold &fold, an_expr_operator_kind op, const a_constant *operand,
                        a_constant *result) {
  a_host_large_integer value = operand->integer_value;
  bool overflow = false;
  switch (op) {
    case eok_negate:
      if (!is_signed_integral_type(result->type)) {
        value = a_host_large_integer{0} - value;
        set_folded_integer(fold, value, false, result);
        result->not_an_overflow = true;
        break;
      }
      negate_integer_value(&value, &overflow);
      set_folded_integer(fold, value, overflow, result);
      if (in_pcc_mode() && operand->not_an_overflow) fold.code = ec_no_error;
      break;
    case eok_complement:
      value = ~value;
      trunc_and_set_integer(&value, result, false, false, &fold.code, &fold.severity);
      result->not_an_overflow = true;
      break;
    case eok_real_part:
      set_folded_integer(fold, value, false, result);
      break;
    case eok_imag_part:
      set_folded_integer(fold, 0, false, result);
      break;
    default:
      fold.not_constant = true;
      break;
  }
}

// ---- Shifts ------------------------------------------------------------------------------------

namespace {

an_error_code check_shift_count(const a_constant *count, int precision) {
  if (cmplit_integer_constant(count, 0) < 0) return ec_negative_shift_count;
  if (cmplit_integer_constant(count, precision) >= 0) return ec_shift_count_too_large;
  return ec_no_error;
}

void shift_once(an_expr_operator_kind op, a_host_large_integer *value, int count, bool is_signed,
                int precision) {
  if (op == eok_shift_left) {
    bool overflow;
    shift_left_integer_value(value, count, &overflow);
    truncate_integer_value(value, precision, is_signed);
    return;
  }
  if (is_signed && !targ_right_shift_is_arithmetic) {
    a_host_large_integer mask;
    make_integer_value_mask(&mask, precision);
    *value &= mask;
    shift_right_integer_value(value, count, false, false);
    return;
  }
  shift_right_integer_value(value, count, is_signed, true);
}

void fold_shift(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                const a_constant *right, a_constant *result) {
  int precision = precision_of(left);
  bool is_signed = int_constant_is_signed(left);
  a_host_large_integer value = left->integer_value;
  an_error_code code = check_shift_count(right, precision);
  if (code != ec_no_error && !(code == ec_shift_count_too_large && gnu_mode)) {
    fold.note(code, es_error);
    return;
  }
  if (code == ec_no_error) {
    shift_once(op, &value, static_cast<int>(right->integer_value), is_signed, precision);
  } else if (targ_too_large_shift_count_is_taken_modulo_size) {
    a_host_large_integer bits = static_cast<unsigned>(precision);
    shift_once(op, &value, static_cast<int>(right->integer_value % bits), is_signed, precision);
  } else {
    shift_once(op, &value, precision - 1, is_signed, precision);
    shift_once(op, &value, 1, is_signed, precision);
  }
  trunc_and_set_integer(&value, result, false, false, &fold.code, &fold.severity);
  result->not_an_overflow = right->integer_value == 0;
}

// ---- Binary operations -------------------------------------------------------------------------

void fold_divide(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                 const a_constant *right, a_constant *result) {
  bool is_signed = int_constant_is_signed(left);
  a_host_large_integer value = left->integer_value;
  if (right->integer_value == 0) {
    fold.note(op == eok_divide ? ec_divide_by_zero : ec_mod_by_zero, es_error);
    return;
  }
  // The minimum by -1: the quotient does not fit, and the target traps or wraps.
  an_integer_kind kind = integer_type_of(left)->int_kind;
  bool overflow = is_signed && value == min_integer_value_of_kind[kind] &&
                  right->integer_value == ~a_host_large_integer{0};
  if (overflow) {
    set_folded_integer(fold, op == eok_divide ? value : 0, true, result);
    return;
  }
  if (op == eok_divide)
    divide_integer_values(&value, right->integer_value, is_signed, &overflow);
  else
    remainder_integer_values(&value, right->integer_value, is_signed, &overflow);
  set_folded_integer(fold, value, overflow, result);
}

void fold_arithmetic(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                     const a_constant *right, a_constant *result) {
  bool is_signed = int_constant_is_signed(left);
  a_host_large_integer value = left->integer_value;
  bool overflow = false;
  switch (op) {
    case eok_add:
      add_integer_values(&value, right->integer_value, is_signed, &overflow);
      break;
    case eok_subtract:
      subtract_integer_values(&value, right->integer_value, is_signed, &overflow);
      break;
    default:
      multiply_integer_values(&value, right->integer_value, is_signed, &overflow);
      break;
  }
  if (!is_signed) {
    truncate_integer_value(&value, precision_of(result), false);
    overflow = false;
  }
  set_folded_integer(fold, value, overflow, result);
}

void fold_bits(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
               const a_constant *right, a_constant *result) {
  a_host_large_integer a = left->integer_value, b = right->integer_value;
  a_host_large_integer value = op == eok_and ? a & b : op == eok_or ? a | b : a ^ b;
  trunc_and_set_integer(&value, result, false, false, &fold.code, &fold.severity);
  result->not_an_overflow = true;
}

}  // namespace

bool order_satisfies(an_expr_operator_kind op, int order) {
  switch (op) {
    case eok_eq:
      return order == 0;
    case eok_ne:
      return order != 0;
    case eok_gt:
      return order > 0;
    case eok_lt:
      return order < 0;
    case eok_ge:
      return order >= 0;
    default:
      return order <= 0;
  }
}

void fold_integer_binary(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                         const a_constant *right, a_type *, a_constant *result) {
  switch (op) {
    case eok_add:
    case eok_subtract:
    case eok_multiply:
      fold_arithmetic(fold, op, left, right, result);
      break;
    case eok_divide:
    case eok_remainder:
      fold_divide(fold, op, left, right, result);
      break;
    case eok_shift_left:
    case eok_shift_right:
      fold_shift(fold, op, left, right, result);
      break;
    case eok_and:
    case eok_or:
    case eok_xor:
      fold_bits(fold, op, left, right, result);
      break;
    case eok_eq:
    case eok_ne:
    case eok_gt:
    case eok_lt:
    case eok_ge:
    case eok_le:
      set_bool_result(result, order_satisfies(op, cmp_integer_constants(left, right)));
      break;
    case eok_min:
    case eok_max: {
      int order = cmp_integer_constants(left, right);
      bool take_left = op == eok_min ? order < 0 : order > 0;
      copy_constant_with_type(take_left ? left : right, result, result->type);
      break;
    }
    default:
      fold.not_constant = true;
      break;
  }
}
