// Jumps against what they pass: into a statement expression, a try block or a handler, and over an
// initialization.
//
// Everything that may not be jumped into opens a point: the rest of its block lies inside the
// point. The points of a function form a tree, since blocks nest:
//
//     {               the function's level
//       int a[n];     point 1
//       ({ l: ; });   point 2, inside point 1
//     }
//
// A jump from a place inside point p to a label inside point q is good if q is p or lies around it;
// otherwise each point from q up to the first one around p is passed. That asks for one walk per
// jump, at the end of the function, when all labels are known; a function without points asks for
// nothing. (Kept in source order, the points would have to be searched for each jump.)
#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/statements_internal.h"
#include "semantics/symbol_tbl.h"

struct a_label_jump {
  a_label_jump *next;
  a_symbol *label_symbol;
  const a_control_flow_descr *from;  // null: the level of the function
  a_source_position position;
};

a_control_flow_descr *innermost_descr;

namespace {

a_control_flow_descr *first_descr;  // of the function, latest first
a_label_jump *first_jump;           // of the function, latest first
a_control_flow_descr *free_descrs;
a_label_jump *free_jumps;

template <class T>
T *take_free_or_new(T **free_list) {
  T *result = *free_list;
  if (result != nullptr)
    *free_list = result->next;
  else
    result = static_cast<T *>(alloc_in_region(permanent_region, sizeof(T)));
  *result = {};
  return result;
}

template <class T>
void give_back(T **list, T **free_list) {
  while (*list != nullptr) {
    T *entry = *list;
    *list = entry->next;
    entry->next = *free_list;
    *free_list = entry;
  }
}

// Does passing into this point matter in the dialect?
bool point_matters(const a_control_flow_descr *point) {
  if (point->kind != cfk_initialization || in_cplusplus()) return true;
  return point->variable != nullptr && point->variable->is_vla;
}

void report_passed_point(const a_control_flow_descr *point, const a_source_position *position) {
  switch (point->kind) {
    case cfk_statement_expression:
      pos_error(ec_branch_into_statement_expr, position);
      break;
    case cfk_try_block:
      pos_error(ec_branch_into_try_block, position);
      break;
    case cfk_handler:
      pos_error(ec_branch_into_handler, position);
      break;
    case cfk_initialization:
    case cfk_vla_dimension:
      pos_error(ec_branch_past_initialization, position);
      break;
  }
}

}  // namespace

void start_of_function_control_flow() {
  innermost_descr = nullptr;
  give_back(&first_descr, &free_descrs);
  give_back(&first_jump, &free_jumps);
}

void save_control_flow(a_struct_stmt_stack_state *saved) {
  saved->innermost_descr = innermost_descr;
  saved->first_descr = first_descr;
  saved->first_jump = first_jump;
  innermost_descr = first_descr = nullptr;
  first_jump = nullptr;
}

void restore_control_flow(const a_struct_stmt_stack_state *saved) {
  check_invariant(first_descr == nullptr && first_jump == nullptr);
  innermost_descr = saved->innermost_descr;
  first_descr = saved->first_descr;
  first_jump = saved->first_jump;
}

void add_control_flow_descr(a_control_flow_kind kind, a_variable *variable,
                            const a_source_position *position) {
  a_control_flow_descr *point = take_free_or_new(&free_descrs);
  point->parent = innermost_descr;
  point->depth = innermost_descr == nullptr ? 1 : innermost_descr->depth + 1;
  point->kind = kind;
  point->variable = variable;
  point->position = *position;
  point->next = first_descr;
  first_descr = innermost_descr = point;
}

void record_init_control_flow(a_variable *variable, const a_source_position *position) {
  if (depth_stmt_stack < 0) return;
  if (!in_cplusplus() && !variable->is_vla) return;
  add_control_flow_descr(cfk_initialization, variable, position);
}

void record_jump(a_symbol *label_symbol, const a_source_position *position) {
  a_label_jump *jump = take_free_or_new(&free_jumps);
  *jump = {first_jump, label_symbol, innermost_descr, *position};
  first_jump = jump;
}

static a_source_position last_label_place;

bool runs_straight_on_from(const a_source_position &position) {
  if (depth_stmt_stack < 0 || !stmt_reachable) return false;
  if (compare_source_positions(last_label_place, position) >= 0) return false;
  for (int depth = depth_stmt_stack; depth >= 0; --depth) {
    const a_struct_stmt_stack_entry &entry = stmt_entry(depth);
    const bool is_loop = entry.kind >= ssk_while && entry.kind <= ssk_range_for;
    if ((is_loop || entry.is_statement_expression) &&
        compare_source_positions(entry.statement_pos, position) >= 0)
      return false;
  }
  return true;
}

void record_label_place(a_symbol *label_symbol) {
  last_label_place = label_symbol->decl_position;
  label_symbol->extra.first = innermost_descr;
}

void check_jump(const a_control_flow_descr *from, const a_control_flow_descr *to,
                const a_source_position *position) {
  while (to != nullptr) {
    while (from != nullptr && from->depth > to->depth)
      from = from->parent;
    if (from == to) return;
    if (point_matters(to)) {
      // The outermost thing that is passed says enough: the others come with it.
      const a_control_flow_descr *outermost = to;
      for (const a_control_flow_descr *point = to->parent; point != nullptr;
           point = point->parent) {
        while (from != nullptr && from->depth > point->depth)
          from = from->parent;
        if (from == point) break;
        if (point_matters(point)) outermost = point;
      }
      report_passed_point(outermost, position);
      return;
    }
    to = to->parent;
  }
}

// Jumps are checked in the order of the source.
void wrapup_control_flow_processing(a_scope *) {
  if (first_descr != nullptr) {
    a_label_jump *in_order = nullptr;
    while (first_jump != nullptr) {
      a_label_jump *jump = first_jump;
      first_jump = jump->next;
      jump->next = in_order;
      in_order = jump;
    }
    first_jump = in_order;
    for (a_label_jump *jump = in_order; jump != nullptr; jump = jump->next) {
      if (!jump->label_symbol->defined) continue;
      check_jump(jump->from,
                 static_cast<const a_control_flow_descr *>(jump->label_symbol->extra.first),
                 &jump->position);
    }
  }
  start_of_function_control_flow();
}
