// The verifier: one pass over the file scope and one over each function region, with the table of
// fields. A fault is a fault of the front end, never of the program that is compiled.
//
// Checked for every entry that is reached: the kind is in range; an entry of the file scope holds
// no pointer into the region of a function. For lists of scopes: the members say that the scope is
// their parent. For nodes: the type is set, the operands of an operation are as many as its
// operator takes; behind lowering no node is left that only the front end knows.
#include "il/il_check.h"

#include "il/il.h"
#include "il/il_fields.h"
#include "il/il_walk.h"
#include "il/il_walk_internal.h"
#include "semantics/scope_stk.h"

namespace {

constexpr int max_reports = 50;

struct a_check_state {
  an_il_check_phase phase;
  std::FILE *out;
  int faults;
};
a_check_state check;

void report(const char *what, an_il_entry_kind kind, const void *entry) {
  ++check.faults;
  if (check.out == nullptr || check.faults > max_reports) return;
  std::fprintf(check.out, "il check: %s", il_entry_kind_names[kind < iek_last ? kind : 0]);
  const a_source_correspondence *corresp =
      source_corresp_for_il_entry(const_cast<void *>(entry), kind);
  if (corresp != nullptr && corresp->name != nullptr)
    std::fprintf(check.out, " \"%s\"", corresp->name);
  std::fprintf(check.out, ": %s\n", what);
}

void check_entry(void *entry, an_il_entry_kind kind);

// ---- Fields ------------------------------------------------------------------------------------

struct a_check_visitor {
  void *owner;
  an_il_entry_kind owner_kind;

  template <class T>
  void entry(T *&field, an_il_entry_kind kind) {
    if (field == nullptr) return;
    check_region(field, kind);
    check_entry(field, kind);
  }
  template <class T>
  void list(T *&head, an_il_entry_kind kind) {
    for (T *member = head; member != nullptr; member = link_of(member)) {
      check_region(member, kind);
      check_entry(member, kind);
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
    if (field != nullptr && kind != iek_none) check_region(field, kind);
  }
  void text(const char *&, an_il_entry_kind, std::size_t) {}
  template <class T>
  void hidden(T *&) {}

 private:
  // Its initializer may hold the address of a label; both end with the function.
  bool owner_is_local_static() const {
    return owner_kind == iek_variable &&
           static_cast<const a_variable *>(owner)->enclosing_routine != nullptr;
  }
  void check_region(const void *target, an_il_entry_kind kind) {
    if (kind >= iek_last) {
      report("a field has no valid kind", owner_kind, owner);
      return;
    }
    if (in_file_scope_region(owner) && !in_file_scope_region(target) && !owner_is_local_static())
      report("points from the file scope into the region of a function", owner_kind, owner);
  }
};

// ---- Nodes -------------------------------------------------------------------------------------

int number_of_operands(const an_expr_node *node) {
  int count = 0;
  for (const an_expr_node *operand = node->operands; operand != nullptr; operand = operand->next)
    ++count;
  return count;
}

void check_operands(const an_expr_node *node) {
  if (node->op >= eok_last) {
    report("an operator is out of range", iek_expr_node, node);
    return;
  }
  const std::uint8_t flags = operator_flags[node->op];
  int least = 1;
  if ((flags & (opf_op2_is_rvalue | opf_op2_is_lvalue)) != 0 || node->op == eok_comma ||
      node->op == eok_dot_field || node->op == eok_arrow_field)
    least = 2;
  if ((flags & opf_has_op3) != 0) least = 3;
  if (number_of_operands(node) < least) report(expr_operator_names[node->op], iek_expr_node, node);
}

// What lowering leaves: the generator knows nothing else.
bool is_lowered_kind(an_expr_node_kind kind) {
  switch (kind) {
    case enk_operation:
    case enk_constant:
    case enk_variable:
    case enk_field:
    case enk_routine:
      return true;
    default:
      return false;
  }
}

bool is_lowered_kind(a_statement_kind kind) {
  switch (kind) {
    case stmk_expr:
    case stmk_if:
    case stmk_while:
    case stmk_goto:
    case stmk_label:
    case stmk_return:
    case stmk_block:
    case stmk_do:
    case stmk_for:
    case stmk_case:
    case stmk_switch:
    case stmk_init:
    case stmk_asm:
    case stmk_decl:
    case stmk_null:
      return true;
    default:
      return false;
  }
}

void check_node(const an_expr_node *node) {
  if (node->kind >= enk_last) {
    report("the kind is out of range", iek_expr_node, node);
    return;
  }
  if (node->type == nullptr && node->kind != enk_field)
    report("a node has no type", iek_expr_node, node);
  if (node->kind == enk_operation) check_operands(node);
  if (check.phase != icp_after_parsing && !is_lowered_kind(node->kind))
    report(expr_node_kind_names[node->kind], iek_expr_node, node);
}

void check_constant(const a_constant *constant) {
  if (constant->kind >= ck_last) report("the kind is out of range", iek_constant, constant);
  if (constant->type == nullptr && constant->kind != ck_designator &&
      constant->kind != ck_dynamic_init)
    report("a constant has no type", iek_constant, constant);
  if (il_marks(constant).is_scratch) report("a scratch constant is in use", iek_constant, constant);
  if (constant->kind != ck_aggregate) return;
  const a_constant *last = nullptr;
  for (const a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list)
    last = e;
  if (last != constant->last_element)
    report("an aggregate does not end at its last element", iek_constant, constant);
}

void check_statement(const a_statement *statement) {
  if (statement->kind >= stmk_last) report("the kind is out of range", iek_statement, statement);
  if (check.phase != icp_after_parsing && !is_lowered_kind(statement->kind))
    report(statement_kind_names[statement->kind], iek_statement, statement);
  if (statement->kind == stmk_label && statement->label == nullptr)
    report("a label statement has no label", iek_statement, statement);
  if (statement->kind == stmk_block) {
    for (const a_statement *s = statement->first_statement; s != nullptr; s = s->next) {
      if (s->parent != nullptr && s->parent != statement)
        report("a statement of a block has another parent", iek_statement, s);
    }
  }
}

// ---- Scopes ------------------------------------------------------------------------------------

template <class T>
void check_members(T *list, an_il_entry_kind kind, const a_scope *scope) {
  for (T *entry = list; entry != nullptr; entry = link_of(entry)) {
    const a_scope *parent = get_parent_scope_of(entry);
    if (parent != nullptr && parent != scope && parent != il_header.primary_scope)
      report("a member of a scope has another parent", kind, entry);
  }
}

// The tails of a scope that is still open.
template <class T>
void check_tail(T *list, const T *tail, an_il_entry_kind kind) {
  const T *last = nullptr;
  for (T *entry = list; entry != nullptr; entry = link_of(entry))
    last = entry;
  if (last != tail) report("an open list does not end at its tail", kind, last);
}

void check_open_scope(const a_scope *scope) {
  if (scope->stack_depth < 0 || scope->stack_depth > depth_scope_stack) return;
  const a_scope_stack_entry &entry = scope_stack[scope->stack_depth];
  if (entry.il_scope != scope) {
    report("a scope is not where it says on the scope stack", iek_scope, scope);
    return;
  }
  check_tail(scope->types, entry.pointers->types_tail, iek_type);
  check_tail(scope->variables, entry.pointers->variables_tail, iek_variable);
  check_tail(scope->routines, entry.pointers->routines_tail, iek_routine);
}

void check_scope(const a_scope *scope) {
  if (scope->kind >= sck_last) report("the kind is out of range", iek_scope, scope);
  check_members(scope->types, iek_type, scope);
  check_members(scope->variables, iek_variable, scope);
  check_members(scope->local_variables, iek_variable, scope);
  check_members(scope->routines, iek_routine, scope);
  check_open_scope(scope);
}

void check_type(const a_type *type) {
  if (type->kind >= tk_last) report("the kind is out of range", iek_type, type);
  if (!in_file_scope_region(type))
    report("a type lies in the region of a function", iek_type, type);
  if (type->kind == tk_typeref && type->referenced_type == nullptr)
    report("a typeref names no type", iek_type, type);
}

void check_by_kind(void *entry, an_il_entry_kind kind) {
  switch (kind) {
    case iek_expr_node:
      check_node(static_cast<an_expr_node *>(entry));
      break;
    case iek_constant:
      check_constant(static_cast<a_constant *>(entry));
      break;
    case iek_statement:
      check_statement(static_cast<a_statement *>(entry));
      break;
    case iek_scope:
      check_scope(static_cast<a_scope *>(entry));
      break;
    case iek_type:
      check_type(static_cast<a_type *>(entry));
      break;
    case iek_variable:
      if (static_cast<a_variable *>(entry)->type == nullptr)
        report("a variable has no type", kind, entry);
      break;
    case iek_routine:
      if (static_cast<a_routine *>(entry)->type == nullptr)
        report("a routine has no type", kind, entry);
      break;
    default:
      break;
  }
}

// struct s v = {.a = ({ int t = 1; t; }), .a = 2};  The first value is dropped when the initializer
// is lowered, and the scope of its block stays in the list of its parent. A living scope is reached
// from its statement.
bool is_dead_scope(const a_scope *scope) {
  return check.phase != icp_after_parsing && scope->kind == sck_block && scope->block != nullptr &&
         il_marks(scope->block).walk_number != current_walk_number;
}

void check_entry(void *entry, an_il_entry_kind kind) {
  an_il_entry_marks &marks = il_marks(entry);
  if (marks.walk_number == current_walk_number) return;
  if (kind == iek_scope && is_dead_scope(static_cast<a_scope *>(entry))) return;
  marks.walk_number = current_walk_number;
  check_by_kind(entry, kind);
  a_check_visitor visitor{entry, kind};
  visit_fields_of_entry(entry, kind, visitor);
}

void begin_check(an_il_check_phase phase, std::FILE *out) {
  check = {phase, out, 0};
  start_new_il_walk();
}

}  // namespace

int check_il(an_il_check_phase phase, std::FILE *out) {
  begin_check(phase, out);
  if (il_header.primary_scope != nullptr) check_entry(il_header.primary_scope, iek_scope);
  for (int number = 1; number <= highest_used_function_def_number; ++number) {
    a_scope *scope = function_def_table[number].scope;
    if (scope != nullptr && function_def_table[number].region != 0) check_entry(scope, iek_scope);
  }
  return check.faults;
}

int check_function_il(a_routine *routine, an_il_check_phase phase, std::FILE *out) {
  begin_check(phase, out);
  a_scope *scope = scope_for_routine(routine);
  if (scope != nullptr) check_entry(scope, iek_scope);
  return check.faults;
}

namespace {

#ifdef NDEBUG
constexpr bool phases_are_checked = false;
#else
constexpr bool phases_are_checked = true;
#endif

void stop_on_faults(int faults) {
  if (faults != 0) unexpected_state("the intermediate language is not consistent");
}

}  // namespace

void check_il_or_stop(an_il_check_phase phase) {
  if (phases_are_checked) stop_on_faults(check_il(phase, stderr));
}

void check_function_il_or_stop(a_routine *routine, an_il_check_phase phase) {
  if (phases_are_checked) stop_on_faults(check_function_il(routine, phase, stderr));
}
