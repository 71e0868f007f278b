// What the user changed about messages: severities by code, on the command line and by pragmas.
//
// A pragma holds from its place on, yet a message may be reported late about an earlier place. So
// every change made at a position is kept in a list per code, in the order of the source; the last
// entry that does not come after the message's position decides.
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "DIAG/error_internal.h"
#include "driver/switches.h"

an_error_severity misra_required_severity = es_warning;
an_error_severity misra_advisory_severity = es_warning;

namespace {

constexpr int num_slots = num_error_codes + 1;

struct a_diag_history_entry {
  a_diag_history_entry *next;
  a_source_position position;
  an_error_severity severity;  // 0: the message's own
};

an_error_severity diag_severity[num_slots];          // 0: none
an_error_severity diag_default_severity[num_slots];  // what diag_default goes back to
bool diag_once[num_slots];
a_diag_history_entry *diag_history_head[num_slots];
a_diag_history_entry *diag_history_tail[num_slots];
std::vector<std::vector<an_error_severity>> diag_severity_stack;

bool comes_after(const a_source_position &a, const a_source_position &b) {
  return a.seq != b.seq ? a.seq > b.seq : a.column > b.column;
}

void add_history_entry(int code, const a_source_position &pos, an_error_severity severity) {
  auto *entry = static_cast<a_diag_history_entry *>(alloc_general(sizeof(a_diag_history_entry)));
  *entry = {nullptr, pos, severity};
  if (diag_history_tail[code] != nullptr) {
    diag_history_tail[code]->next = entry;
  } else {
    diag_history_head[code] = entry;
  }
  diag_history_tail[code] = entry;
}

void change_severity(int code, an_error_severity severity, const a_source_position *pos,
                     bool also_default) {
  if (severity == es_once) {
    diag_once[code] = true;
    return;
  }
  // Behind the command line, what held up to the first change is the default.
  if (pos != nullptr && pos->seq != 0 && diag_history_head[code] == nullptr) {
    add_history_entry(code, a_source_position{}, diag_severity[code]);
  }
  if (severity != es_default) {
    diag_severity[code] = severity;
    if (also_default) diag_default_severity[code] = severity;
  } else {
    diag_severity[code] = diag_default_severity[code];
  }
  if (pos != nullptr && pos->seq != 0) add_history_entry(code, *pos, diag_severity[code]);
}

an_error_severity override_at(an_error_code code, const a_source_position *pos) {
  const a_diag_history_entry *entry = diag_history_head[code];
  if (entry == nullptr) return diag_severity[code];
  const a_source_position place = pos != nullptr ? *pos : a_source_position{};
  an_error_severity result = es_default;
  for (; entry != nullptr && !comes_after(entry->position, place); entry = entry->next) {
    result = entry->severity;
  }
  return result;
}

}  // namespace

an_error_severity effective_severity(an_error_code code, an_error_severity severity,
                                     const a_source_position *pos) {
  if (severity > es_discretionary_error) return severity;
  if (const an_error_severity changed = override_at(code, pos)) severity = changed;
  if (severity == es_warning && warning_as_error_mode) severity = es_discretionary_error;
  return severity;
}

bool code_is_once_only(an_error_code code) {
  return diag_once[code];
}

void reset_overrides() {
  for (int code = 0; code < num_slots; ++code) {
    diag_severity[code] = diag_default_severity[code] = es_default;
    diag_once[code] = false;
    for (a_diag_history_entry *entry = diag_history_head[code]; entry != nullptr;) {
      a_diag_history_entry *next = entry->next;
      free_general(entry, sizeof *entry);
      entry = next;
    }
    diag_history_head[code] = diag_history_tail[code] = nullptr;
  }
  diag_severity_stack.clear();
}

// ---- Changes -----------------------------------------------------------------------------------

int set_severity_for_error_number(int number, an_error_severity severity,
                                  const a_source_position *pos, bool also_default) {
  if (number < 1 || number >= num_error_codes) return 1;
  change_severity(number, severity, pos, also_default);
  return 0;
}

int set_severity_for_error_tag(const char *tag, an_error_severity severity,
                               const a_source_position *pos, bool also_default) {
  const int code = error_code_for_tag(tag);
  if (code < 0) return 1;
  if (code != 0) change_severity(code, severity, pos, also_default);
  return 0;
}

void set_severity_for_error_list(const char *list, an_error_severity severity) {
  a_text_buffer *word = alloc_text_buffer(64);
  while (*list != '\0') {
    reset_text_buffer(word);
    for (; *list != '\0' && *list != ','; ++list) {
      if (!std::isspace(static_cast<unsigned char>(*list))) add_char_to_text_buffer(word, *list);
    }
    if (*list == ',') ++list;
    const char *text = text_of_buffer(word);
    if (set_severity_for_error_tag(text, severity, nullptr, true) == 0) continue;
    char *end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (*text == '\0' || *end != '\0') str_command_line_error(ec_cl_invalid_error_tag, text);
    if (number > 0 && number < num_error_codes) {
      set_severity_for_error_number(static_cast<int>(number), severity, nullptr, true);
    }
  }
}

void push_diag_severities() {
  diag_severity_stack.emplace_back(diag_severity, diag_severity + num_slots);
}

bool pop_diag_severities(const a_source_position *pos) {
  if (diag_severity_stack.empty()) return false;
  const std::vector<an_error_severity> pushed = std::move(diag_severity_stack.back());
  diag_severity_stack.pop_back();
  for (int code = 1; code < num_error_codes; ++code) {
    if (pushed[static_cast<std::size_t>(code)] != diag_severity[code]) {
      change_severity(code, pushed[static_cast<std::size_t>(code)], pos, false);
    }
  }
  return true;
}

// ---- Questions ---------------------------------------------------------------------------------

bool reported_error_severity(an_error_code code, an_error_severity severity,
                             an_error_severity *out) {
  *out = effective_severity(code, severity, &error_position);
  return *out != severity;
}

bool is_effective_error(an_error_code code, an_error_severity severity,
                        const a_source_position *pos) {
  return effective_severity(code, severity, pos) > es_command_line_warning;
}

bool is_effective_sfinae_error(an_error_code code, an_error_severity severity,
                               const a_source_position *pos) {
  if (diag_override_does_not_affect_sfinae) return severity > es_command_line_warning;
  return is_effective_error(code, severity, pos);
}

bool is_effective_diagnostic(an_error_code code, an_error_severity severity,
                             const a_source_position *pos) {
  return effective_severity(code, severity, pos) >= error_threshold;
}

bool treat_as_warning(an_error_code code) {
  return diag_severity[code] == es_warning;
}

bool treat_as_none(an_error_code code) {
  return diag_severity[code] == es_none;
}

bool misra_c_2004_generate_diagnostic(an_error_code code, an_error_severity severity) {
  return (diag_severity[code] != es_default ? diag_severity[code] : severity) > es_none;
}

bool pwa_generate_diagnostic(an_error_code code, an_error_severity severity) {
  return misra_c_2004_generate_diagnostic(code, severity);
}
