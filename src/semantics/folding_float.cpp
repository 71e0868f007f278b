// Folding of real, imaginary and complex values, at the kind of the result.
//
// A complex operation is done by parts, as the run-time routines do it: no infinity or NaN is
// recovered, nothing is scaled.
#include "semantics/folding_internal.h"

a_float_kind float_kind_of(const a_type *type) {
  type = skip_typerefs(type);
  check_invariant(is_floating_type(type));
  return type->float_kind;
}

a_complex_value *new_complex_value() {
  return static_cast<a_complex_value *>(alloc_il(sizeof(a_complex_value)));
}

namespace {

// A value by its two parts, whatever kind of constant it comes from.
struct a_parts {
  simul_fval real, imag;
};

a_parts parts_of(const a_constant *c) {
  switch (c->kind) {
    case ck_complex:
      return {c->complex_value->real_part, c->complex_value->imag_part};
    case ck_imaginary:
      return {pos_zero, c->float_value};
    default:
      return {c->float_value, pos_zero};
  }
}

bool is_complex_constant(const a_constant *c) {
  return c->kind == ck_complex;
}

// Arithmetic at one kind that remembers whether something could not be computed.
class a_float_calculator {
 public:
  explicit a_float_calculator(a_float_kind kind) : kind_(kind) {}
  bool failed() const { return failed_; }

  simul_fval add(const simul_fval &a, const simul_fval &b) { return apply(fp_add, a, b); }
  simul_fval subtract(const simul_fval &a, const simul_fval &b) { return apply(fp_subtract, a, b); }
  simul_fval multiply(const simul_fval &a, const simul_fval &b) { return apply(fp_multiply, a, b); }
  simul_fval divide(const simul_fval &a, const simul_fval &b) { return apply(fp_divide, a, b); }
  simul_fval negate(const simul_fval &a) {
    simul_fval result;
    bool error, range;
    fp_negate(kind_, &a, &result, &error, &range);
    failed_ = failed_ || error;
    return result;
  }

 private:
  using an_operation = void (*)(a_float_kind, const simul_fval *, const simul_fval *, simul_fval *,
                                bool *, bool *);
  simul_fval apply(an_operation operation, const simul_fval &a, const simul_fval &b) {
    simul_fval result;
    bool error, range;
    operation(kind_, &a, &b, &result, &error, &range);
    failed_ = failed_ || error;
    return result;
  }
  a_float_kind kind_;
  bool failed_ = false;
};

void set_parts(a_constant *result, const a_parts &parts) {
  set_constant_kind(result, ck_complex);
  result->complex_value = new_complex_value();
  result->complex_value->real_part = parts.real;
  result->complex_value->imag_part = parts.imag;
}

void set_part(a_constant *result, a_constant_kind kind, const simul_fval &value) {
  set_constant_kind(result, kind);
  result->float_value = value;
}

a_constant_kind constant_kind_of_type(const a_type *type) {
  return is_imaginary_type(type) ? ck_imaginary : ck_float;
}

// An operation that left the range gives infinity, zero or a NaN; it is taken as it is.
void note_float_result(a_fold &fold, const a_float_calculator &calculator, bool is_complex) {
  if (!calculator.failed() || IEEE_handling_on_float_operation_exceptions) return;
  fold.note(is_complex ? ec_bad_complex_operation_result : ec_bad_float_operation_result, es_error);
}

}  // namespace

bool float_constant_is_zero(const a_constant *c) {
  a_parts parts = parts_of(c);
  return fp_is_zero_constant(&parts.real) && fp_is_zero_constant(&parts.imag);
}

// ---- Unary operations --------------------------------------------------------------------------

void fold_float_unary(a_fold &fold, an_expr_operator_kind op, const a_constant *operand,
                      a_constant *result) {
  a_float_calculator calculator(float_kind_of(operand->type));
  a_parts parts = parts_of(operand);
  bool is_complex = is_complex_constant(operand);
  switch (op) {
    case eok_negate:
      if (is_complex)
        set_parts(result, {calculator.negate(parts.real), calculator.negate(parts.imag)});
      else
        set_part(result, operand->kind, calculator.negate(operand->float_value));
      break;
    case eok_conjugate:
      set_parts(result, {parts.real, calculator.negate(parts.imag)});
      break;
    case eok_real_part:
      set_part(result, ck_float, parts.real);
      break;
    case eok_imag_part:
      set_part(result, ck_float, parts.imag);
      break;
    default:
      fold.not_constant = true;
      return;
  }
  note_float_result(fold, calculator, is_complex);
}

// ---- Binary operations -------------------------------------------------------------------------

namespace {

a_parts multiply_parts(a_float_calculator &c, const a_parts &x, const a_parts &y) {
  return {c.subtract(c.multiply(x.real, y.real), c.multiply(x.imag, y.imag)),
          c.add(c.multiply(x.real, y.imag), c.multiply(x.imag, y.real))};
}

a_parts divide_parts(a_float_calculator &c, const a_parts &x, const a_parts &y) {
  simul_fval norm = c.add(c.multiply(y.real, y.real), c.multiply(y.imag, y.imag));
  simul_fval real = c.add(c.multiply(x.real, y.real), c.multiply(x.imag, y.imag));
  simul_fval imag = c.subtract(c.multiply(x.imag, y.real), c.multiply(x.real, y.imag));
  return {c.divide(real, norm), c.divide(imag, norm)};
}

void fold_complex_arithmetic(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                             const a_constant *right, a_constant *result) {
  a_float_calculator c(float_kind_of(result->type));
  a_parts x = parts_of(left), y = parts_of(right);
  switch (op) {
    case eok_add:
      set_parts(result, {c.add(x.real, y.real), c.add(x.imag, y.imag)});
      break;
    case eok_subtract:
      set_parts(result, {c.subtract(x.real, y.real), c.subtract(x.imag, y.imag)});
      break;
    case eok_multiply:
      set_parts(result, multiply_parts(c, x, y));
      break;
    case eok_divide:
      set_parts(result, divide_parts(c, x, y));
      break;
    case eok_real_plus_imag:
    case eok_imag_plus_real:
      set_parts(result, {c.add(x.real, y.real), c.add(x.imag, y.imag)});
      break;
    case eok_real_minus_imag:
    case eok_imag_minus_real:
      set_parts(result, {c.subtract(x.real, y.real), c.subtract(x.imag, y.imag)});
      break;
    default:
      fold.not_constant = true;
      return;
  }
  note_float_result(fold, c, true);
}

// Two real or two imaginary operands, or one of each.
void fold_real_arithmetic(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                          const a_constant *right, a_constant *result) {
  a_float_calculator c(float_kind_of(result->type));
  const simul_fval &x = left->float_value, &y = right->float_value;
  simul_fval value;
  switch (op) {
    case eok_add:
      value = c.add(x, y);
      break;
    case eok_subtract:
      value = c.subtract(x, y);
      break;
    case eok_multiply:
      value = c.multiply(x, y);
      break;
    case eok_divide:
      value = c.divide(x, y);
      break;
    case eok_imag_multiply:
      value = c.negate(c.multiply(x, y));
      break;
    case eok_imag_divide:
      value = c.negate(c.divide(x, y));
      break;
    default:
      fold.not_constant = true;
      return;
  }
  set_part(result, constant_kind_of_type(result->type), value);
  note_float_result(fold, c, false);
}

void fold_float_comparison(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                           const a_constant *right, a_constant *result) {
  bool unordered = false, unordered_imag = false;
  if (is_complex_constant(left) || is_complex_constant(right)) {
    a_parts x = parts_of(left), y = parts_of(right);
    bool equal = fp_compare(fk_double, &x.real, &y.real, &unordered) == 0 &&
                 fp_compare(fk_double, &x.imag, &y.imag, &unordered_imag) == 0;
    equal = equal && !unordered && !unordered_imag;
    if (op == eok_eq || op == eok_ne)
      set_bool_result(result, equal == (op == eok_eq));
    else
      fold.not_constant = true;
    return;
  }
  a_float_kind kind = float_kind_of(left->type);
  int order = fp_compare(kind, &left->float_value, &right->float_value, &unordered);
  set_bool_result(result, unordered ? op == eok_ne : order_satisfies(op, order));
}

void fold_float_choice(an_expr_operator_kind op, const a_constant *left, const a_constant *right,
                       a_constant *result) {
  bool unordered;
  int order =
      fp_compare(float_kind_of(left->type), &left->float_value, &right->float_value, &unordered);
  bool take_left = !unordered && (op == eok_min ? order < 0 : order > 0);
  copy_constant_with_type(take_left ? left : right, result, result->type);
}

}  // namespace

void fold_float_binary(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                       const a_constant *right, a_constant *result) {
  if (op >= eok_eq && op <= eok_le) {
    fold_float_comparison(fold, op, left, right, result);
    return;
  }
  if (!is_floating_type(result->type)) {
    fold.not_constant = true;
    return;
  }
  if ((op == eok_divide || op == eok_imag_divide) && float_constant_is_zero(right) &&
      !IEEE_handling_on_float_operation_exceptions) {
    fold.note(ec_divide_by_zero, es_error);
    return;
  }
  if ((op == eok_min || op == eok_max) && !is_complex_constant(left) && !is_complex_constant(right))
    fold_float_choice(op, left, right, result);
  else if (is_complex_type(result->type))
    fold_complex_arithmetic(fold, op, left, right, result);
  else
    fold_real_arithmetic(fold, op, left, right, result);
}

// ---- Conversions -------------------------------------------------------------------------------

namespace {

simul_fval change_part(const simul_fval &value, a_float_kind from, a_float_kind to, bool *failed) {
  simul_fval result;
  bool error, range;
  fp_change_kind(&value, from, &result, to, &error, &range);
  *failed = *failed || error;
  return result;
}

}  // namespace

void change_float_constant(const a_constant *from, a_constant *to, bool *failed) {
  a_float_kind from_kind = float_kind_of(from->type), to_kind = float_kind_of(to->type);
  a_parts parts = parts_of(from);
  *failed = false;
  switch (skip_typerefs(to->type)->kind) {
    case tk_complex: {
      simul_fval real = change_part(parts.real, from_kind, to_kind, failed);
      simul_fval imag = change_part(parts.imag, from_kind, to_kind, failed);
      set_parts(to, {real, imag});
      break;
    }
    case tk_imaginary:
      set_part(to, ck_imaginary, change_part(parts.imag, from_kind, to_kind, failed));
      break;
    default:
      set_part(to, ck_float, change_part(parts.real, from_kind, to_kind, failed));
      break;
  }
}

void conv_float_to_integer(const a_constant *from, a_constant *to, an_error_code *code,
                           int *severity, bool *error, bool lenient) {
  a_float_kind kind = float_kind_of(from->type);
  simul_fval value = parts_of(from).real;
  bool is_signed = is_signed_integral_type(to->type);
  bool is_negative = fp_is_negative(kind, &value);
  a_host_large_integer word = 0;
  bool failed, unused;
  if (is_negative || is_signed) {
    std::int64_t signed_word;
    fp_to_host_large_integer(kind, &value, &signed_word, &failed, &unused);
    word = static_cast<a_host_large_integer>(signed_word);
    if (is_negative && !is_signed && signed_word != 0) failed = true;
  } else {
    fp_to_host_large_unsigned(kind, &value, &word, &failed, &unused);
  }
  bool saturate = gcc_mode && gnu_version >= 30400;
  if (failed && saturate) make_saturated_integer_for_float(kind, &value, &word, to);
  an_error_code range_code = ec_no_error;
  int range_severity = es_warning;
  trunc_and_set_integer(&word, to, !failed, saturate, &range_code, &range_severity);
  *error = failed || range_code != ec_no_error;
  if (!*error) return;
  *code = ec_float_to_integer_conversion;
  *severity = lenient && gcc_mode ? es_warning : es_error;
}
