// The table of attributes: its hash, the dialects of its rows, and the lists of attributes.
//
// A mode string tells in which dialects a spelling exists:
//
//     [1] alternative { ... }      1: only once in a list
//     alternative = syntax language [ "[" namespace "]" ] [ ( range { | range } ) ]
//     syntax      c  [[ ]]      g  __attribute__      l  the same, in clang mode      m  __declspec
//     language    x  C and C++      c  C      +  C++
//     range       low - high of std_version (c), gnu_version (g), clang_version (l) or
//                 microsoft_version (m); behind C, G, M or S in parentheses that of another
//                 dialect. Either end may be missing; one range that holds is enough.
#include "parser/attribute.h"

#include <cstring>

#include "driver/switches.h"
#include "parser/attribute_internal.h"
#include "source/lexical.h"

const an_attribute_kind_description attribute_kinds[atk_last] = {
    {"", nullptr},
    {"", nullptr},
    {"", nullptr},
#define ATTRIBUTE_KIND(number, name, applicability, apply) {applicability, apply},
#include "parser/attribute.def"
};

namespace {

const an_attribute_row attribute_rows[] = {
#define ATTRIBUTE(kind, name, arguments, modes) {atk_##kind, name, arguments, modes},
#include "parser/attribute.def"
};
constexpr std::size_t num_attribute_rows = sizeof attribute_rows / sizeof *attribute_rows;
static_assert(num_attribute_rows == 83);

// These exist elsewhere and are unknown on this target.
constexpr bool is_switched_off(an_attribute_kind kind) {
  switch (kind) {
    case atk_nothrow:
    case atk_cleanup:
    case atk_common:
    case atk_destructor:
    case atk_may_alias:
    case atk_no_instrument_function:
    case atk_no_check_memory_usage:
    case atk_nocommon:
    case atk_nonnull:
    case atk_sentinel:
    case atk_strong:
    case atk_weakref:
      return true;
    default:
      return false;
  }
}

constexpr std::size_t num_attribute_buckets = 83;
constexpr std::uint8_t no_row = 0xFF;
std::uint8_t attribute_buckets[num_attribute_buckets];  // first row of a bucket
std::uint8_t next_in_bucket[num_attribute_rows];        // in table order

std::size_t bucket_of(const char *name, std::size_t length) {
  std::size_t hash = length;
  for (std::size_t i = 0; i < length; ++i)
    hash = hash * 31 + static_cast<unsigned char>(name[i]);
  return hash % num_attribute_buckets;
}

// ---- Mode strings ------------------------------------------------------------------------------

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

int scan_number(const char *&p) {
  int value = 0;
  while (is_digit(*p))
    value = value * 10 + (*p++ - '0');
  return value;
}

// The version that a dialect's letter is about; -1: that dialect is not in force.
int version_of_dialect(char letter) {
  switch (letter) {
    case 'c':
    case 'S':
      return std_version;
    case 'g':
      return gnu_version;
    case 'G':
      return gnu_mode && !clang_mode ? gnu_version : -1;
    case 'l':
    case 'C':
      return clang_mode ? clang_version : -1;
    case 'm':
      return microsoft_version;
    case 'M':
      return microsoft_mode ? microsoft_version : -1;
    default:
      return -1;
  }
}

// low - high
bool range_holds(const char *&p, char letter) {
  int low = scan_number(p), high = 0;
  if (*p == '-') ++p;
  bool has_high = is_digit(*p);
  if (has_high) high = scan_number(p);
  int version = version_of_dialect(letter);
  return version >= 0 && version >= low && (!has_high || version <= high);
}

// ( range | letter ( range ) ... )   from behind the ( to behind its )
bool any_range_holds(const char *&p, char letter) {
  bool holds = false;
  while (*p != ')') {
    if (*p == '|') {
      ++p;
    } else if (is_digit(*p) || *p == '-') {
      holds |= range_holds(p, letter);
    } else {
      char other = *p;
      p += 2;
      holds |= range_holds(p, other);
      ++p;
    }
  }
  ++p;
  return holds;
}

bool syntax_letter_matches(char letter, an_attribute_syntax syntax) {
  switch (letter) {
    case 'c':
      return syntax == asx_std;
    case 'g':
      return syntax == asx_gnu;
    case 'l':
      return syntax == asx_gnu && clang_mode;
    case 'm':
      return syntax == asx_declspec;
    default:
      return false;
  }
}

bool language_letter_matches(char letter) {
  return letter == 'x' || (letter == '+') == in_cplusplus();
}

bool alternative_holds(const char *&p, an_attribute_syntax syntax, const char *namespace_name) {
  char letter = *p++;
  bool holds = syntax_letter_matches(letter, syntax) && language_letter_matches(*p++);
  const char *wanted = nullptr;
  std::size_t wanted_length = 0;
  if (*p == '[') {
    wanted = ++p;
    while (*p != ']')
      ++p;
    wanted_length = static_cast<std::size_t>(p++ - wanted);
  }
  if (wanted == nullptr)
    holds = holds && namespace_name == nullptr;
  else
    holds = holds && namespace_name != nullptr && std::strlen(namespace_name) == wanted_length &&
            std::memcmp(namespace_name, wanted, wanted_length) == 0;
  if (*p == '(') {
    ++p;
    holds &= any_range_holds(p, letter);
  }
  return holds;
}

bool modes_hold(const char *modes, an_attribute_syntax syntax, const char *namespace_name) {
  if (*modes == '1') ++modes;
  while (*modes != '\0')
    if (alternative_holds(modes, syntax, namespace_name)) return true;
  return false;
}

}  // namespace

void strip_underscores(const char **name, std::size_t *length) {
  constexpr std::size_t longest = 100;
  const char *text = *name;
  if (*length <= 4 || *length > longest + 4) return;
  if (std::memcmp(text, "__", 2) != 0 || std::memcmp(text + *length - 2, "__", 2) != 0) return;
  *name += 2;
  *length -= 4;
}

const an_attribute_row *find_attribute_row(const char *name, std::size_t length,
                                           an_attribute_syntax syntax, const char *namespace_name) {
  for (std::uint8_t i = attribute_buckets[bucket_of(name, length)]; i != no_row;
       i = next_in_bucket[i]) {
    const an_attribute_row &row = attribute_rows[i];
    if (std::strlen(row.name) == length && std::memcmp(row.name, name, length) == 0 &&
        modes_hold(row.modes, syntax, namespace_name))
      return &row;
  }
  return nullptr;
}

bool gnu_attribute_is_supported(const char *name) {
  std::size_t length = std::strlen(name);
  strip_underscores(&name, &length);
  return find_attribute_row(name, length, asx_gnu, nullptr) != nullptr;
}

const char *cpp_attribute_version(const char *scope, const char *name) {
  static constexpr struct {
    const char *name;
    const char *version;
  } versions[] = {{"noreturn", "200809"},    {"carries_dependency", "200809"},
                  {"deprecated", "201309"},  {"nodiscard", "201603"},
                  {"fallthrough", "201603"}, {"maybe_unused", "201603"}};
  if (find_attribute_row(name, std::strlen(name), asx_std, scope) == nullptr) return "0";
  if (scope == nullptr)
    for (const auto &row : versions)
      if (std::strcmp(row.name, name) == 0) return row.version;
  return "1";
}

// ---- Lists -------------------------------------------------------------------------------------

an_attribute **f_last_attribute_link(an_attribute **list) {
  while (*list != nullptr)
    list = &(*list)->next;
  return list;
}

an_attribute **get_attribute_link(char *entity, an_il_entry_kind kind) {
  if (kind == iek_param_type) return &reinterpret_cast<a_param_type *>(entity)->attributes;
  if (kind == iek_statement) return &reinterpret_cast<a_statement *>(entity)->attributes;
  if (kind == iek_base_class) return &reinterpret_cast<a_base_class *>(entity)->attributes;
  a_source_correspondence *head = source_corresp_for_il_entry(entity, kind);
  return head != nullptr ? &head->attributes : nullptr;
}

namespace {

an_attribute_arg *copy_of_arguments(const an_attribute_arg *args) {
  an_attribute_arg *first = nullptr, **link = &first;
  for (; args != nullptr; args = args->next) {
    an_attribute_arg *copy = alloc_attribute_arg();
    *copy = *args;
    copy->next = nullptr;
    *link = copy;
    link = &copy->next;
  }
  return first;
}

// Constants of arguments are shared by value, strings are not.
bool equal_constants(const a_constant *a, const a_constant *b) {
  return a == b || compare_constants(a, b, ccf_none);
}

bool equal_texts(const char *a, const char *b) {
  return a == b || (a != nullptr && b != nullptr && std::strcmp(a, b) == 0);
}

bool equal_arguments(const an_attribute_arg *a, const an_attribute_arg *b) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next) {
    if (a->kind != b->kind) return false;
    switch (a->kind) {
      case aak_raw_tokens:
      case aak_identifier:
        if (!equal_texts(a->identifier, b->identifier)) return false;
        break;
      case aak_constant:
        if (!equal_constants(a->constant, b->constant)) return false;
        break;
      case aak_type:
        if (a->type != b->type) return false;
        break;
      case aak_expression:
        if (a->expr != b->expr) return false;
        break;
    }
  }
  return a == b;
}

}  // namespace

an_attribute *copy_of_attributes_list(const an_attribute *list) {
  an_attribute *first = nullptr, **link = &first;
  for (; list != nullptr; list = list->next) {
    an_attribute *copy = alloc_attribute();
    *copy = *list;
    copy->next = nullptr;
    copy->args = copy_of_arguments(list->args);
    *link = copy;
    link = &copy->next;
  }
  return first;
}

an_attribute *composite_attributes(const an_attribute *a, const an_attribute *b) {
  an_attribute *first = copy_of_attributes_list(a);
  *f_last_attribute_link(&first) = copy_of_attributes_list(b);
  return first;
}

bool equivalent_attributes(const an_attribute *a, const an_attribute *b) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next)
    if (a->kind != b->kind || !equal_arguments(a->args, b->args)) return false;
  return a == b;
}

void mark_primary_decl_attributes(an_attribute *list) {
  for (; list != nullptr; list = list->next)
    list->on_definition = true;
}

an_attribute *get_param_variable_attr_copies(const a_param_type *param) {
  return copy_of_attributes_list(param->attributes);
}

an_attribute *find_attribute(an_attribute *list, an_attribute_kind kind) {
  while (list != nullptr && list->kind != kind)
    list = list->next;
  return list;
}

// ---- Phases ------------------------------------------------------------------------------------

void attribute_one_time_init() {
  std::memset(attribute_buckets, no_row, sizeof attribute_buckets);
  std::uint8_t *links[num_attribute_buckets];
  for (std::size_t i = 0; i < num_attribute_buckets; ++i)
    links[i] = &attribute_buckets[i];
  for (std::size_t i = 0; i < num_attribute_rows; ++i) {
    next_in_bucket[i] = no_row;
    const an_attribute_row &row = attribute_rows[i];
    if (is_switched_off(row.kind)) continue;
    std::size_t bucket = bucket_of(row.name, std::strlen(row.name));
    *links[bucket] = static_cast<std::uint8_t>(i);
    links[bucket] = &next_in_bucket[i];
  }
}

void attribute_init() {
  clear_alias_fixups();
}

void attribute_trans_unit_init() {
  clear_asm_name_table();
}
