// The dump of the configuration.
#include "options/configuration.h"

namespace {

struct a_configuration_row {
  const char *macro;
  const char *text;  // null: the number counts
  long long number;
};

// In order of the names.
constexpr a_configuration_row rows[] = {
    {"ABI_COMPATIBILITY_VERSION", nullptr, tool_version_number},
    {"BACK_END_IS_I_GEN_BE", nullptr, 1},
    {"BACK_END_SHOULD_BE_CALLED", nullptr, 1},
    {"BITS_IN_AN_INTEGER_VALUE", nullptr, 64},
    {"BUILTIN_VA_LIST_OVERRIDE_TYPE_NAME", "\"__zvn_va_list\"", 0},
    {"COLUMN_NUMBER_IN_BRIEF_DIAGNOSTICS", nullptr, 0},
    {"COMPILE_MULTIPLE_TRANSLATION_UNITS", nullptr, 0},
    {"CPPCLI_ENABLING_POSSIBLE", nullptr, 0},
    {"DEFAULT_BRIEF_DIAGNOSTICS", nullptr, 1},
    {"DEFAULT_CHECK_FOR_BYTE_ORDER_MARK", nullptr, 1},
    {"DEFAULT_CLANG_VERSION", nullptr, 30500},
    {"DEFAULT_CONTEXT_LIMIT", nullptr, 10},
    {"DEFAULT_CPP_MODE", nullptr, 201402},
    {"DEFAULT_DISTINCT_TEMPLATE_SIGNATURES", nullptr, 1},
    {"FLT_PRECISION", nullptr, 5},
    {"VERSION_NUMBER", "\"4.13\"", 0},
    {"VERSION_NUMBER_FOR_MACRO", nullptr, tool_version_number},
    {"WRITE_SIGNOFF_MESSAGE", nullptr, 1},
};

}  // namespace

void dump_configuration(std::FILE *stream) {
  std::fprintf(stream, "/* Configuration data for Zelvane C/C++ Front End */\n");
  std::fprintf(stream, "/* version %s, built on %s at %s. */\n\n", tool_version, build_date,
               build_time);
  for (const a_configuration_row &row : rows) {
    if (row.text != nullptr)
      std::fprintf(stream, "#define %s %s\n", row.macro, row.text);
    else
      std::fprintf(stream, "#define %s %lld\n", row.macro, row.number);
  }
  std::fprintf(stream, "\n/* Legacy configuration: <unnamed> */\n");
  std::fprintf(stream, "#define LEGACY_TARGET_CONFIGURATION_NAME NULL\n");
}
