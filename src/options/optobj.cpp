#include "options/optobj.h"

#include <algorithm>
#include <cstring>

namespace {

enum an_option_argument { oarg_none, oarg_number, oarg_optional_number, oarg_word };

struct a_function_option {
  const char *name;
  an_option_argument argument;
  const char *items;  // the words that the argument may be, between blanks; null: any
};
constexpr a_function_option function_options[] = {
#define FUNCTION_OPTION(name, argument, items) {#name, oarg_##argument, items},
#define SHELL_OPTION(name)
#include "options/optobj.def"
};
constexpr const char *shell_options[] = {
#define FUNCTION_OPTION(name, argument, items)
#define SHELL_OPTION(name) name,
#include "options/optobj.def"
};

// Pairs that exclude each other.
constexpr const char *conflicts[][2] = {{"auto_inline", "disable_inlining"},
                                        {"disable_inlining", "single_inline"}};

int find_function_option(const std::string &name) {
  for (std::size_t i = 0; i != std::size(function_options); ++i)
    if (name == function_options[i].name) return static_cast<int>(i);
  return -1;
}

bool is_number(const std::string &text) {
  return !text.empty() && text.size() < 10 &&
         text.find_first_not_of("0123456789") == std::string::npos;
}

bool is_item(const char *items, const std::string &word) {
  for (const char *p = items; *p != '\0';) {
    std::size_t length = std::strcspn(p, " ");
    if (word.size() == length && std::memcmp(p, word.data(), length) == 0) return true;
    p += length + (p[length] == ' ');
  }
  return false;
}

bool argument_is_good(const a_function_option &option, bool has_argument, const std::string &text) {
  switch (option.argument) {
    case oarg_none:
      return !has_argument;
    case oarg_number:
      return is_number(text);
    case oarg_optional_number:
      return !has_argument || is_number(text);
    case oarg_word:
      return is_item(option.items, text);
  }
  return false;
}

bool options_conflict(const char *one, const char *other) {
  for (const auto &pair : conflicts)
    if ((std::strcmp(pair[0], one) == 0 && std::strcmp(pair[1], other) == 0) ||
        (std::strcmp(pair[0], other) == 0 && std::strcmp(pair[1], one) == 0))
      return true;
  return false;
}

}  // namespace

an_option_verdict a_function_option_set::add(const char *word) {
  std::string name, argument;
  bool has_argument = true;
  if (std::strncmp(word, "-O", 2) == 0) {
    name = "opt_level";
    argument = word + 2;
  } else {
    if (std::strncmp(word, "--", 2) != 0) return ov_not_an_option;
    const char *equals = std::strchr(word, '=');
    has_argument = equals != nullptr;
    name = has_argument ? std::string(word + 2, equals) : word + 2;
    if (has_argument) argument = equals + 1;
  }
  int option = find_function_option(name);
  if (option < 0)
    return std::any_of(std::begin(shell_options), std::end(shell_options),
                       [&](const char *known) { return name == known; })
               ? ov_not_for_functions
               : ov_not_an_option;
  if (!argument_is_good(function_options[option], has_argument, argument)) return ov_not_an_option;
  for (const a_setting &other : settings)
    if (options_conflict(function_options[option].name, function_options[other.option].name))
      return ov_not_an_option;
  std::erase_if(settings, [&](const a_setting &s) { return s.option == option; });
  settings.push_back({option, argument});
  return ov_accepted;
}

std::vector<std::string> a_function_option_set::words() const {
  std::vector<std::string> result;
  for (const a_setting &setting : settings) {
    std::string text = std::string("--") + function_options[setting.option].name;
    if (!setting.argument.empty()) text += "=" + setting.argument;
    result.push_back(text);
  }
  return result;
}
