// What the user changed about messages: severities by code, on the command line and by pragmas.
//
// A pragma holds from its place on, yet a message may be reported late about an earlier place. So
// every change made at a position is kept in a history per code, sorted by position; the last
// change that does not come after the message's position decides.
//
// diag_push only marks the log of changes. What diag_pop has to bring back stands behind the mark,
// so both cost what was changed between them, not the size of the tables.
#include <algorithm>
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
  a_source_position position;
  an_error_severity severity;  // that results from the change; 0: the message's own
};

// What a code's severity was before a change inside diag_push.
struct an_undo_entry {
  int code;
  an_error_severity severity;
};

an_error_severity diag_severity[num_slots];          // 0: none
an_error_severity diag_default_severity[num_slots];  // what diag_default goes back to
bool diag_once[num_slots];
std::vector<a_diag_history_entry> diag_history[num_slots];
std::vector<an_undo_entry> undo_log;  // since the first open diag_push
std::vector<std::size_t> push_marks;  // of each open diag_push, its place in the log

// Behind all changes of the same or an earlier place.
auto history_place(std::vector<a_diag_history_entry> *history, const a_source_position &pos) {
  return std::upper_bound(history->begin(), history->end(), pos,
                          [](const a_source_position &a, const a_diag_history_entry &b) {
                            return compare_source_positions(a, b.position) < 0;
                          });
}

void set_severity(int code, an_error_severity severity, const a_source_position *pos) {
  std::vector<a_diag_history_entry> *history = &diag_history[code];
  const bool at_place = pos != nullptr && pos->seq != 0;
  if (at_place && history->empty()) history->push_back({a_source_position{}, diag_severity[code]});
  diag_severity[code] = severity;
  if (at_place) history->insert(history_place(history, *pos), {*pos, severity});
}

void change_severity(int code, an_error_severity severity, const a_source_position *pos,
                     bool also_default) {
  if (severity == es_once) {
    diag_once[code] = true;
    return;
  }
  if (also_default && severity != es_default) diag_default_severity[code] = severity;
  if (!push_marks.empty()) undo_log.push_back({code, diag_severity[code]});
  set_severity(code, severity != es_default ? severity : diag_default_severity[code], pos);
}

an_error_severity override_at(an_error_code code, const a_source_position *pos) {
  std::vector<a_diag_history_entry> *history = &diag_history[code];
  if (history->empty()) return diag_severity[code];
  // The first entry has no position, so something comes before every place.
  return std::prev(history_place(history, pos != nullptr ? *pos : null_source_position))->severity;
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
    diag_history[code].clear();
  }
  undo_log.clear();
  push_marks.clear();
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
  push_marks.push_back(undo_log.size());
}

bool pop_diag_severities(const a_source_position *pos) {
  if (push_marks.empty()) return false;
  const auto first = undo_log.begin() + static_cast<std::ptrdiff_t>(push_marks.back());
  push_marks.pop_back();
  // Of several changes of one code the first tells what diag_push saw.
  std::stable_sort(first, undo_log.end(),
                   [](const an_undo_entry &a, const an_undo_entry &b) { return a.code < b.code; });
  for (auto entry = first; entry != undo_log.end(); ++entry) {
    if (entry != first && entry->code == std::prev(entry)->code) continue;
    if (entry->severity != diag_severity[entry->code])
      set_severity(entry->code, entry->severity, pos);
  }
  undo_log.erase(first, undo_log.end());
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
