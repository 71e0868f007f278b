// Copies of trees: what an expression consists of is copied, what it names stays.
//
// A plain copy of a record shares its children; the copier then replaces each child, as the table
// of fields tells it, by a copy of its own when the child is part of the tree (a node, an
// initialization) and leaves entities, types and shared constants alone.
#include <type_traits>

#include "il/il.h"
#include "il/il_alloc_internal.h"
#include "il/il_fields.h"

namespace {

// The records that a tree consists of. The statements of a statement expression stay shared: they
// hold labels and scopes, which exist once.
template <class T>
constexpr bool is_part_of_tree =
    std::is_same_v<T, an_expr_node> || std::is_same_v<T, a_dynamic_init> ||
    std::is_same_v<T, a_new_delete_supplement> || std::is_same_v<T, a_throw_supplement> ||
    std::is_same_v<T, a_condition_supplement>;

struct a_copier {
  int flags;

  template <class T>
  void entry(T *&field, an_il_entry_kind) {
    if constexpr (is_part_of_tree<T>) {
      if (field != nullptr) field = deep_copy(field);
    }
  }
  void entry(a_constant *&field, an_il_entry_kind) {
    if (field != nullptr && constant_is_copied(field)) field = deep_copy(field);
  }
  template <class T>
  void list(T *&head, an_il_entry_kind) {
    if constexpr (is_part_of_tree<T>) {
      for (T **link = &head; *link != nullptr; link = &(*link)->next)
        *link = deep_copy(*link);
    }
  }
  // The members are linked through themselves, so each needs a copy.
  void constants(a_constant *&head) {
    for (a_constant **link = &head; *link != nullptr; link = &(*link)->next_in_list)
      *link = deep_copy(*link);
  }
  template <class T>
  void owned(T *&, an_il_entry_kind) {}
  void owned_constants(a_constant *&) {}
  template <class T>
  void ref(T *&, an_il_entry_kind) {}
  void text(const char *&, an_il_entry_kind, std::size_t) {}
  template <class T>
  void hidden(T *&) {}

  template <class T>
  T *shallow_copy(const T *record) {
    void *block = (flags & ctf_into_file_scope) != 0 ? alloc_il(sizeof(T))
                                                     : alloc_in_current_il_region(sizeof(T));
    T *copy = static_cast<T *>(block);
    *copy = *record;
    return copy;
  }

  template <class T>
  T *deep_copy(const T *record) {
    T *copy = shallow_copy(record);
    visit_fields(copy, *this);
    return copy;
  }

  an_expr_node *deep_copy(const an_expr_node *node) {
    an_expr_node *copy = shallow_copy(node);
    if ((flags & ctf_keep_rescan_info) == 0) copy->rescan_info = nullptr;
    const bool is_temporary = copy->kind == enk_temp_init || copy->kind == enk_reusable_value;
    if (!is_temporary || (flags & ctf_share_temporaries) == 0) visit_fields(copy, *this);
    return copy;
  }

  a_constant *deep_copy(const a_constant *constant) {
    a_constant *copy = shallow_copy(constant);
    if (copy->expr != nullptr && goes_to_file_scope() && !in_file_scope_region(copy->expr))
      copy->expr = nullptr;
    visit_constant_value(copy, *this);
    if (copy->kind == ck_aggregate) {
      a_constant *last = copy->first_element;
      while (last != nullptr && last->next_in_list != nullptr)
        last = last->next_in_list;
      copy->last_element = last;
    }
    return copy;
  }

  bool goes_to_file_scope() const {
    return (flags & ctf_into_file_scope) != 0 || curr_il_region_number == file_scope_region_number;
  }

  // Compound constants may hold initializations; all others are shared, unless they end with a
  // function and the copy does not.
  bool constant_is_copied(const a_constant *constant) const {
    if (goes_to_file_scope() && !in_file_scope_region(constant)) return true;
    switch (constant->kind) {
      case ck_aggregate:
      case ck_repeat:
      case ck_dynamic_init:
      case ck_designator:
        return true;
      default:
        return false;
    }
  }
};

}  // namespace

an_expr_node *copy_node(const an_expr_node *node) {
  an_expr_node *copy = a_copier{ctf_none}.shallow_copy(node);
  copy->next = nullptr;
  return copy;
}

an_expr_node *copy_expr_tree(const an_expr_node *expr, int flags) {
  if (expr == nullptr) return nullptr;
  an_expr_node *copy = a_copier{flags}.deep_copy(expr);
  copy->next = nullptr;
  return copy;
}

an_expr_node *copy_expr_list(const an_expr_node *list, int flags) {
  an_expr_node *head = nullptr;
  an_expr_node **link = &head;
  for (; list != nullptr; list = list->next) {
    *link = copy_expr_tree(list, flags);
    link = &(*link)->next;
  }
  return head;
}

// The statement alone; its substatements and expressions stay shared.
a_statement *copy_statement(const a_statement *statement) {
  a_statement *copy = a_copier{ctf_none}.shallow_copy(statement);
  copy->next = nullptr;
  return copy;
}

void copy_constant(const a_constant *from, a_constant *to) {
  a_constant *next = to->next_in_list;
  *to = *from;
  to->next_in_list = next;
}

a_constant *copy_constant_tree(const a_constant *constant) {
  a_constant *copy = a_copier{ctf_none}.deep_copy(constant);
  copy->next_in_list = nullptr;
  return copy;
}

a_dynamic_init *copy_dynamic_init(const a_dynamic_init *init, int flags) {
  if (init == nullptr) return nullptr;
  a_dynamic_init *copy = a_copier{flags}.deep_copy(init);
  copy->next = copy->next_destruction = copy->prev_destruction = nullptr;
  return copy;
}
