// Options that hold for one file or one function: a map from keys to texts.
#include <map>

#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "il/il_entity.h"
#include "il/src_seq.h"
#include "options/cmd_line.h"

namespace {
std::map<std::string, an_opt_override> opt_overrides;
}

an_opt_override *lookup_opt_override(const std::string &key, bool create) {
  auto found = opt_overrides.find(key);
  if (found != opt_overrides.end()) return &found->second;
  return create ? &opt_overrides[key] : nullptr;
}

an_opt_override *get_opt_override(const char *name, const a_source_position *position) {
  if (opt_overrides.empty()) return nullptr;
  if (name == nullptr) return lookup_opt_override("-", false);
  std::string file;
  if (position != nullptr && position->seq != 0) {
    const char *file_name = nullptr, *full_name = nullptr;
    a_line_number line = 0;
    bool at_end = false;
    conv_seq_to_file_and_line(position->seq, &file_name, &full_name, &line, &at_end);
    if (file_name != nullptr) file = start_of_file_name(file_name);
  }
  const std::string keys[] = {file + ":" + name, name, file + ":", file};
  for (const std::string &key : keys)
    if (an_opt_override * override = lookup_opt_override(key, false)) return override;
  return nullptr;
}

an_opt_override *get_opt_override(const a_source_correspondence *entity) {
  if (entity == nullptr) return get_opt_override(nullptr, nullptr);
  return get_opt_override(entity->name, &entity->decl_position);
}

an_option_verdict add_function_options(const char *name, const a_source_position *position,
                                       const char *text, std::string *refused) {
  a_function_option_set added;
  std::string word;
  for (const char *p = text;; ++p) {
    if (*p != ' ' && *p != '\t' && *p != '\0') {
      word += *p;
      continue;
    }
    an_option_verdict verdict = word.empty() ? ov_accepted : added.add(word.c_str());
    if (verdict != ov_accepted) {
      *refused = word;
      return verdict;
    }
    word.clear();
    if (*p == '\0') break;
  }
  OPTION_SET set;
  an_opt_override *old = get_opt_override(name, position);
  for (const OPTION_SET &other : icode_optlist)
    if (old != nullptr && old->option_set_id != 0 && other.id == old->option_set_id)
      set.texts = other.texts;
  for (const std::string &each : added.words())
    set.texts.push_back(copy_string_to_region(0, each.data(), each.size()));
  set.id = icode_optlist.back().id + 1;
  icode_optlist.push_back(set);
  lookup_opt_override(name, true)->option_set_id = set.id;
  return ov_accepted;
}
