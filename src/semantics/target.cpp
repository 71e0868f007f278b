// The built-in configuration of the target, and what follows from it.
//
// Two parameters depend on the ABI in several rows of the table (the macro A): they are filled from
// the rows again when the ABI changes.
#include "semantics/target.h"

#include <cinttypes>
#include <cstring>

#include "TYPES/type_pkg.h"
#include "driver/switches.h"
#include "il/il_entity.h"
#include "semantics/types.h"
#include "target/arm_util.h"

#define TARGET_NUMBER(name, value, meaning) int name;
#define TARGET_FLAG(name, value, meaning) bool name;
#define TARGET_LARGE(name, value, meaning) std::uint64_t name;
#define TARGET_KIND(name, value, meaning) an_integer_kind name;
#define TARGET_MODE(name, value, meaning) a_machine_mode name;
#include "semantics/target.def"

bool is_eabi, is_aeabi;
const char *vfp_support;
bool softfp_support;
int target_configuration_index;
const char *auxiliary_info_dir_name;
an_integer_kind plain_char_int_kind;
int character_size[num_string_char_kinds];

namespace {

int abi_alignment() {
  return is_eabi ? 8 : 4;
}

struct an_integer_model {
  int size, precision, alignment;
};

an_integer_model model_of_integer_kind(an_integer_kind kind) {
  switch (kind) {
    case ik_char:
    case ik_signed_char:
    case ik_unsigned_char:
      return {1, targ_char_bit, 1};
    case ik_short:
    case ik_unsigned_short:
      return {targ_sizeof_short, targ_precisionof_short, targ_alignof_short};
    case ik_int:
    case ik_unsigned_int:
      return {targ_sizeof_int, targ_precisionof_int, targ_alignof_int};
    case ik_long:
    case ik_unsigned_long:
      return {targ_sizeof_long, targ_precisionof_long, targ_alignof_long};
    case ik_long_long:
    case ik_unsigned_long_long:
      return {targ_sizeof_long_long, targ_precisionof_long_long, targ_alignof_long_long};
    default:
      unexpected_state("no such integer kind");
  }
}

// The kinds in the order in which a kind for a size is looked for.
constexpr an_integer_kind signed_kinds[] = {ik_signed_char, ik_short, ik_int, ik_long,
                                            ik_long_long};
constexpr an_integer_kind unsigned_kinds[] = {ik_unsigned_char, ik_unsigned_short, ik_unsigned_int,
                                              ik_unsigned_long, ik_unsigned_long_long};

template <typename PREDICATE>
an_integer_kind first_kind_with(bool is_signed, PREDICATE fits) {
  for (an_integer_kind kind : is_signed ? signed_kinds : unsigned_kinds)
    if (fits(model_of_integer_kind(kind))) return kind;
  return ik_last;
}

// One line of the dumped configuration: "#define TARG_SIZEOF_INT_NAME 4".
class a_configuration_dump {
 public:
  a_configuration_dump(std::FILE *stream, const char *name) : stream_(stream), name_(name) {}
  void row(const char *parameter, std::int64_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "%" PRId64, value);
    row(parameter, text);
  }
  void row(const char *parameter, const char *value) {
    char upper[80];
    std::size_t length = std::strlen(parameter);
    check_invariant(length < sizeof upper);
    for (std::size_t i = 0; i <= length; ++i)
      upper[i] =
          parameter[i] >= 'a' && parameter[i] <= 'z' ? parameter[i] - 'a' + 'A' : parameter[i];
    std::fprintf(stream_, "#define %s_%s %s\n", upper, name_, value);
  }

 private:
  std::FILE *stream_;
  const char *name_;
};

}  // namespace

void set_target_configuration(int index) {
  target_configuration_index = index;
  auxiliary_info_dir_name = "lib";
#define A abi_alignment()
#define TARGET_NUMBER(name, value, meaning) name = value;
#define TARGET_FLAG(name, value, meaning) name = value;
#define TARGET_LARGE(name, value, meaning) name = value;
#define TARGET_KIND(name, value, meaning) name = value;
#define TARGET_MODE(name, value, meaning) name = value;
#include "semantics/target.def"
#undef A
  packing_applies_to_base_classes = true;
}

int find_target_configuration(const char *) {
  return -1;
}

void dump_target_configuration(std::FILE *stream, const char *name) {
  std::fprintf(stream, "/* Target configuration: %s */\n", name);
  std::fprintf(stream, "#define TARGET_CONFIGURATION_1 %s\n", name);
  a_configuration_dump dump(stream, name);
  bool in_configuration = true;
#define TARGET_NUMBER(parameter, value, meaning) \
  if (in_configuration) dump.row(#parameter, parameter);
#define TARGET_FLAG(parameter, value, meaning) \
  if (in_configuration) dump.row(#parameter, parameter ? 1 : 0);
#define TARGET_LARGE(parameter, value, meaning) \
  if (in_configuration) dump.row(#parameter, static_cast<std::int64_t>(parameter));
#define TARGET_KIND(parameter, value, meaning) \
  if (in_configuration) dump.row(#parameter, #value);
#define TARGET_MODE(parameter, value, meaning) \
  if (in_configuration) dump.row(#parameter, #value);
#define TARGET_END_OF_CONFIGURATION in_configuration = false;
#include "semantics/target.def"
}

void reset_internal_type_sizes() {
  targ_alignof_long_long = targ_alignof_double = targ_alignof_long_double = abi_alignment();
  targ_long_long_field_alignment = targ_double_field_alignment = targ_long_double_field_alignment =
      abi_alignment();
}

void set_eabi() {
  is_eabi = is_aeabi = true;
  TYPE_PKG::abi = true;
  reset_internal_type_sizes();
  targ_unnamed_bit_field_affects_struct_alignment = true;
  targ_supports_non_int_bit_field = true;
  targ_max_bit_field_size = targ_char_bit * targ_sizeof_long_long;
}

void set_wchar_t_bits(int bits) {
  int size = (bits == 32 ? 32 : 16) / targ_char_bit;
  TYPE_PKG::wchar_t_size_in_bits = static_cast<std::uint32_t>(size * targ_char_bit);
  if (size == targ_sizeof_int)
    targ_wchar_t_int_kind = ik_unsigned_int;
  else if (size == targ_sizeof_short)
    targ_wchar_t_int_kind = ik_unsigned_short;
  else
    targ_wchar_t_int_kind = ik_unsigned_long;
  targ_sizeof_wchar_t = size;
}

void set_long_to_32_bits() {
  targ_sizeof_long = targ_alignof_long = 4;
  targ_precisionof_long = 32;
}

void set_minimum_struct_alignment(int alignment) {
  targ_minimum_struct_alignment = targ_top_structaln = alignment;
}

void get_integer_size_and_alignment(an_integer_kind kind, std::uint64_t *size,
                                    std::uint64_t *precision, std::uint32_t *alignment) {
  an_integer_model model = model_of_integer_kind(kind);
  *size = static_cast<std::uint64_t>(model.size);
  *precision = static_cast<std::uint64_t>(model.precision);
  *alignment = static_cast<std::uint32_t>(model.alignment);
}

int precision_of_integer_kind(an_integer_kind kind) {
  return model_of_integer_kind(kind).precision;
}

void get_float_size_and_alignment(a_float_kind kind, std::uint64_t *size,
                                  std::uint32_t *alignment) {
  const int models[fk_last][2] = {{targ_sizeof_float, targ_alignof_float},
                                  {targ_sizeof_double, targ_alignof_double},
                                  {targ_sizeof_long_double, targ_alignof_long_double},
                                  {targ_sizeof_float80, targ_alignof_float80},
                                  {targ_sizeof_float128, targ_alignof_float128}};
  check_invariant(kind < fk_last);
  *size = static_cast<std::uint64_t>(models[kind][0]);
  *alignment = static_cast<std::uint32_t>(models[kind][1]);
}

int mantissa_digits_of_float_kind(a_float_kind kind) {
  const int digits[fk_last] = {targ_flt_mant_dig, targ_dbl_mant_dig, targ_ldbl_mant_dig,
                               targ_flt80_mant_dig, targ_flt128_mant_dig};
  check_invariant(kind < fk_last);
  return digits[kind];
}

an_integer_kind int_kind_for_size_and_alignment(std::uint64_t size, std::uint32_t alignment,
                                                bool is_signed) {
  return first_kind_with(is_signed, [&](const an_integer_model &model) {
    return static_cast<std::uint64_t>(model.size) == size &&
           static_cast<std::uint32_t>(model.alignment) == alignment;
  });
}

an_integer_kind int_kind_for_bit_size(int bits, bool is_signed) {
  return first_kind_with(
      is_signed, [&](const an_integer_model &model) { return model.size * targ_char_bit == bits; });
}

std::uint64_t size_of_pointer_to(const a_type *, std::uint32_t *alignment) {
  *alignment = static_cast<std::uint32_t>(targ_alignof_pointer);
  return static_cast<std::uint64_t>(targ_sizeof_pointer);
}

std::uint32_t top_level_alignment(const a_variable *variable) {
  const a_type *type = skip_typerefs(variable->type);
  if (type->kind == tk_array) return static_cast<std::uint32_t>(TRG_top_aryaln(type->kind));
  if (is_class_kind(type->kind)) return static_cast<std::uint32_t>(targ_top_structaln);
  return f_alignment_of_type(variable->type);
}

void target_early_init() {
  is_eabi = is_aeabi = false;
  TYPE_PKG::abi = false;
  TYPE_PKG::wchar_t_size_in_bits = 16;
  vfp_support = nullptr;
  softfp_support = false;
  set_target_configuration(-1);
  targ_top_structaln = targ_minimum_struct_alignment;
  distinct_template_signatures = true;
  assume_references_cannot_be_null = false;
  assume_this_cannot_be_null_in_conditional_operators = true;
  pass_stdarg_references_to_generated_code = false;
  va_list_in_std_namespace = true;
  TRG_parse_versions("4");
}

void target_one_time_init() {
  auto size_of = [](an_integer_kind kind) { return model_of_integer_kind(kind).size; };
  targ_sizeof_wchar_t = size_of(targ_wchar_t_int_kind);
  targ_sizeof_char16_t = size_of(targ_char16_t_int_kind);
  targ_sizeof_char32_t = size_of(targ_char32_t_int_kind);
  character_size[chk_char] = 1;
  character_size[chk_wchar_t] = targ_sizeof_wchar_t;
  character_size[chk_char16_t] = targ_sizeof_char16_t;
  character_size[chk_char32_t] = targ_sizeof_char32_t;
  targ_sizeof_largest_integer = targ_sizeof_long_long;
}

void target_init() {
  plain_char_int_kind = ik_char;
  if (in_pcc_mode())
    plain_char_int_kind = targ_has_signed_chars ? ik_signed_char : ik_unsigned_char;
  int_kind_is_signed[ik_char] = targ_has_signed_chars;
  string_literals_shared = !in_pcc_mode();
  targ_intmax_kind = ik_long_long;
  targ_uintmax_kind = ik_unsigned_long_long;
  if (targ_max_class_object_size == 0) targ_max_class_object_size = targ_size_t_max;
  std::uint64_t delta_max = (1ULL << (precision_of_integer_kind(targ_delta_int_kind) - 1)) - 1;
  if (targ_max_base_class_offset > delta_max) targ_max_base_class_offset = delta_max;
  if (targ_max_base_class_offset > targ_size_t_max) targ_max_base_class_offset = targ_size_t_max;
  always_fold_calls_to_builtin_constant_p = true;
}
