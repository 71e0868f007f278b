// Routine bodies: the symbol, the parameters, the locals, the statements.
//
// A narrow parameter travels as the promoted type, so that the body gets a variable of its own for
// it, which the first expression of the body fills; the same goes for a class that comes by
// reference.
#include <unordered_map>

#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "driver/switches.h"
#include "options/cmd_line.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

struct a_parameter_pair {
  a_variable *variable;  // of the body
  SYMTAB *incoming;
  bool by_reference;  // the incoming symbol is a pointer to the class
};
std::vector<a_parameter_pair> parameter_pairs;

// The type in which a parameter arrives.
a_type *incoming_type(a_variable *parameter, bool old_style, bool *by_reference) {
  a_type *type = parameter->type;
  *by_reference = false;
  if (old_style) type = default_argument_promotion(type);
  if (is_class_struct_union_type(type) && is_passed_by_ref_type(type)) {
    *by_reference = true;
    return make_pointer_type(type);
  }
  if (is_eabi && is_integral_or_enum_type(type)) return type_after_integral_promotion(type);
  return type;
}

SYMTAB *symbol_of_parameter(a_variable *parameter, a_type *type, bool is_last_of_vararg) {
  SYMTAB *symbol =
      new_symbol(sym_name(parameter), type, is_last_of_vararg ? isc_last_arg : isc_arg);
  symbol->psn = make_psn(parameter->decl_position);
  std::uint32_t top = top_level_alignment(parameter) * 8;
  if (top > symbol->alignment) symbol->alignment = top;
  return symbol;
}

void enter_and_write(SYMTAB *symbol) {
  i_file->if_enter_local(symbol);
  i_file->if_write_symbol(symbol);
}

void generate_parameters(a_scope *scope, const a_routine_type_supplement *type) {
  parameter_pairs.clear();
  for (a_variable *p = scope->parameters; p != nullptr; p = p->next) {
    bool by_reference;
    a_type *incoming = incoming_type(p, type->old_style_definition, &by_reference);
    bool is_last = type->has_ellipsis && p->next == nullptr;
    SYMTAB *symbol = symbol_of_parameter(p, incoming, is_last);
    enter_and_write(symbol);
    if (tp_type(incoming) != tp_type(p->type) &&
        find_type(tp_type(incoming))->stripped != find_type(tp_type(p->type))->stripped)
      parameter_pairs.push_back({p, symbol, by_reference});
    else
      set_symbol(p, symbol);
  }
}

// The body's own variables for parameters that arrive in another type.
void generate_parameter_variables() {
  for (a_parameter_pair &pair : parameter_pairs) {
    SYMTAB *symbol = new_symbol(sym_name(pair.variable), pair.variable->type, isc_auto);
    symbol->psn = make_psn(pair.variable->decl_position);
    set_symbol(pair.variable, symbol);
    enter_and_write(symbol);
  }
}

void put_parameter_copy(const a_parameter_pair &pair) {
  TYPE *type = tp_type(pair.variable->type);
  put(op_ASG, type);
  put_name(known_symbol(pair.variable), type);
  if (pair.by_reference) {
    put(op_UMULT, type);
  } else {
    bool to_pointer = type->stripped->kind == TYPE::POINTER;
    put(to_pointer ? op_PCONV : op_SCONV, type);
  }
  put_name(pair.incoming, pair.incoming->type);
}

// The copies of all by-value pairs are one expression; each by-reference pair is one of its own.
void generate_parameter_copies() {
  std::size_t by_value = 0;
  for (const a_parameter_pair &pair : parameter_pairs)
    by_value += !pair.by_reference;
  if (by_value != 0) {
    start_expression();
    for (std::size_t i = 1; i < by_value; i++)
      put(op_PCOMMA, basic_void());
    for (const a_parameter_pair &pair : parameter_pairs)
      if (!pair.by_reference) put_parameter_copy(pair);
  }
  for (const a_parameter_pair &pair : parameter_pairs) {
    if (!pair.by_reference) continue;
    start_expression();
    put_parameter_copy(pair);
  }
}

void generate_labels(a_scope *scope) {
  for (a_label *label = scope->labels; label != nullptr; label = label->next) {
    std::uint32_t number = number_of_label(label);
    if (label->name == nullptr) continue;
    SYMTAB *symbol = new_symbol(sym_name(label), void_type(), isc_label);
    symbol->value = static_cast<std::int32_t>(number);
    symbol->psn = make_psn(label->decl_position);
    enter_and_write(symbol);
  }
}

void generate_local(a_variable *variable) {
  if (variable->storage_class == sc_static) {
    if (variable->needed) promote_local_static(variable, current_routine);
    return;
  }
  if (!variable->needed || variable->is_parameter) return;
  enter_and_write(symbol_of_variable(variable));
}

}  // namespace

// The end of the body cannot be reached, as far as a look at the last statement tells.
static bool ends_with_return(const a_statement *block) {
  const a_statement *last = block;
  while (last != nullptr && last->kind == stmk_block) {
    last = last->first_statement;
    while (last != nullptr && last->next != nullptr)
      last = last->next;
  }
  return last != nullptr && last->kind == stmk_return;
}

SYMTAB *incoming_parameter(const a_variable *variable) {
  for (const a_parameter_pair &pair : parameter_pairs)
    if (pair.variable == variable) return pair.incoming;
  return nullptr;
}

void generate_block_symbols(a_scope *scope) {
  for (a_variable *v = scope->variables; v != nullptr; v = v->next)
    generate_local(v);
  for (a_variable *v = scope->local_variables; v != nullptr; v = v->next)
    generate_local(v);
}

void generate_routine(a_routine *routine) {
  a_scope *scope = scope_for_routine(routine);
  check_invariant(scope != nullptr);
  OPTION_STATE *options = process_opt_override(routine);
  current_routine = routine;
  set_current_psn(routine->decl_position);
  restart_labels();
  SYMTAB *symbol = symbol_of_routine(routine);
  enter_if_new(symbol);
  survey_floating_point(routine, symbol);
  collect_pragmas(scope);
  i_file->if_write_begin_func(symbol, &current_psn);
  generate_parameters(scope, f_skip_typerefs(routine->type)->routine_supplement);
  i_file->if_write_control(ifr_end_args, &current_psn);
  generate_parameter_variables();
  generate_block_symbols(scope);
  generate_exit_hook_variable();
  generate_labels(scope);
  i_file->if_write_control(ifr_end_locals, &current_psn);
  write_pragmas_of(routine, ppl_start_of_routine);
  write_scope_pragmas(scope);
  generate_parameter_copies();
  generate_entry_hook();
  generate_statements(scope->block);
  if (!ends_with_return(scope->block)) generate_exit_hook();
  i_file->if_write_control(ifr_end_func, &current_psn);
  current_routine = nullptr;
  delete options;
}
