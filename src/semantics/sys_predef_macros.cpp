// The macros that tell a program of the system and its target, as tables: a name, its text, and the
// condition under which it is there.
#include <cstdio>
#include <cstring>

#include "driver/switches.h"
#include "options/configuration.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "source/macro.h"
#include "target/arm_arch.h"

namespace {

void define(const char *name, const char *text = "1") {
  enter_predef_macro(name, text, mf_predefined);
}

void define_if(bool condition, const char *name, const char *text = "1") {
  if (condition) define(name, text);
}

void define_number(const char *name, std::uint64_t value) {
  char text[24];
  std::snprintf(text, sizeof text, "%llu", static_cast<unsigned long long>(value));
  define(name, text);
}

// "4.13.2" gives 4013002.
void define_compiler_version() {
  unsigned major = 0, minor = 0, patch = 0;
  std::sscanf(tool_version, "%u.%u.%u", &major, &minor, &patch);
  char text[32];
  std::snprintf(text, sizeof text, "%u%03u%03u", major, minor, patch);
  define("__QX_COMPILER_VERSION__", text);
  define("__COMPILER_VERSION__", text);
}

int size_of_kind(an_integer_kind kind) {
  return precision_of_integer_kind(kind) / targ_char_bit;
}

void define_byte_order() {
  const char *order = targ_little_endian ? "little" : "big";
  define(order[0] == 'l' ? "__little_endian__" : "__big_endian__");
  define(order[0] == 'l' ? "__LITTLE_ENDIAN__" : "__BIG_ENDIAN__");
}

void define_limits() {
  define("__CHAR_BIT__", "8");
  define("__SCHAR_MAX__", "127");
  define("__SHRT_MAX__", "32767");
  define("__INT_MAX__", "2147483647");
  define("__LONG_MAX__", "2147483647");
  define("__LONG_LONG_MAX__", "9223372036854775807");
}

void define_sizes() {
  struct a_size_row {
    const char *name;
    int size;
  };
  const a_size_row rows[] = {
      {"__SIZEOF_INT__", targ_sizeof_int},
      {"__SIZEOF_SHORT__", targ_sizeof_short},
      {"__SIZEOF_LONG__", targ_sizeof_long},
      {"__SIZEOF_LONG_LONG__", targ_sizeof_long_long},
      {"__SIZEOF_WCHAR_T__", targ_sizeof_wchar_t},
      {"__SIZEOF_FLOAT__", targ_sizeof_float},
      {"__SIZEOF_DOUBLE__", targ_sizeof_double},
      {"__SIZEOF_LONG_DOUBLE__", targ_sizeof_long_double},
      {"__SIZEOF_SIZE_T__", size_of_kind(targ_size_t_int_kind)},
      {"__SIZEOF_WINT_T__", size_of_kind(targ_wint_t_int_kind)},
      {"__SIZEOF_PTRDIFF_T__", size_of_kind(targ_ptrdiff_t_int_kind)},
  };
  for (const a_size_row &row : rows)
    define_number(row.name, static_cast<std::uint64_t>(row.size));
}

// ---- The target --------------------------------------------------------------------------------

struct a_macro_row {
  const char *name;
  const char *text;
};

void define_rows(const a_macro_row *rows) {  // up to a null name
  for (; rows->name != nullptr; ++rows)
    define(rows->name, rows->text);
}

constexpr a_macro_row vfpv2_rows[] = {
    {"__QX_VFPV2_SUPPORT__", "1"}, {"__ARM_FP", "12"}, {nullptr, nullptr}};
constexpr a_macro_row vfpv3_rows[] = {
    {"__QX_VFPV3_SUPPORT__", "1"}, {"__ARM_FP", "12"}, {nullptr, nullptr}};
constexpr a_macro_row vfpv3d16_rows[] = {
    {"__QX_VFPV3D16_SUPPORT__", "1"}, {"__ARM_FP", "12"}, {nullptr, nullptr}};
constexpr a_macro_row fpv4spd16_rows[] = {{"__QX_FPV4SPD16_SUPPORT__", "1"},
                                          {"__QX_FPv4SPD16_SUPPORT__", "1"},
                                          {"__ARM_FEATURE_FMA", "1"},
                                          {"__ARM_FP", "6"},
                                          {nullptr, nullptr}};
constexpr a_macro_row any_vfp_rows[] = {{"__QX_VFP_SUPPORT__", "1"},
                                        {"__ARM_FP16_ARGS", "1"},
                                        {"__ARM_FP16_FORMAT_IEEE", "1"},
                                        {"__ARM_PCS_VFP", "1"},
                                        {nullptr, nullptr}};

void define_floating_point_unit() {
  struct a_unit {
    const char *name;
    const a_macro_row *rows;
  };
  constexpr a_unit units[] = {{"VFPv2", vfpv2_rows},
                              {"VFPv3", vfpv3_rows},
                              {"VFPv3D16", vfpv3d16_rows},
                              {"FPv4SPD16", fpv4spd16_rows}};
  if (vfp_support != nullptr) {
    for (const a_unit &unit : units)
      if (std::strcmp(unit.name, vfp_support) == 0) define_rows(unit.rows);
    define_rows(any_vfp_rows);
  }
  define_if(softfp_support, "__QX_VFPLIB_SUPPORT__");
}

constexpr a_macro_row v4_rows[] = {
    {"__QX_QRM900_V4__", "1"}, {"__QX_ARM_V4__", "1"}, {"__ARM_ARCH", "4"}, {nullptr, nullptr}};
constexpr a_macro_row v5_rows[] = {
    {"__QX_QRM900_V5__", "1"}, {"__QX_ARM_V5__", "1"}, {"__ARM_ARCH", "5"}, {nullptr, nullptr}};
constexpr a_macro_row v6_rows[] = {
    {"__QX_QRM900_V6__", "1"}, {"__QX_ARM_V6__", "1"}, {"__ARM_ARCH", "6"}, {nullptr, nullptr}};
constexpr a_macro_row v6m0_rows[] = {{"__QX_ARM_V6M0__", "1"}, {"__ARM_32BIT_STATE", "1"},
                                     {"__ARM_PCS", "1"},       {"__ARM_ARCH_ISA_THUMB", "1"},
                                     {"__ARM_ARCH", "6"},      {"__ARM_ARCH_PROFILE", "77"},
                                     {"__ARM_ACLE", "200"},    {nullptr, nullptr}};
constexpr a_macro_row v7_rows[] = {
    {"__QX_QRM900_V7__", "1"},  {"__QX_ARM_V7__", "1"},        {"__ARM_32BIT_STATE", "1"},
    {"__ARM_FEATURE_CLZ", "1"}, {"__ARM_FEATURE_SAT", "1"},    {"__ARM_FEATURE_UNALIGNED", "1"},
    {"__ARM_ARCH", "7"},        {"__ARM_ARCH_ISA_THUMB", "2"}, {nullptr, nullptr}};
constexpr a_macro_row v7m3_rows[] = {{"__QX_QRM900_V7M3__", "1"}, {"__QX_ARM_V7M3__", "1"},
                                     {"__ARM_PCS", "1"},          {"__ARM_ARCH_PROFILE", "77"},
                                     {"__ARM_ACLE", "200"},       {nullptr, nullptr}};
constexpr a_macro_row v7m4_rows[] = {{"__QX_QRM900_V7M4__", "1"},
                                     {"__QX_ARM_V7M4__", "1"},
                                     {"__ARM_PCS", "1"},
                                     {"__ARM_FEATURE_DSP", "1"},
                                     {"__ARM_FEATURE_SIMD32", "1"},
                                     {"__ARM_ARCH_PROFILE", "77"},
                                     {"__ARM_ACLE", "200"},
                                     {nullptr, nullptr}};
constexpr a_macro_row v7a8_rows[] = {{"__QX_QRM900_V7A8__", "1"},
                                     {"__QX_ARM_V7A8__", "1"},
                                     {"__ARM_ARCH_ISA_ARM", "1"},
                                     {"__ARM_ARCH_PROFILE", "65"},
                                     {nullptr, nullptr}};
constexpr a_macro_row v7r4_rows[] = {
    {"__QX_QRM900_V7R4__", "1"}, {"__QX_ARM_V7R4__", "1"}, {nullptr, nullptr}};
constexpr a_macro_row v7r5_rows[] = {
    {"__QX_QRM900_V7R5__", "1"}, {"__QX_ARM_V7R5__", "1"}, {nullptr, nullptr}};
constexpr a_macro_row v7r_rows[] = {{"__ARM_PCS", "1"},
                                    {"__ARM_ARCH_ISA_ARM", "1"},
                                    {"__ARM_FEATURE_DSP", "1"},
                                    {"__ARM_FEATURE_SIMD32", "1"},
                                    {"__ARM_ARCH_PROFILE", "82"},
                                    {"__ARM_ACLE", "200"},
                                    {nullptr, nullptr}};

void define_v7(int architecture) {
  define_rows(v7_rows);
  define("__ARM_FEATURE_LDREX", arm_arch_types.is_v7m() ? "7" : "15");
  switch (architecture) {
    case arch_7M3:
      define_rows(v7m3_rows);
      break;
    case arch_7M4:
      define_rows(v7m4_rows);
      break;
    case arch_7A8:
      define_rows(v7a8_rows);
      break;
    case arch_7R5:
      define_rows(v7r4_rows);
      define_rows(v7r5_rows);
      define_rows(v7r_rows);
      break;
    default:
      define_rows(v7r4_rows);
      define_rows(v7r_rows);
      break;
  }
}

void define_architecture() {
  int architecture = arm_arch_types.value();
  switch (architecture) {
    case arch_4:
      define_rows(v4_rows);
      break;
    case arch_5e:
      define_rows(v5_rows);
      break;
    case arch_6:
      define_rows(v6_rows);
      break;
    case arch_6M0:
      define_rows(v6m0_rows);
      break;
    case arch_7A8:
    case arch_7M3:
    case arch_7M4:
    case arch_7R4:
    case arch_7R5:
      define_v7(architecture);
      break;
    default:
      break;
  }
}

}  // namespace

void TRG_enter_system_specific_macros() {
  define("__QRM900__");
  define("__QX_ARM__");
  define_if(!targ_little_endian, "__ARM_BIG_ENDIAN");
  define_if(targ_code_state == 32, "__32bis__");
  define_if(targ_code_state == 16, "__16bis__");
  define_if(is_eabi, "__eabi__");
  define_if(is_eabi, "__QX_EABI_SUPPORT__");
  define_floating_point_unit();
  define_architecture();
  define_if(targ_is_neon, "__QX_NEON_SUPPORT__");
  define("__SIZE_T_TYPE__", "unsigned");
  define("__PTRDIFF_T_TYPE__", "int");
  define("__ARM_SIZEOF_MINIMAL_ENUM", targ_enum_types_can_be_smaller_than_int ? "1" : "4");
  bool wide = targ_sizeof_wchar_t * targ_char_bit == 32;
  define("__WCHAR_T_TYPE__", wide ? "unsigned int" : "unsigned short");
  define("__ARM_SIZEOF_WCHAR_T", wide ? "4" : "2");
}

void enter_system_specific_predefined_macros_and_assertions() {
  define_compiler_version();
  define_if(asm_header_mode, "__ASM_HEADER__");
  define_if(virtual_encoding_mode, "__VIRTUAL_ENCODING__");
  TRG_enter_system_specific_macros();
  define_if(is_eabi, "__QX_EABI__");
  define_if(is_eabi, "__ELF__");
  define_byte_order();
  define("__QX_STRICT_ANSI_MODE__", strict_ansi_mode ? "1" : "0");
  define_number("__QX_WCHAR_T_BITS__",
                static_cast<std::uint64_t>(targ_sizeof_wchar_t * targ_char_bit));
  define_if(gnu_attributes_enabled, "__QX_GNU_ATTRIBUTE_SUPPORT__");
  define("__QX_STRICT_FP_MODE__", relaxed_fp ? "0" : "1");
  define_limits();
  define_sizes();
}
