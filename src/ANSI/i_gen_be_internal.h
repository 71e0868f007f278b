// What the rooms of the generator share.
#ifndef ANSI_I_GEN_BE_INTERNAL_H
#define ANSI_I_GEN_BE_INTERNAL_H

#include <vector>

#include "ANSI/i_gen_be.h"
#include "ifile/if_write.h"
#include "il/il_entity.h"
#include "il/il_expr.h"
#include "il/il_stmt.h"

// ---- State of one run of back_end --------------------------------------------------------------

extern I_FILE *i_file;
extern TYPE_PKG *type_pkg;
extern PSN current_psn;                             // of the statement or declaration in hand
extern a_routine *current_routine;                  // null outside routines
extern std::vector<a_variable *> promoted_statics;  // local statics that became file-level

// ---- Types (i_gen_types.cpp) -------------------------------------------------------------------

TYPE *tp_type(a_type *type);
const PSN *make_psn(const a_source_position &position);
void set_current_psn(const a_source_position &position);
void reset_type_cache();

// ---- Symbols (i_gen_symbols.cpp) ---------------------------------------------------------------

// The name of an entity in the file, from the package's memory.
const char *sym_name(const a_source_correspondence *entity);
SYMTAB *symbol_of_routine(a_routine *routine);
SYMTAB *symbol_of_variable(a_variable *variable);
// The symbol made for a variable already, or null.
SYMTAB *known_symbol(const a_source_correspondence *entity);
void set_symbol(a_source_correspondence *entity, SYMTAB *symbol);
SYMTAB *new_symbol(const char *name, a_type *type, std::uint8_t storage_class);
// Enters a file-level symbol that is not entered yet.
void enter_if_new(SYMTAB *symbol);
bool has_pragma(const SYMTAB *symbol, a_file_pragma_kind kind);
void add_pragma(SYMTAB *symbol, a_file_pragma_kind kind, std::vector<const char *> texts = {});
// A name for a variable of the generator's own.
const char *sym_name_of_temporary();
// An unprototyped C function with this name: of the unit, or a new symbol that is not entered yet.
SYMTAB *symbol_of_foreign_routine(const char *name, TYPE *return_type);
// memset, for zeroed locals: a routine of the file, or a symbol of the generator's own.
SYMTAB *symbol_of_memset();
void promote_local_static(a_variable *variable, a_routine *routine);
// Makes the pragmas of a scope, and of the blocks in it, known to their entities.
void collect_pragmas(const a_scope *scope);
// Writes the pragmas of a routine or statement that have this placement.
void write_pragmas_of(const void *entity, a_pragma_placement placement);
// Writes the pragmas of the scope itself that stand in line.
void write_scope_pragmas(const a_scope *scope);
void reset_symbols();

// ---- Checks (i_gen_checks.cpp) -----------------------------------------------------------------

// Reports what speaks against an own pragma of an entity; false: the symbol does without it.
// variable is null for a routine.
bool keeps_pragma(const SYMTAB *symbol, const PRAGMA *pragma,
                  const a_source_correspondence *entity, const a_variable *variable);
// Marks the file whose code cannot be kept for the linker; with --embed_icode a remark says why.
void note_weak_function(const SYMTAB *symbol);
void note_inline_assembly();
void reset_checks();

// ---- Floating point (i_gen_floating.cpp) ---------------------------------------------------------

// Notes on the symbol of a routine with a body which classes of floating point cross its interface
// and those of what it calls; reports what the target must not use.
void survey_floating_point(a_routine *routine, SYMTAB *symbol);

// ---- Routines and statements (i_gen_routines.cpp, i_gen_statements.cpp) ------------------------

void generate_routine(a_routine *routine);
void generate_statements(a_statement *first);
void generate_block_symbols(a_scope *scope);
std::uint32_t new_label();
std::uint32_t number_of_label(a_label *label);
void restart_labels();
// The parameter as it comes in, where the body has a variable of its own for it; else null.
SYMTAB *incoming_parameter(const a_variable *variable);

// ---- Entry and exit hooks (i_gen_hooks.cpp) ----------------------------------------------------

// Is it a function that is called at the entry or the exit of others?
bool is_hook(const a_routine *routine);
void generate_entry_hook();
// Among the locals: the variable that keeps a returned value while the exit hook runs.
void generate_exit_hook_variable();
SYMTAB *variable_of_exit_hook();  // null: there is no hook, or nothing is returned
void generate_exit_hook();
void reset_hooks();

// ---- Nodes -------------------------------------------------------------------------------------

inline void put(const NODE &node) {
  i_file->if_write_expr_node(&node);
}
inline void put(a_node_op op, TYPE *type) {
  put(NODE(op, type));
}
inline TYPE *basic_int() {
  return type_pkg->basic_types[TYPE::INT];
}
inline TYPE *basic_void() {
  return type_pkg->void_type;
}
void put_name(SYMTAB *symbol, TYPE *type);
void put_label(std::uint32_t label);
void put_icon(TYPE *type, std::uint64_t value);
void put_lcon(TYPE *type, std::uint64_t value);
// Record 46 at the current position; the nodes follow.
inline void start_expression() {
  i_file->if_write_expr(nullptr, &current_psn);
}

#endif
