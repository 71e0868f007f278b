// The selection of rules. A rule that is off has the severity "no report" among the overrides.
#include "target/misra.h"

#include <string>

#include "driver/switches.h"

namespace {

struct a_misra_rule {
  std::uint8_t major;
  std::uint8_t minor;
  a_misra_rule_kind kind;
  an_error_code code;
  an_error_code named_code;
  bool is_checked;
};
const a_misra_rule misra_rules[] = {
#define MISRA_RULE(major, minor, kind, tag, named_tag, is_checked) \
  {major, minor, mrk_##kind, ec_misra_c_2004_##tag, ec_misra_c_2004_##named_tag, is_checked},
#include "target/misra.def"
};
constexpr int last_major_of_all = 20;
constexpr int last_minor_of_all = 17;

an_error_severity severity_of_kind(a_misra_rule_kind kind) {
  return kind == mrk_required   ? misra_required_severity
         : kind == mrk_advisory ? misra_advisory_severity
                                : es_error;
}

void set_severity_of_rule(const a_misra_rule &rule, an_error_severity severity,
                          const a_source_position *position, bool also_default) {
  set_severity_for_error_number(rule.code, severity, position, also_default);
  if (rule.named_code != rule.code)
    set_severity_for_error_number(rule.named_code, severity, position, also_default);
}

// number [- number]   One number is both ends. False: malformed.
bool scan_range(const char *&p, int *first, int *last) {
  auto number = [&p](int *value) {
    if (*p < '0' || *p > '9') return false;
    for (*value = 0; *p >= '0' && *p <= '9'; ++p)
      if (*value < 1000) *value = *value * 10 + (*p - '0');
    return true;
  };
  if (!number(first)) return false;
  *last = *first;
  return *p != '-' || (++p, number(last));
}

// What an element of a list selects.
struct a_rule_selection {
  int first_major = 0, last_major = last_major_of_all;
  int first_minor = 0, last_minor = last_minor_of_all;
  bool enable = true, required = true, advisory = true;
};

// [-] all | none | required | advisory | m | m-n | m.k | m.k-l
bool scan_element(const std::string &text, bool reset, a_rule_selection *out) {
  const char *p = text.c_str();
  if (*p == '-') {
    if (reset) return false;
    out->enable = false;
    ++p;
  }
  std::string word = p;
  if (word == "all") return true;
  if (word == "none") {
    out->enable = !out->enable;
    return !reset;
  }
  if (word == "required") {
    out->advisory = false;
    return true;
  }
  if (word == "advisory") {
    out->required = false;
    return true;
  }
  if (!scan_range(p, &out->first_major, &out->last_major)) return false;
  if (*p == '.' && out->first_major == out->last_major) {
    ++p;
    if (!scan_range(p, &out->first_minor, &out->last_minor)) return false;
  }
  return *p == '\0';
}

}  // namespace

an_error_code rule_for_number(int major, int minor, an_error_severity *severity,
                              a_misra_rule_kind *kind, bool with_name) {
  for (const a_misra_rule &rule : misra_rules) {
    if (rule.major != major || rule.minor != minor) continue;
    *kind = rule.kind;
    *severity = severity_of_kind(rule.kind);
    return with_name ? rule.named_code : rule.code;
  }
  *kind = mrk_none;
  *severity = es_none;
  return ec_no_error;
}

void misra_c_2004_set_rules(int first_major, int last_major, int first_minor, int last_minor,
                            const a_source_position *position, bool also_default, bool reset,
                            bool enable, bool required, bool advisory) {
  for (const a_misra_rule &rule : misra_rules) {
    if (rule.major < first_major || rule.major > last_major) continue;
    if (rule.minor < first_minor || rule.minor > last_minor) continue;
    if (!(rule.kind == mrk_advisory ? advisory : required)) continue;
    an_error_severity severity = !enable ? es_none
                                 : reset ? es_default
                                         : severity_of_kind(rule.kind);
    set_severity_of_rule(rule, severity, position, also_default);
  }
}

void process_check_misra(const char *text, const a_source_position *position, bool *error,
                         bool also_default, bool reset) {
  check_misra_c_2004 = true;
  *error = false;
  std::string element;
  for (const char *p = text;; ++p) {
    if (*p == ' ' || *p == '\t') continue;
    if (*p != ',' && *p != '\0') {
      element += *p;
      continue;
    }
    a_rule_selection s;
    if (scan_element(element, reset, &s))
      misra_c_2004_set_rules(s.first_major, s.last_major, s.first_minor, s.last_minor, position,
                             also_default, reset, s.enable, s.required, s.advisory);
    else
      *error = true;
    element.clear();
    if (*p == '\0') return;
  }
}

void process_misra_severity(a_misra_rule_kind kind, const char *text,
                            const a_source_position *position) {
  const std::string word = text;
  const an_error_severity severity = word == "error"     ? es_discretionary_error
                                     : word == "warning" ? es_warning
                                     : word == "remark"  ? es_remark
                                                         : es_none;
  (kind == mrk_required ? misra_required_severity : misra_advisory_severity) = severity;
  for (const a_misra_rule &rule : misra_rules)
    if (rule.kind == kind && !treat_as_none(rule.code))
      set_severity_of_rule(rule, severity, position, true);
}

bool some_misra_rule_is_not_checked() {
  for (const a_misra_rule &rule : misra_rules)
    if (!rule.is_checked && !treat_as_none(rule.code)) return true;
  return false;
}

void misra_early_init() {
  misra_c_2004_set_rules(0, last_major_of_all, 0, last_minor_of_all, nullptr, true, false, false,
                         true, true);
}
