// The stack of source files: what is pushed for an include, and popped at a file's end. Each entry
// keeps its place in the file's image, so that a file that was interrupted goes on where it stood.

#include "source/input_stack.h"

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "source/input_stack_internal.h"
#include "source/lexical.h"
#include "source/pp_output.h"
#include "source/preproc.h"
#include "source/preproc_internal.h"

int depth_input_stack = -1;
an_input_stack_entry *curr_ise;
bool any_tokens_fetched_from_curr_input_file;
a_unicode_source_kind_tag curr_file_unicode_source_kind;
bool check_for_byte_order_mark = true;
a_preinclude_file *preinclude_file_list;
a_preinclude_file *preinclude_macros_file_list;

static constexpr int max_self_includes = 10;

static an_input_stack_entry **input_stack;  // entries never move
static int size_of_input_stack;
static a_preinclude_file *end_preinclude_file_list;
static a_preinclude_file *end_preinclude_macros_file_list;
static a_preinclude_file *next_preinclude_file;
static bool preincludes_were_started;

an_input_stack_entry *input_stack_entry(int depth) {
  return input_stack[depth];
}

an_ifg_state get_ifg_state() {
  if (!curr_ise->is_include) return ifg_not_guarded;
  if ((curr_ise->guard_state == ifg_behind_endif || curr_ise->guard_state == ifg_at_start) &&
      any_tokens_fetched_from_curr_input_file)
    return ifg_not_guarded;
  return curr_ise->guard_state;
}

void set_ifg_state(an_ifg_state state) {
  if (!curr_ise->is_include) return;
  curr_ise->guard_state = state;
  if (state == ifg_behind_endif) any_tokens_fetched_from_curr_input_file = false;
}

// ---- Pushing -----------------------------------------------------------------------------------

static an_input_stack_entry *new_top_entry() {
  int depth = depth_input_stack + 1;
  if (depth >= size_of_input_stack) {
    int new_size = depth + 31;
    input_stack = static_cast<an_input_stack_entry **>(
        realloc_buffer(input_stack, static_cast<std::size_t>(size_of_input_stack) * sizeof(void *),
                       static_cast<std::size_t>(new_size) * sizeof(void *)));
    for (int i = size_of_input_stack; i < new_size; ++i)
      input_stack[i] = nullptr;
    size_of_input_stack = new_size;
  }
  if (input_stack[depth] == nullptr)
    input_stack[depth] =
        static_cast<an_input_stack_entry *>(alloc_general(sizeof(an_input_stack_entry)));
  *input_stack[depth] = {};
  return input_stack[depth];
}

// The current file is interrupted.
static void save_place_in_file() {
  if (curr_ise != nullptr) curr_ise->saved_char_pos = curr_file_pos;
}

// Reading goes on in the file on top.
static void make_top_entry_current() {
  if (depth_input_stack < 0) {
    static const char no_text[image_padding] = {'\n'};
    curr_ise = nullptr;
    curr_file_pos = curr_file_end = no_text;
    curr_file_unicode_source_kind = usk_none;
    return;
  }
  curr_ise = input_stack[depth_input_stack];
  curr_file_pos = curr_ise->saved_char_pos;
  curr_file_end = curr_ise->image->end;
  curr_file_unicode_source_kind = curr_ise->unicode_source_kind;
}

static void check_for_include_recursion(an_input_stack_entry *entry, const char *full_name) {
  int count = 0;
  for (int i = 0; i <= depth_input_stack; ++i)
    if (!input_stack[i]->is_clone && std::strcmp(input_stack[i]->full_name, full_name) == 0)
      ++count;
  if (count >= max_self_includes) str_catastrophe(ec_include_recursion, full_name);
  entry->is_recursive = count != 0;
}

static void list_pushed_file(const an_input_stack_entry *entry) {
  if (generate_pp_output) gen_pp_line_info(true);
  if (f_raw_listing != nullptr) gen_rlisting_line_info('1');
  if (list_makefile_dependencies) gen_dependency_line(entry->full_name);
  if (list_included_files && depth_input_stack > 0)
    gen_included_file_line(entry->full_name, depth_input_stack);
}

static a_source_file *parent_source_file() {
  return depth_input_stack >= 0 ? curr_ise->source_file : nullptr;
}

void push_input_stack(a_file_image *image, const char *name, const char *full_name,
                      a_directory_name_entry *search_dir, an_include_file_history *history,
                      const an_include_request *request) {
  if (depth_input_stack >= 0) {
    if (generate_pp_output) gen_pp_output_for_curr_line();
    if (f_raw_listing != nullptr) gen_raw_listing_for_curr_line();
    no_token_separators_in_this_line_of_pp_output = no_token_separators_in_pp_output;
  }
  save_place_in_file();
  a_source_file *parent = parent_source_file();
  an_input_stack_entry *entry = new_top_entry();
  check_for_include_recursion(entry, full_name);
  if (request->is_include)
    entry->is_system =
        search_dir != nullptr ? search_dir->is_system : curr_ise != nullptr && curr_ise->is_system;
  ++depth_input_stack;
  entry->image = image;
  entry->saved_char_pos = image->start;
  entry->name = name;
  entry->full_name = full_name;
  entry->directory = directory_of(full_name);
  entry->search_dir = search_dir;
  entry->include_history = history;
  entry->unicode_source_kind = image->kind;
  entry->is_include = request->is_include;
  entry->is_preinclude = request->is_preinclude;
  entry->do_not_pop = request->do_not_pop;
  entry->guard_state = ifg_at_start;
  entry->saved_any_tokens_fetched = any_tokens_fetched_from_curr_input_file;
  any_tokens_fetched_from_curr_input_file = end_of_all_input = false;
  if (image->kind != usk_none) multibyte_chars_in_source_enabled = true;
  make_top_entry_current();
  record_start_of_source_file(parent, seq_number_last_read + 1, 1, name, full_name, full_name,
                              &entry->source_file, request->is_include, false,
                              request->is_preinclude, false, 0, entry->is_system, 0);
  entry->primary_source_file = entry->source_file;
  list_pushed_file(entry);
  if (!request->do_not_pop || depth_input_stack > 0)
    push_primary_include_search_dir(entry->directory, entry->is_system);
  entry->saved_pp_if_depth = base_pp_if_stack_depth;
  if (!in_pcc_mode() && !check_misra_c_2004) base_pp_if_stack_depth = pp_if_stack_depth;
}

// ---- Popping -----------------------------------------------------------------------------------

// The file ends: can it be left out when it is included again?
static void judge_include_guard() {
  an_ifg_state state = get_ifg_state();
  an_include_file_history *history = curr_ise->include_history;
  if (history == nullptr) return;
  bool guarded = state == ifg_behind_endif || state == ifg_pragma_once;
  if (state == ifg_at_start) guarded = history->macro == nullptr;  // nothing at all is in it
  history->guard_complete = guarded;
  if (!guarded && check_misra_c_2004 && depth_input_stack >= 1 && !curr_ise->header_guard_seen) {
    a_source_position pos = make_source_position(seq_number_last_read, 1);
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_19_15, &pos);
  }
}

void pop_input_stack() {
  while (curr_ise->is_clone)
    pop_cloned_input_stack_entry();
  if (curr_ise->is_include) judge_include_guard();
  if (generate_pp_output) gen_pp_output_for_curr_line();
  if (f_raw_listing != nullptr) gen_raw_listing_for_curr_line();
  if (depth_input_stack == 0 || (!in_pcc_mode() && !check_misra_c_2004))
    verify_that_all_pp_ifs_were_closed();
  if (curr_ise->source_file != curr_ise->primary_source_file)
    record_end_of_source_file(curr_ise->source_file, seq_number_last_read);
  record_end_of_source_file(curr_ise->primary_source_file, seq_number_last_read);
  bool was_preinclude = curr_ise->is_preinclude && !curr_ise->do_not_pop;
  any_tokens_fetched_from_curr_input_file = curr_ise->saved_any_tokens_fetched;
  base_pp_if_stack_depth = curr_ise->saved_pp_if_depth;
  const char *directory = curr_ise->directory;
  bool was_system = curr_ise->is_system;
  --depth_input_stack;
  make_top_entry_current();
  pop_primary_include_search_dir(directory, was_system);
  if (depth_input_stack >= 0) {
    change_primary_include_search_dir(curr_ise->directory);
    record_resumption_of_source_file(curr_ise->source_file, seq_number_last_read + 1,
                                     curr_ise->line_number + 1);
    if (generate_pp_output) gen_pp_line_info(true);
    if (f_raw_listing != nullptr) gen_rlisting_line_info('2');
  }
  if (was_preinclude) push_next_preinclude_file();
}

// ---- Clones made by line directives ------------------------------------------------------------

void push_cloned_input_stack_entry() {
  save_place_in_file();
  const an_input_stack_entry *original = curr_ise;
  an_input_stack_entry *entry = new_top_entry();
  *entry = *original;
  entry->is_clone = true;
  ++depth_input_stack;
  make_top_entry_current();
}

// The place in the file and what was learned about it belong to the entry below.
void pop_cloned_input_stack_entry() {
  record_end_of_source_file(curr_ise->source_file, seq_number_last_read);
  an_input_stack_entry *clone = curr_ise;
  --depth_input_stack;
  an_input_stack_entry *below = input_stack[depth_input_stack];
  below->saved_char_pos = curr_file_pos;
  below->guard_state = clone->guard_state;
  below->header_guard_seen = clone->header_guard_seen;
  below->lines_read = clone->lines_read;
  make_top_entry_current();
}

// ---- Files read in front of the primary file ---------------------------------------------------

a_preinclude_file *alloc_preinclude_file(const char *name, bool macros_only) {
  a_preinclude_file *file =
      static_cast<a_preinclude_file *>(alloc_general(sizeof(a_preinclude_file)));
  *file = {nullptr, name, macros_only};
  a_preinclude_file **head = macros_only ? &preinclude_macros_file_list : &preinclude_file_list;
  a_preinclude_file **tail =
      macros_only ? &end_preinclude_macros_file_list : &end_preinclude_file_list;
  if (*head == nullptr)
    *head = file;
  else
    (*tail)->next = file;
  *tail = file;
  return file;
}

bool push_next_preinclude_file() {
  if (!preincludes_were_started) {
    preincludes_were_started = true;
    next_preinclude_file = preinclude_file_list;
  }
  while (next_preinclude_file != nullptr) {
    const char *name = next_preinclude_file->name;
    next_preinclude_file = next_preinclude_file->next;
    if (open_file_and_push_input_stack(name, true, true, false, true, false, false, false, false,
                                       nullptr))
      return true;
  }
  return false;
}

// ---- The source line of a message --------------------------------------------------------------

bool physical_source_line(const a_source_position *pos, a_text_buffer *out) {
  a_source_file *file;
  std::uint32_t line;
  bool at_end;
  reset_text_buffer(out);
  if (pos->seq == 0) return false;
  conv_seq_to_physical_file_and_line(pos->seq, &file, &line, &at_end);
  if (file == nullptr || line == 0 || at_end) return false;
  an_open_file_result result;
  a_file_image *image = image_of_source_file(file->path_name, &result);
  if (image == nullptr) return false;
  const char *p = image->start;
  for (; line > 1; --line) {
    p = static_cast<const char *>(std::memchr(p, '\n', static_cast<std::size_t>(image->end - p)));
    if (p == nullptr) return false;
    ++p;
  }
  if (p == image->end) return false;
  const char *end = p;
  while (end < image->end && *end != '\n')
    ++end;
  if (end != p && end[-1] == '\r') --end;
  add_to_text_buffer(out, p, static_cast<std::size_t>(end - p));
  return true;
}

// ---- Life cycle --------------------------------------------------------------------------------

void input_stack_early_init() {
  forget_output_files();
}

void input_stack_init() {
  forget_images();
  depth_input_stack = -1;
  make_top_entry_current();
}

void input_stack_trans_unit_init() {
  depth_input_stack = -1;
  make_top_entry_current();
  delete_source_from_loc = nullptr;
  any_tokens_fetched_from_curr_input_file = false;
  preincludes_were_started = false;
  init_line_buffer();
  clear_source_line_modifs();
  init_white_space();
}
