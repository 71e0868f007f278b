// #include: the header name, the search for the file, and what is remembered of files: where a name
// was found, and whether a file need not be read again.

#include <cerrno>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/pp_output.h"
#include "source/preproc_internal.h"

// Of the symbol table.
void declare_builtin_va_list_type();

namespace {

// What a search found; kept by the entry where it began, that entry's directory, and the name.
struct a_search_result {
  a_search_result *next;
  std::uint64_t hash;
  a_directory_name_entry *start;
  const char *start_name;
  const char *name;
  const char *full_name;
  a_directory_name_entry *found_in;
  a_file_image *image;
  an_include_file_history *history;
};

constexpr std::size_t num_search_buckets = 8192;
a_search_result *search_results[num_search_buckets];

// Histories by image: two names of one file share its text, and so its history.
struct a_history_entry {
  a_history_entry *next;
  const char *image_start;
  an_include_file_history history;
};
a_history_entry *histories[num_search_buckets];

a_text_buffer *name_buffer;

// Directories that names with a slash led to, and whether they exist: a name like "sys/types.h" is
// looked for beside every file that includes it, and mostly in vain.
struct a_known_directory {
  a_known_directory *next;
  const char *name;
  std::size_t length;
  bool exists;
};
a_known_directory *known_directories[num_search_buckets];

bool anything_is_remembered;

std::uint64_t hash_of_text(std::uint64_t hash, const char *text, std::size_t length) {
  for (std::size_t i = 0; i != length; ++i)
    hash = (hash ^ static_cast<unsigned char>(text[i])) * 1099511628211u;
  return hash;
}

std::size_t bucket_of_hash(std::uint64_t hash) {
  return (hash >> 20) % num_search_buckets;
}

const char *permanent_copy(const char *text) {
  return copy_string_to_region(0, text, std::strlen(text));
}

an_include_file_history *history_of_image(const a_file_image *image, const char *name) {
  a_history_entry **bucket =
      &histories[(reinterpret_cast<std::uintptr_t>(image->start) >> 5) % num_search_buckets];
  for (a_history_entry *e = *bucket; e != nullptr; e = e->next)
    if (e->image_start == image->start) return &e->history;
  a_history_entry *entry =
      static_cast<a_history_entry *>(alloc_in_region(0, sizeof(a_history_entry)));
  *entry = {};
  entry->image_start = image->start;
  entry->history.name = name;
  entry->next = *bucket;
  *bucket = entry;
  anything_is_remembered = true;
  return &entry->history;
}

// ---- Searching ---------------------------------------------------------------------------------

struct a_search {
  const char *name;
  std::uint64_t hash;  // of the directory where the search starts and the name
  a_directory_name_entry *start;
  a_search_result *result;  // in the cache, or a record outside it
  an_open_file_result failure;
};

bool directory_exists(const char *name, std::size_t length) {
  a_known_directory **bucket = &known_directories[bucket_of_hash(hash_of_text(0, name, length))];
  for (a_known_directory *d = *bucket; d != nullptr; d = d->next)
    if (d->length == length && std::memcmp(d->name, name, length) == 0) return d->exists;
  a_known_directory *known =
      static_cast<a_known_directory *>(alloc_in_region(0, sizeof(a_known_directory)));
  const char *copy = copy_string_to_region(0, name, length);
  *known = {*bucket, copy, length, is_directory(copy)};
  *bucket = known;
  anything_is_remembered = true;
  return known->exists;
}

// The file with this name, or null. A name with a directory that does not exist is not tried.
a_file_image *open_candidate(const char *full_name, const char *written_name,
                             an_open_file_result *failure) {
  if (std::strchr(written_name, '/') != nullptr) {
    const char *slash = std::strrchr(full_name, '/');
    if (slash != full_name &&
        !directory_exists(full_name, static_cast<std::size_t>(slash - full_name))) {
      *failure = {};
      failure->flags = off_does_not_exist;
      failure->errno_value = ENOENT;
      return nullptr;
    }
  }
  return image_of_source_file(full_name, failure);
}

bool try_file(const char *full_name, a_directory_name_entry *dir, a_search *search) {
  an_open_file_result failure;
  a_file_image *image = open_candidate(full_name, search->name, &failure);
  if (image == nullptr) {
    if (failure.flags != off_does_not_exist || search->failure.flags == 0)
      search->failure = failure;
    return false;
  }
  a_search_result *result =
      static_cast<a_search_result *>(alloc_in_region(0, sizeof(a_search_result)));
  const char *kept_name = permanent_copy(full_name);
  *result = {nullptr,
             search->hash,
             search->start,
             search->start != nullptr ? permanent_copy(search->start->name) : "",
             permanent_copy(search->name),
             kept_name,
             dir,
             image,
             history_of_image(image, kept_name)};
  search->result = result;
  return true;
}

// A name without suffix is tried with each of the given suffixes, between which colons stand: ":h"
// tries name and name.h.
bool try_in_directory(a_directory_name_entry *dir, a_search *search) {
  reset_text_buffer(name_buffer);
  const char *full_name = combine_dir_and_file_name(dir->name, search->name, nullptr);
  if (include_file_suffixes == nullptr || *suffix_of(search->name) != '\0')
    return try_file(full_name, dir, search);
  const char *suffix = include_file_suffixes;
  const char *base = permanent_copy(full_name);
  for (;;) {
    const char *colon = std::strchr(suffix, ':');
    std::size_t length =
        colon != nullptr ? static_cast<std::size_t>(colon - suffix) : std::strlen(suffix);
    reset_text_buffer(name_buffer);
    f_add_string_to_text_buffer(name_buffer, base);
    if (length != 0 && *suffix != '.') add_char_to_text_buffer(name_buffer, '.');
    add_to_text_buffer(name_buffer, suffix, length);
    if (try_file(text_of_buffer(name_buffer), dir, search)) return true;
    if (colon == nullptr) return false;
    suffix = colon + 1;
  }
}

std::uint64_t hash_of_search(const a_search *search) {
  const char *directory = search->start->name;
  return hash_of_text(hash_of_text(0, directory, std::strlen(directory)), search->name,
                      std::strlen(search->name));
}

a_search_result *find_cached_search(const a_search *search) {
  for (a_search_result *r = search_results[bucket_of_hash(search->hash)]; r != nullptr; r = r->next)
    if (r->hash == search->hash && r->start == search->start &&
        std::strcmp(r->name, search->name) == 0 &&
        std::strcmp(r->start_name, search->start->name) == 0)
      return r;
  return nullptr;
}

void remember_search(const a_search *search) {
  a_search_result **bucket = &search_results[bucket_of_hash(search->hash)];
  search->result->next = *bucket;
  *bucket = search->result;
  anything_is_remembered = true;
}

// In the directories from search->start on.
bool find_in_directories(a_search *search) {
  search->hash = hash_of_search(search);
  search->result = find_cached_search(search);
  if (search->result != nullptr) return true;
  const char *last_dir = nullptr;
  for (a_directory_name_entry *d = search->start; d != nullptr; d = d->next) {
    if (last_dir != nullptr && std::strcmp(last_dir, d->name) == 0) continue;
    last_dir = d->name;
    if (!try_in_directory(d, search)) continue;
    remember_search(search);
    return true;
  }
  return false;
}

// Beside the file that includes, then in the others. What the others gave is remembered by itself:
// files of many directories ask for the same names.
bool find_beside_or_in_directories(a_search *search) {
  search->hash = hash_of_search(search);
  search->result = find_cached_search(search);
  if (search->result != nullptr) return true;
  if (try_in_directory(search->start, search)) {
    remember_search(search);
    return true;
  }
  a_search others = *search;
  others.start = search->start->next;
  if (others.start == nullptr) return false;
  bool found = find_in_directories(&others);
  search->failure = others.failure;
  if (!found) return false;
  search->result = static_cast<a_search_result *>(alloc_in_region(0, sizeof(a_search_result)));
  *search->result = *others.result;
  search->result->hash = search->hash;
  search->result->start = search->start;
  search->result->start_name = permanent_copy(search->start->name);
  remember_search(search);
  return true;
}

bool find_on_search_path(const an_include_request *request, a_search *search) {
  search->start = request->is_system_name ? sys_incl_search_path : incl_search_path;
  if (request->is_next && curr_ise != nullptr && curr_ise->search_dir != nullptr)
    search->start = curr_ise->search_dir->next;
  if (search->start == nullptr) {
    if (incl_search_path == nullptr && !request->is_next)
      str_catastrophe(ec_empty_include_search_path, search->name);
    search->failure.flags = off_does_not_exist;
    return false;
  }
  return search->start == incl_search_path ? find_beside_or_in_directories(search)
                                           : find_in_directories(search);
}

bool find_file(const an_include_request *request, a_search *search) {
  if (name_buffer == nullptr) name_buffer = alloc_text_buffer(256);
  bool direct = !request->use_search_path || is_absolute_file_name(search->name);
  if ((direct || request->is_preinclude) && try_file(search->name, nullptr, search)) return true;
  return !direct && find_on_search_path(request, search);
}

}  // namespace

void forget_include_searches() {
  if (!anything_is_remembered) return;
  std::memset(search_results, 0, sizeof search_results);
  std::memset(histories, 0, sizeof histories);
  std::memset(known_directories, 0, sizeof known_directories);
  anything_is_remembered = false;
}

an_include_file_history *find_include_history(const char *name, bool create, bool) {
  an_open_file_result result;
  const a_file_image *image = image_of_source_file(name, &result);
  if (image == nullptr) return nullptr;
  an_include_file_history *history = history_of_image(image, create ? permanent_copy(name) : name);
  return history;
}

bool suppress_subsequent_include_of_file(const an_include_file_history *history) {
  if (history->once) return true;
  if (!history->guard_complete || history->macro == nullptr) return false;
  bool defined = find_defined_macro(history->macro) != nullptr;
  return (defined && history->skip_if_defined) || (!defined && history->skip_if_undefined);
}

void mark_curr_file_as_once() {
  if (curr_ise == nullptr || !curr_ise->is_include) return;
  curr_ise->guard_state = ifg_pragma_once;
  if (curr_ise->include_history != nullptr) curr_ise->include_history->once = true;
}

bool header_can_be_found(const char *name, bool is_angle, bool is_next) {
  an_include_request request = {};
  request.use_search_path = request.is_include = true;
  request.is_system_name = is_angle;
  request.is_next = is_next;
  a_search search = {};
  search.name = name;
  return find_file(&request, &search);
}

bool open_file_and_push_input_stack(const char *name, bool use_search_path, bool is_include,
                                    bool is_system_name, bool is_preinclude, bool, bool do_not_pop,
                                    bool is_include_next, bool may_fail, bool *suppressed) {
  an_include_request request = {use_search_path, is_include,      is_system_name, is_preinclude,
                                do_not_pop,      is_include_next, may_fail};
  a_search search = {};
  search.name = name;
  if (suppressed != nullptr) *suppressed = false;
  if (!find_file(&request, &search)) {
    an_error_severity severity = may_fail        ? es_discretionary_error
                                 : is_preinclude ? es_command_line_error
                                                 : es_catastrophe;
    file_open_error(severity, ect_1971, name, &search.failure);
    return false;
  }
  a_search_result *found = search.result;
  if (is_include && suppress_subsequent_include_of_file(found->history)) {
    if (suppressed != nullptr) *suppressed = true;
    if (list_included_files) gen_included_file_line(found->full_name, depth_input_stack + 1);
    return false;
  }
  push_input_stack(found->image, found->full_name, found->full_name, found->found_in,
                   found->history, &request);
  return true;
}

// ---- Header names ------------------------------------------------------------------------------

const char *check_for_include_alias() {
  return nullptr;
}

static bool is_text_end(const char *p) {
  return *p == '\0' && p[1] != tm_inert && p[1] != tm_temporarily_inert && p[1] != tm_separator;
}

// The name between the character at curr_char_loc and close, as it is written.
static bool take_header_name(char close, a_header_name *name) {
  const char *start = curr_char_loc + 1;
  const char *end = start;
  while (*end != close && *end != '\0')
    ++end;
  if (*end != close || end == start) return false;
  name->length = static_cast<std::size_t>(end - start);
  name->text = copy_string_to_region(0, start, name->length);
  name->is_angle = close == '>';
  curr_char_loc = end + 1;
  return true;
}

// Tokens behind a < that came from a macro, up to the >, with a blank where white space stood.
static bool join_angle_name(a_header_name *name) {
  ++curr_char_loc;
  reset_text_buffer(name_buffer);
  for (;;) {
    kind_of_white_space_skipped = 0;
    skip_white_space();
    const char *start = curr_char_loc;
    if (is_text_end(start)) return false;
    if (*start == '\0') start += 2;
    if (kind_of_white_space_skipped != 0 && name_buffer->size_used != 0 && *start != '>')
      add_char_to_text_buffer(name_buffer, ' ');
    if (*start == '>') {
      curr_char_loc = start + 1;
      break;
    }
    a_pp_text_kind kind;
    const char *end = end_of_pp_token(start, &kind, nullptr);
    bool inert = start != curr_char_loc;
    curr_char_loc = end;
    if (kind == ptk_identifier && !inert) {
      a_symbol *macro_symbol =
          find_macro_symbol(header_of_identifier(start, static_cast<std::size_t>(end - start)));
      if (macro_symbol != nullptr && expand_macro_at(macro_symbol, start, &inert)) continue;
    }
    add_to_text_buffer(name_buffer, start, static_cast<std::size_t>(end - start));
  }
  name->length = name_buffer->size_used;
  name->text = copy_string_to_region(0, name_buffer->buffer, name->length);
  name->is_angle = true;
  return name->length != 0;
}

// "name", <name>, or macros that expand to one of these.
bool get_header_name(a_header_name *name) {
  if (name_buffer == nullptr) name_buffer = alloc_text_buffer(256);
  bool saved_exp = exp_header_name;
  exp_header_name = true;
  bool found = false;
  for (bool from_macro = false;;) {
    skip_white_space();
    const char *p = curr_char_loc;
    if (*p == '"') {
      found = take_header_name('"', name);
      break;
    }
    if (*p == '<') {
      found = from_macro ? join_angle_name(name) : take_header_name('>', name);
      break;
    }
    a_pp_text_kind kind;
    const char *end = end_of_pp_token(p, &kind, nullptr);
    if (kind != ptk_identifier) break;
    a_symbol *macro_symbol =
        find_macro_symbol(header_of_identifier(p, static_cast<std::size_t>(end - p)));
    bool inert;
    curr_char_loc = end;
    if (macro_symbol == nullptr || !expand_macro_at(macro_symbol, p, &inert)) {
      curr_char_loc = p;
      break;
    }
    from_macro = true;
  }
  exp_header_name = saved_exp;
  return found;
}

// ---- The directive -----------------------------------------------------------------------------

// <stdarg.h> is not read when its operators are known to the compiler: they become keywords.
static bool is_builtin_stdarg(const a_header_name *name) {
  if (!pass_stdarg_references_to_generated_code) return false;
  return std::strcmp(name->text, "stdarg.h") == 0 ||
         (in_cplusplus() && std::strcmp(name->text, "cstdarg") == 0);
}

static void enter_stdarg_operators() {
  static const struct {
    a_token_kind token;
    const char *name;
  } rows[] = {{tok_va_start, "va_start"},
              {tok_va_arg, "va_arg"},
              {tok_va_end, "va_end"},
              {tok_va_copy, "va_copy"}};
  actual_include_was_suppressed = true;
  for (const auto &row : rows) {
    if (row.token == tok_va_copy && !va_copy_macro_allowed) continue;
    if (find_macro_symbol_by_name(row.name) != nullptr) continue;
    enter_keyword(row.token, row.name);
    enter_predef_macro(row.name, row.name, mf_predefined);
  }
  declare_builtin_va_list_type();
}

void pp_include_directive(bool is_next) {
  if (check_misra_c_2004 && any_tokens_fetched_from_curr_input_file)
    pos_diagnostic(misra_advisory_severity, ec_misra_c_2004_19_1, &pos_of_directive);
  if (get_ifg_state() < ifg_not_guarded && get_ifg_state() != ifg_in_guard)
    set_ifg_state(ifg_not_guarded);
  if (is_next && processing_primary_source_file()) {
    pos_warning(ec_include_next_in_primary_source_file, &pos_of_directive_name);
    is_next = false;
  }
  a_header_name name;
  if (!get_header_name(&name)) {
    error_position = pos_of_directive;
    catastrophe(check_misra_c_2004 && !treat_as_none(ec_misra_c_2004_19_3) ? ec_misra_c_2004_19_3
                                                                           : ec_exp_file_name);
  }
  check_end_of_directive(relaxed_extra_text);
  no_token_separators_in_this_line_of_pp_output = true;
  if (is_builtin_stdarg(&name)) {
    enter_stdarg_operators();
    if (generate_pp_output) do_not_put_curr_line_in_pp_output = false;
    return;
  }
  bool may_fail = do_preprocessing_only && (generate_pp_output || !gnu_mode);
  error_position = pos_of_directive;
  open_file_and_push_input_stack(name.text, true, true, name.is_angle, false, false, false, is_next,
                                 may_fail, nullptr);
}
