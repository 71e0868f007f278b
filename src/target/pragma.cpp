// The road of every pragma: recognised in its line, kept with its tokens, and delivered to what it
// belongs to.
//
// Lists of pending pragmas: those in front of the current token (curr_token_pragmas, which token
// caches carry along), those that bind to the construct being read, and those that wait for the end
// of a scope; the last two hang on the scope's stack entry, since constructs nest as scopes do.
#include "target/pragma.h"

#include <cstring>
#include <deque>

#include "UTIL/basics.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "ifile/if_util.h"
#include "il/il.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack.h"
#include "source/lexical.h"
#include "target/pragma_internal.h"

const char *const pragma_ids[prk_last] = {
#define PRAGMA_KIND(number, name, spelling, file_kind, placement) spelling,
#include "target/pragma.def"
};

a_pragma_kind_description *pragma_kind_descriptions;
a_pragma_kind_description *pragma_description_for_pragma_kind[prk_last];

// Set for alloc_pragma, which lies below this module.
extern void (*classify_pragma)(a_pragma *pragma);

namespace {

// ---- The record of the intermediate file -------------------------------------------------------

struct a_pragma_classification {
  a_file_pragma_kind file_kind;
  a_pragma_placement placement;
};
const a_pragma_classification pragma_classifications[prk_last] = {
#define PRAGMA_KIND(number, name, spelling, file_kind, placement) \
  {fpk_##file_kind, ppl_##placement},
#include "target/pragma.def"
};

void classify_il_pragma(a_pragma *pragma) {
  pragma->pragma_kind = pragma_classifications[pragma->kind].file_kind;
  pragma->placement = pragma_classifications[pragma->kind].placement;
}

std::deque<PRAGMA> file_pragmas;  // those that create_il_entry_for_pragma made

// ---- Pending pragmas ---------------------------------------------------------------------------

a_pending_pragma *avail_pending_pragmas;
a_pending_pragma *immediate_pragmas;  // just read, to be obeyed before the next token

a_pending_pragma *alloc_pending_pragma() {
  a_pending_pragma *pending = avail_pending_pragmas;
  if (pending != nullptr)
    avail_pending_pragmas = pending->next;
  else
    pending = static_cast<a_pending_pragma *>(
        alloc_in_region(permanent_region, sizeof(a_pending_pragma)));
  std::memset(static_cast<void *>(pending), 0, sizeof *pending);
  return pending;
}

void free_pending_pragma(a_pending_pragma *pending) {
  if (pending->has_tokens) discard_token_cache(&pending->tokens);
  pending->next = avail_pending_pragmas;
  avail_pending_pragmas = pending;
}

// Thousands may wait for one token: the first of a list remembers where the next one goes, as long
// as none is taken out behind it.
void append_pending(a_pending_pragma **list, a_pending_pragma *added) {
  a_pending_pragma *first = *list;
  if (added != nullptr) added->last_of_list = nullptr;
  if (first == nullptr) {
    *list = added;
    return;
  }
  a_pending_pragma *last = first->last_of_list != nullptr ? first->last_of_list : first;
  while (last->next != nullptr)
    last = last->next;
  last->next = added;
  first->last_of_list = added;
}

void forget_last(a_pending_pragma *list) {
  if (list != nullptr) list->last_of_list = nullptr;
}

a_pending_pragma *take_list(a_pending_pragma **list) {
  a_pending_pragma *taken = *list;
  *list = nullptr;
  return taken;
}

bool scope_ignores_pragmas() {
  return depth_scope_stack < 0;
}

// ---- Reading the line --------------------------------------------------------------------------

// What is left of the line, without the white space around it.
void read_raw_text(a_pending_pragma *pending) {
  skip_white_space();
  init_token_string();
  get_token();
  while (!at_end_of_pragma()) {
    add_curr_token_to_string();
    get_token();
  }
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  pending->text = make_copy_of_token_string();
  switch_back_to_original_region(saved);
}

// The tokens up to the end of the line or (in_parens) the ) that ends the operator.
void read_tokens(a_pending_pragma *pending, bool in_parens) {
  bool saved_fetch = fetch_pp_tokens;
  fetch_pp_tokens = false;
  exp_header_name = (pending->description->flags & pfl_header_name) != 0;
  pending->has_tokens = true;
  clear_token_cache(&pending->tokens, true);
  int depth = 0;
  get_token();
  while (!at_end_of_pragma()) {
    exp_header_name = false;
    if (in_parens && curr_token == tok_lparen) ++depth;
    if (in_parens && curr_token == tok_rparen && depth-- == 0) break;
    cache_curr_token(&pending->tokens);
    get_token();
  }
  exp_header_name = false;
  fetch_pp_tokens = saved_fetch;
  if ((pending->description->flags & pfl_keep_text) == 0) return;
  init_token_string();
  add_token_cache_to_string(&pending->tokens);
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  pending->text = make_copy_of_token_string();
  switch_back_to_original_region(saved);
}

void skip_line(bool in_parens) {
  int depth = 0;
  get_token();
  while (!at_end_of_pragma()) {
    if (in_parens && curr_token == tok_lparen) ++depth;
    if (in_parens && curr_token == tok_rparen && depth-- == 0) break;
    get_token();
  }
}

bool is_read_as_raw_text(const a_pragma_kind_description *description) {
  const std::uint16_t in_il_with_text = pfl_in_il | pfl_keep_text;
  return (description->flags & pfl_raw_text) != 0 &&
         !((description->flags & in_il_with_text) == in_il_with_text &&
           description->mode == pmo_preprocessor);
}

void run(a_pending_pragma *pending, a_symbol *symbol, a_statement *statement) {
  if (pending->description->handler != nullptr)
    pending->description->handler(pending, symbol, statement);
}

}  // namespace

// # pragma identifier tokens
void record_pragma(a_pragma_kind_description *description,
                   const a_source_position *directive_position,
                   const a_source_position *name_position, bool in_parens) {
  if (description == nullptr && !do_preprocessing_only)
    pos_warning(ec_unrecognized_pragma, name_position);
  bool kept =
      description != nullptr && (!do_preprocessing_only || description->mode == pmo_preprocessor);
  if (!kept) {
    skip_line(in_parens);
    return;
  }
  a_pending_pragma *pending = alloc_pending_pragma();
  pending->description = description;
  pending->directive_position = *directive_position;
  pending->name_position = *name_position;
  pending->in_parens = in_parens;
  bool saved_expand = expand_macros;
  expand_macros = (description->flags & pfl_expand_macros) != 0;
  if (is_read_as_raw_text(description))
    read_raw_text(pending);
  else
    read_tokens(pending, in_parens);
  expand_macros = saved_expand;
  if (description->mode == pmo_immediate && !caching_tokens) {
    append_pending(&immediate_pragmas, pending);
    return;
  }
  if (description->mode != pmo_preprocessor) {
    append_pending(&curr_token_pragmas, pending);
    any_initial_get_token_tests_needed = true;
    return;
  }
  run(pending, nullptr, nullptr);
  if ((description->flags & pfl_in_il) != 0 && !do_preprocessing_only && depth_scope_stack >= 0)
    add_pragma_to_il(pending, iek_none, nullptr, true);
  free_pending_pragma(pending);
}

a_pragma_kind_description *look_up_pragma_id(a_source_position *position) {
  get_token();
  *position = pos_curr_token;
  if (curr_token != tok_identifier && !is_keyword_token(curr_token)) {
    unget_token();
    return nullptr;
  }
  std::size_t length = len_of_curr_token;
  for (a_pragma_kind_description *description = pragma_kind_descriptions; description != nullptr;
       description = description->next) {
    const char *spelling = pragma_ids[description->kind];
    if (std::strlen(spelling) == length && std::memcmp(spelling, start_of_curr_token, length) == 0)
      return description;
  }
  return nullptr;
}

bool pragma_is_preprocessor_mode(const a_pragma_kind_description *description) {
  return description->mode == pmo_preprocessor;
}

bool pragma_is_push_or_pop_macro(const a_pragma_kind_description *description) {
  return description->kind == prk_push_macro || description->kind == prk_pop_macro;
}

bool pragma_is_once(const a_pragma_kind_description *description) {
  return description->kind == prk_once;
}

bool pragma_is_gcc_system_header(const a_pragma_kind_description *description) {
  if (description->kind != prk_GCC) return false;
  static constexpr char word[] = "system_header";
  int length;
  const char *loc = curr_char_loc;
  while (*loc == ' ' || *loc == '\t')
    ++loc;
  return std::strncmp(loc, word, sizeof word - 1) == 0 &&
         !f_is_identifier_char(loc + sizeof word - 1, false, &length);
}

bool pragma_must_be_directive(const a_pragma_kind_description *description) {
  return description->kind == prk_hdrstop || description->kind == prk_no_pch;
}

void add_curr_token_pseudo_pragma(a_pragma_kind kind, const a_source_position *position) {
  if (pragma_description_for_pragma_kind[kind] == nullptr) return;
  a_pending_pragma *pending = alloc_pending_pragma();
  pending->description = pragma_description_for_pragma_kind[kind];
  pending->name_position = pending->directive_position = *position;
  append_pending(&curr_token_pragmas, pending);
  any_initial_get_token_tests_needed = true;
}

a_pending_pragma *make_copy_of_pragma_list(const a_pending_pragma *list) {
  a_pending_pragma *first = nullptr, **link = &first;
  for (; list != nullptr; list = list->next) {
    a_pending_pragma *copy = alloc_pending_pragma();
    *copy = *list;
    copy->next = copy->last_of_list = nullptr;
    if (copy->has_tokens) {
      clear_token_cache(&copy->tokens, true);
      copy_tokens_from_cache(&list->tokens, 0, 0, false, &copy->tokens);
    }
    *link = copy;
    link = &copy->next;
  }
  return first;
}

void free_pending_pragmas(a_pending_pragma *list) {
  while (list != nullptr) {
    a_pending_pragma *next = list->next;
    free_pending_pragma(list);
    list = next;
  }
}

// ---- Delivery ----------------------------------------------------------------------------------

namespace {

void run_without_construct(a_pending_pragma *pending) {
  const std::uint16_t flags = pending->description->flags;
  if ((flags & pfl_in_il) != 0 && !caching_tokens)
    add_pragma_to_il(pending, iek_none, nullptr, (flags & pfl_at_current_scope) != 0);
  run(pending, nullptr, nullptr);
}

// False: it was reported, and is to be dropped.
bool allowed_without_construct(const a_pending_pragma *pending) {
  an_error_severity severity = pending->description->misplaced_severity;
  if (severity == es_none) return true;
  unsigned places = pending->description->flags & (pfl_declaration | pfl_statement);
  if (places != 0)
    pos_diagnostic(severity,
                   places == pfl_declaration ? ec_pragma_must_precede_declaration
                   : places == pfl_statement ? ec_pragma_must_precede_statement
                                             : ec_pragma_must_precede_decl_or_stmt,
                   &pending->name_position);
  return false;
}

void process_free_pragma(a_pending_pragma *pending) {
  pending->next = nullptr;
  switch (pending->description->mode) {
    case pmo_construct:
      if (allowed_without_construct(pending)) run_without_construct(pending);
      break;
    case pmo_ordered:
      run_without_construct(pending);
      break;
    case pmo_immediate:
      run_without_construct(pending);
      break;
    case pmo_scope:
      append_pending(&scope_stack[decl_scope_level].scope_pragmas, pending);
      return;
    case pmo_preprocessor:
      unexpected_state("a preprocessor pragma is waiting");
  }
  free_pending_pragma(pending);
}

}  // namespace

void process_curr_token_pragmas() {
  a_pending_pragma *list = take_list(&curr_token_pragmas);
  update_initial_get_token_tests();
  while (list != nullptr) {
    a_pending_pragma *next = list->next;
    if (scope_ignores_pragmas() && list->description->mode != pmo_immediate)
      free_pending_pragma(list);
    else
      process_free_pragma(list);
    list = next;
  }
}

void select_curr_construct_pragmas(bool) {
  if (curr_token_pragmas == nullptr || scope_ignores_pragmas()) return;
  a_pending_pragma **target = &top_scope().construct_pragmas;
  for (a_pending_pragma **link = &curr_token_pragmas; *link != nullptr;) {
    a_pending_pragma *pending = *link;
    if (pending->description->mode != pmo_construct) {
      link = &pending->next;
      continue;
    }
    *link = pending->next;
    pending->next = nullptr;
    if (total_errors != 0)
      free_pending_pragma(pending);
    else
      append_pending(target, pending);
  }
  forget_last(curr_token_pragmas);
  process_curr_token_pragmas();
}

void process_immediate_pragmas() {
  if (immediate_pragmas == nullptr) return;
  // A rescan of tokens looks at the list: it must be empty meanwhile.
  a_pending_pragma *waiting = take_list(&curr_token_pragmas);
  a_pending_pragma *list = take_list(&immediate_pragmas);
  while (list != nullptr) {
    a_pending_pragma *next = list->next;
    run_without_construct(list);
    free_pending_pragma(list);
    list = next;
  }
  if (curr_token_pragmas != nullptr) append_pending(&waiting, curr_token_pragmas);
  curr_token_pragmas = waiting;
  update_initial_get_token_tests();
}

namespace {

void bind_to_statement(a_pending_pragma *pending, a_statement *statement) {
  const a_pragma_kind_description &description = *pending->description;
  if ((description.flags & pfl_statement) == 0) {
    allowed_without_construct(pending);
    return;
  }
  if ((description.flags & pfl_in_il) != 0 && !caching_tokens)
    add_pragma_to_il(pending, iek_statement, statement, false);
  run(pending, nullptr, statement);
}

void bind_to_symbol(a_pending_pragma *pending, a_symbol *symbol) {
  const a_pragma_kind_description &description = *pending->description;
  if ((description.flags & pfl_declaration) == 0) {
    allowed_without_construct(pending);
    return;
  }
  if ((description.flags & pfl_in_il) != 0 && !caching_tokens) {
    an_il_entry_kind kind = iek_none;
    void *entity = il_entry_for_symbol_null_okay(symbol, &kind);
    add_pragma_to_il(pending, kind, entity, false);
  }
  run(pending, symbol, nullptr);
}

}  // namespace

void process_curr_construct_pragmas(a_symbol *symbol, a_statement *statement) {
  a_pending_pragma *list = extract_curr_construct_pragmas();
  for (a_pending_pragma *pending = list; pending != nullptr; pending = pending->next) {
    if (statement != nullptr)
      bind_to_statement(pending, statement);
    else if (symbol != nullptr)
      bind_to_symbol(pending, symbol);
    else
      allowed_without_construct(pending);
  }
  free_pending_pragmas(list);
}

bool any_curr_construct_pragmas() {
  return depth_scope_stack >= 0 && top_scope().construct_pragmas != nullptr;
}

namespace {

// Moves the pragmas of a kind from one list to the end of another.
void extract_kind(a_pending_pragma **from, a_pragma_kind kind, a_pending_pragma **to) {
  a_pending_pragma **list = from;
  while (*from != nullptr) {
    a_pending_pragma *pending = *from;
    if (pending->description->kind != kind) {
      from = &pending->next;
      continue;
    }
    *from = pending->next;
    pending->next = nullptr;
    append_pending(to, pending);
  }
  forget_last(*list);
}

}  // namespace

a_pending_pragma *extract_specific_pragmas(a_pragma_kind kind, a_symbol *symbol,
                                           a_statement *statement, bool this_scope_only) {
  const a_pragma_kind_description *description = pragma_description_for_pragma_kind[kind];
  a_pending_pragma *found = nullptr;
  if (description == nullptr) return nullptr;
  if (description->mode == pmo_construct) {
    extract_kind(&top_scope().construct_pragmas, kind, &found);
  } else {
    for (int depth = depth_scope_stack; depth >= 0; --depth) {
      extract_kind(&scope_stack[depth].scope_pragmas, kind, &found);
      if (this_scope_only) break;
      if (scope_stack[depth].kind == sck_template_instantiation) depth = 1;
    }
  }
  if ((description->flags & pfl_in_il) == 0) return found;
  an_il_entry_kind entity_kind = statement != nullptr ? iek_statement : iek_none;
  void *entity = statement;
  if (symbol != nullptr) entity = il_entry_for_symbol_null_okay(symbol, &entity_kind);
  for (a_pending_pragma *pending = found; pending != nullptr; pending = pending->next)
    add_pragma_to_il(pending, entity_kind, entity, false);
  return found;
}

bool take_lint_pragma(a_pragma_kind kind) {
  a_pending_pragma *found = nullptr;
  if (curr_token_pragmas != nullptr) extract_kind(&curr_token_pragmas, kind, &found);
  if (any_curr_construct_pragmas()) extract_kind(&top_scope().construct_pragmas, kind, &found);
  free_pending_pragmas(found);
  return found != nullptr;
}

a_pending_pragma *extract_curr_construct_pragmas() {
  return depth_scope_stack < 0 ? nullptr : take_list(&top_scope().construct_pragmas);
}

void reactivate_curr_construct_pragmas(const a_pending_pragma *list) {
  top_scope().construct_pragmas = make_copy_of_pragma_list(list);
}

void discard_curr_construct_pragmas() {
  free_pending_pragmas(extract_curr_construct_pragmas());
}

void cannot_bind_to_curr_construct() {
  a_pending_pragma *list = extract_curr_construct_pragmas();
  for (const a_pending_pragma *pending = list; pending != nullptr; pending = pending->next)
    if (pending->description->misplaced_severity != es_none)
      pos_diagnostic(pending->description->misplaced_severity, ec_pragma_may_not_be_used_here,
                     &pending->name_position);
  free_pending_pragmas(list);
}

void end_of_scope_pragma_processing(a_scope_stack_entry *entry) {
  a_pending_pragma *list = take_list(&entry->scope_pragmas);
  for (a_pending_pragma *pending = list; pending != nullptr; pending = pending->next)
    process_c_pragma(pending);
  free_pending_pragmas(list);
  if (entry->construct_pragmas != nullptr) cannot_bind_to_curr_construct();
}

void process_pragmas_at_end_of_source() {
  if (curr_token_pragmas != nullptr) process_curr_token_pragmas();
  end_of_scope_pragma_processing(&top_scope());
}

void check_for_stdc_pragmas() {
  a_pending_pragma *found = nullptr;
  extract_kind(&curr_token_pragmas, prk_STDC, &found);
  if (found == nullptr) return;
  update_initial_get_token_tests();
  a_pending_pragma *others = take_list(&curr_token_pragmas);
  for (a_pending_pragma *pending = found; pending != nullptr; pending = pending->next)
    obey_stdc_pragma(pending);
  free_pending_pragmas(found);
  curr_token_pragmas = others;
  update_initial_get_token_tests();
}

// ---- IL ----------------------------------------------------------------------------------------

namespace {

bool scope_keeps_pragmas(a_scope_kind kind) {
  return kind == sck_file || kind == sck_block || kind == sck_namespace ||
         kind == sck_namespace_extension || kind == sck_enum || kind == sck_function ||
         (in_cplusplus() && kind == sck_class);
}

// The depth of the scope that lists the pragma of an entity; 0, the file scope, when it is closed.
int depth_of_entity(const a_source_correspondence *entity) {
  for (int depth = depth_scope_stack; depth > 0; --depth)
    if (scope_stack[depth].il_scope != nullptr &&
        scope_stack[depth].il_scope == get_parent_scope_of(entity))
      return depth;
  return in_file_scope_region(entity) ? 0 : depth_scope_stack;
}

int depth_for_pragma(const a_source_correspondence *head, const void *entity,
                     bool at_current_scope) {
  if (head != nullptr) return depth_of_entity(head);
  if (entity != nullptr || at_current_scope) return depth_scope_stack;
  int depth = depth_scope_stack;
  while (depth > 0 && !scope_keeps_pragmas(scope_stack[depth].kind))
    --depth;
  return depth;
}

}  // namespace

a_pragma *make_il_pragma(a_pending_pragma *pending, an_il_entry_kind entity_kind, void *entity,
                         bool at_current_scope) {
  a_source_correspondence *head = entity == nullptr || entity_kind == iek_statement
                                      ? nullptr
                                      : source_corresp_for_il_entry(entity, entity_kind);
  int depth = depth_for_pragma(head, entity, at_current_scope);
  ensure_il_scope_exists(&scope_stack[depth]);
  if (scope_stack[depth].il_scope == nullptr) depth = 0;
  a_memory_region_number saved = curr_il_region_number;
  switch_il_region(scope_stack[depth].il_region);
  a_pragma *pragma = alloc_pragma(pending->description->kind, head);
  switch_il_region(saved);
  pragma->position = pending->name_position;
  pragma->text = pending->text;
  pragma->hidden = (pending->description->flags & pfl_hidden) != 0;
  pragma->entity_kind = entity != nullptr ? entity_kind : iek_none;
  pragma->entity = entity;
  if (head != nullptr) head->has_associated_pragma = true;
  if (entity != nullptr && entity_kind == iek_statement)
    static_cast<a_statement *>(entity)->has_associated_pragma = true;
  add_to_pragma_list(pragma, depth);
  return pragma;
}

void add_pragma_to_il(a_pending_pragma *pending, an_il_entry_kind entity_kind, void *entity,
                      bool at_current_scope) {
  if (scope_ignores_pragmas()) return;
  pending->il_pragma = make_il_pragma(pending, entity_kind, entity, at_current_scope);
}

a_pragma *create_il_entry_for_pragma(a_pending_pragma *pending, a_symbol *symbol,
                                     a_statement *statement) {
  an_il_entry_kind kind = statement != nullptr ? iek_statement : iek_none;
  void *entity = statement;
  if (symbol != nullptr) entity = il_entry_for_symbol_null_okay(symbol, &kind);
  a_pragma *pragma = make_il_pragma(pending, kind, entity, entity == nullptr);
  pending->il_pragma = pragma;
  // That a function is called from outside is no record of the file.
  if (pragma->pragma_kind == fpk_INVALID || pragma->kind == prk_FUNC_EXT_CALLED) return pragma;
  pragma->pragma = &file_pragmas.emplace_back();
  pragma->pragma->kind = static_cast<std::uint8_t>(pragma->pragma_kind);
  return pragma;
}

void add_pragma_text(a_pragma *pragma, const char *text) {
  if (pragma->text == nullptr) pragma->text = text;
  if (pragma->pragma != nullptr) pragma->pragma->texts.push_back(text);
}

a_pragma *find_assoc_pragma(const void *entity, a_scope *scope, a_type *type, a_pragma *previous) {
  a_pragma *pragma;
  if (previous != nullptr)
    pragma = previous->next;
  else if (type != nullptr)
    pragma = type->class_supplement->member_scope->pragmas;
  else if (scope == nullptr || ((scope->kind == sck_function || scope->kind == sck_block) &&
                                in_file_scope_region(entity)))
    pragma = il_header.primary_scope->pragmas;
  else
    pragma = scope->pragmas;
  while (pragma != nullptr && pragma->entity != entity)
    pragma = pragma->next;
  return pragma;
}

// ---- Phases ------------------------------------------------------------------------------------

namespace {

bool stdc_pragmas_known() {
  return !in_cplusplus() && std_version >= 199901;
}

void register_pragma(a_pragma_kind_description ***link, a_pragma_kind kind, a_pragma_mode mode,
                     a_pragma_handler handler, std::uint16_t flags, an_error_severity severity) {
  auto *description = static_cast<a_pragma_kind_description *>(
      alloc_in_region(permanent_region, sizeof(a_pragma_kind_description)));
  *description = {nullptr, kind, mode, handler, flags, severity};
  **link = description;
  *link = &description->next;
  pragma_description_for_pragma_kind[kind] = description;
}

}  // namespace

void pragma_one_time_init() {
  classify_pragma = classify_il_pragma;
}

void pragma_init() {
  file_pragmas.clear();
  pragma_kind_descriptions = nullptr;
  avail_pending_pragmas = nullptr;
  immediate_pragmas = nullptr;
  std::memset(pragma_description_for_pragma_kind, 0, sizeof pragma_description_for_pragma_kind);
  a_pragma_kind_description **link = &pragma_kind_descriptions;
#define REGISTERED_PRAGMA(name, condition, c_mode, c_handler, c_flags, c_severity, cpp_mode,    \
                          cpp_handler, cpp_flags, cpp_severity)                                 \
  if (condition) {                                                                              \
    if (in_cplusplus())                                                                         \
      register_pragma(&link, prk_##name, pmo_##cpp_mode, cpp_handler, cpp_flags, cpp_severity); \
    else                                                                                        \
      register_pragma(&link, prk_##name, pmo_##c_mode, c_handler, c_flags, c_severity);         \
  }
#include "target/pragma.def"
  clear_pack_stack();
  clear_block_sections();
  clear_gcc_pragma_options();
}
