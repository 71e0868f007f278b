// The general walker: every entry of a region once, with hooks, and the rewriting of pointers.
//
// An entry is visited when it carries the number of the walk. Lists are followed by a loop, so that
// long ones do not deepen the stack.
#include "il/il_walk.h"

#include "driver/trans_unit.h"
#include "il/il_fields.h"
#include "il/il_walk_internal.h"

std::uint32_t current_walk_number;

namespace {
std::uint32_t last_walk_number;  // no number is given out twice
}

namespace {

struct a_walk_state {
  a_post_entry_hook post_entry_hook;
  a_text_hook text_hook;
  a_pre_entry_hook pre_entry_hook;
  a_remap_hook pointer_remap_hook;
  a_remap_hook list_link_remap_hook;
  bool walk_file_scope_entries;  // false in a walk of a function's region
  bool clear_hidden_links;
};
a_walk_state walk;

void walk_entry(void *entry, an_il_entry_kind kind);

template <class T>
T *remapped(a_remap_hook hook, T *pointer, an_il_entry_kind kind) {
  if (hook == nullptr || pointer == nullptr) return pointer;
  return reinterpret_cast<T *>(hook(reinterpret_cast<char *>(pointer), kind));
}

// Rewrites the fields of one entry; goes on into them when it recurses.
template <bool recurses>
struct a_general_visitor {
  template <class T>
  void entry(T *&field, an_il_entry_kind kind) {
    remap(field, kind);
    if (recurses && field != nullptr) walk_entry(field, kind);
  }
  template <class T>
  void list(T *&head, an_il_entry_kind kind) {
    remap_link(head, kind);
    if (!recurses) return;
    for (T *entry = head; entry != nullptr;) {
      remap_link(link_of(entry), kind);
      T *next = link_of(entry);
      walk_entry(entry, kind);
      entry = next;
    }
  }
  void constants(a_constant *&head) { list(head, iek_constant); }
  template <class T>
  void owned(T *&head, an_il_entry_kind kind) {
    list(head, kind);
  }
  void owned_constants(a_constant *&head) { list(head, iek_constant); }
  template <class T>
  void ref(T *&field, an_il_entry_kind kind) {
    remap(field, kind);
  }
  void text(const char *&text, an_il_entry_kind kind, std::size_t size) {
    if (walk.pointer_remap_hook != nullptr)
      text = walk.pointer_remap_hook(const_cast<char *>(text), kind);
    if (recurses && walk.text_hook != nullptr && text != nullptr)
      walk.text_hook(const_cast<char *>(text), kind, size);
  }
  template <class T>
  void hidden(T *&field) {
    if (walk.clear_hidden_links) field = nullptr;
  }

 private:
  template <class T>
  void remap(T *&field, an_il_entry_kind kind) {
    if (walk.pointer_remap_hook != nullptr) field = remapped(walk.pointer_remap_hook, field, kind);
  }
  template <class T>
  void remap_link(T *&link, an_il_entry_kind kind) {
    a_remap_hook hook =
        walk.list_link_remap_hook != nullptr ? walk.list_link_remap_hook : walk.pointer_remap_hook;
    if (hook != nullptr) link = remapped(hook, link, kind);
  }
};

// A file-scope entry that a function body reaches is left alone, but must not get lost.
bool is_outside_walked_region(void *entry, an_il_entry_kind kind) {
  if (walk.walk_file_scope_entries || !in_file_scope_region(entry)) return false;
  f_possibly_add_orphaned_file_scope_il_entry(entry, kind, curr_translation_unit);
  return true;
}

void walk_entry(void *entry, an_il_entry_kind kind) {
  if (is_outside_walked_region(entry, kind)) return;
  if (walk.pre_entry_hook != nullptr) {
    if (walk.pre_entry_hook(static_cast<char *>(entry), kind) != 0) return;
  } else {
    if (il_marks(entry).walk_number == current_walk_number) return;
    il_marks(entry).walk_number = current_walk_number;
  }
  a_general_visitor<true> visitor;
  visit_fields_of_entry(entry, kind, visitor);
  if (walk.post_entry_hook != nullptr) walk.post_entry_hook(static_cast<char *>(entry), kind);
}

template <class T>
void walk_list(T *&head, an_il_entry_kind kind) {
  a_general_visitor<true>().list(head, kind);
}

// Saves the state of the walk that runs.
class a_saved_walk {
 public:
  a_saved_walk() : state_(walk) {}
  ~a_saved_walk() { walk = state_; }
  a_saved_walk(const a_saved_walk &) = delete;
  a_saved_walk &operator=(const a_saved_walk &) = delete;

 private:
  a_walk_state state_;
};

void set_hooks(a_post_entry_hook post_hook, a_text_hook text_hook, a_remap_hook remap_hook,
               a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook, bool clear_hidden_links) {
  walk.post_entry_hook = post_hook;
  walk.text_hook = text_hook;
  walk.pointer_remap_hook = remap_hook;
  walk.list_link_remap_hook = list_remap_hook;
  walk.pre_entry_hook = pre_hook;
  walk.clear_hidden_links = clear_hidden_links;
}

void walk_text(const char *&text) {
  if (text == nullptr) return;
  a_general_visitor<true>().text(text, iek_other_text, std::strlen(text) + 1);
}

void walk_orphans() {
  for (int kind = 1; kind < iek_last; ++kind) {
    for (void *entry = orphaned_file_scope_il_entries[kind].first; entry != nullptr;
         entry = next_orphan_of(entry))
      walk_entry(entry, static_cast<an_il_entry_kind>(kind));
  }
}

}  // namespace

void start_new_il_walk() {
  current_walk_number = ++last_walk_number;
  check_invariant(current_walk_number != 0);
}

void walk_file_scope_il(a_post_entry_hook post_hook, a_text_hook text_hook, a_remap_hook remap_hook,
                        a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook,
                        bool clear_hidden_links) {
  const a_saved_walk saved;
  set_hooks(post_hook, text_hook, remap_hook, list_remap_hook, pre_hook, clear_hidden_links);
  walk.walk_file_scope_entries = true;
  start_new_il_walk();
  il_header.primary_scope = remapped(remap_hook, il_header.primary_scope, iek_scope);
  if (il_header.primary_scope != nullptr) walk_entry(il_header.primary_scope, iek_scope);
  walk_list(il_header.primary_source_files, iek_source_file);
  il_header.main_routine = remapped(remap_hook, il_header.main_routine, iek_routine);
  if (il_header.main_routine != nullptr) walk_entry(il_header.main_routine, iek_routine);
  walk_text(il_header.version_text);
  walk_text(il_header.configuration_text);
  walk_list(il_header.orphaned_scope_lists, iek_scope_orphaned_list_header);
  walk_list(il_header.macro_list, iek_macro);
  walk_orphans();
}

void walk_routine_scope_il(a_memory_region_number region, a_post_entry_hook post_hook,
                           a_text_hook text_hook, a_remap_hook remap_hook,
                           a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook,
                           bool clear_hidden_links) {
  a_scope *&root = il_header.region_scope_table[region];
  if (root == nullptr) return;
  const a_saved_walk saved;
  set_hooks(post_hook, text_hook, remap_hook, list_remap_hook, pre_hook, clear_hidden_links);
  walk.walk_file_scope_entries = false;
  start_new_il_walk();
  walk_list(root, iek_scope);
}

void walk_il_subtree(a_post_entry_hook post_hook, a_text_hook text_hook, a_remap_hook remap_hook,
                     a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook,
                     bool clear_hidden_links, void *entry, an_il_entry_kind kind) {
  const a_saved_walk saved;
  set_hooks(post_hook, text_hook, remap_hook, list_remap_hook, pre_hook, clear_hidden_links);
  entry = remapped(remap_hook, static_cast<char *>(entry), kind);
  if (entry == nullptr) return;
  walk.walk_file_scope_entries = in_file_scope_region(entry);
  walk_entry(entry, kind);
}

void remap_pointers_in_il_entry(void *entry, an_il_entry_kind kind, a_remap_hook remap_hook,
                                a_remap_hook list_remap_hook, bool clear_hidden_links) {
  const a_saved_walk saved;
  set_hooks(nullptr, nullptr, remap_hook, list_remap_hook, nullptr, clear_hidden_links);
  a_general_visitor<false> visitor;
  visit_fields_of_entry(entry, kind, visitor);
}

void remap_last_ptr_of_orphaned_file_scope_entry_array(a_remap_hook remap_hook) {
  for (int kind = 1; kind < iek_last; ++kind) {
    an_orphan_list &list = orphaned_file_scope_il_entries[kind];
    list.last =
        remapped(remap_hook, static_cast<char *>(list.last), static_cast<an_il_entry_kind>(kind));
  }
}

void il_walk_init() {
  walk = {};
  current_walk_number = last_walk_number = 0;
  end_of_file_scope_needed_flags_phase = false;
  il_needed_init();
}
