// Symbols of routines and variables, their names and their pragmas.
#include <cstdio>
#include <cstring>
#include <deque>
#include <unordered_map>

#include "ANSI/i_gen_be_internal.h"
#include "DIAG/error.h"
#include "driver/switches.h"
#include "options/cmd_line.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_util.h"

namespace {

std::vector<SYMTAB *> symbols;  // by lowered_number of the entity
unsigned nameless_counter, local_static_counter, register_counter;
SYMTAB *memset_symbol;
// The pragmas of entities of the file scope and of routines, in the order of the source.
std::unordered_map<const void *, std::vector<const a_pragma *>> pragmas_of_entity;

std::deque<PRAGMA> pragmas_of_symbols;

SYMTAB *allocate_symbol() {
  return new (type_pkg->alloc(sizeof(SYMTAB))) SYMTAB;
}

const char *formed_name(const char *format, const char *text, unsigned number) {
  char small[256];
  int length = std::snprintf(small, sizeof small, format, text, number);
  if (length < static_cast<int>(sizeof small)) return type_pkg->keep_text(small);
  std::vector<char> large(static_cast<std::size_t>(length) + 1);
  std::snprintf(large.data(), large.size(), format, text, number);
  return type_pkg->keep_text(large.data());
}

// Outside the EABI the linker sees an underscore in front of every name of C.
const char *external_form(const char *name) {
  return is_eabi ? name : formed_name("_%s", name, 0);
}

std::uint16_t modifier_bits(std::uint32_t modifiers) {
  unsigned bits = 0;
  if ((modifiers & dm_reentrant) != 0) bits |= 0x800;
  if ((modifiers & dm_port) != 0) bits |= 0x100;
  if ((modifiers & dm_trap) != 0) bits |= 0x40;
  if ((modifiers & dm_cregister) != 0) bits |= 0x10;
  if ((modifiers & dm_global) != 0) bits |= 0x80;
  if ((modifiers & dm_nmi_interrupt) != 0) bits |= 0x1000;
  return static_cast<std::uint16_t>(bits);
}

void add_section(SYMTAB *symbol, const char *text, const a_section_specification *section,
                 a_file_pragma_kind kind) {
  const char *name = section != nullptr ? section->name : text;
  if (name != nullptr) add_pragma(symbol, kind, {name});
}

void add_own_pragmas(SYMTAB *symbol, const a_source_correspondence *entity,
                     const a_variable *variable) {
  auto found = pragmas_of_entity.find(entity);
  if (found == pragmas_of_entity.end()) return;
  for (const a_pragma *pragma : found->second) {
    if (pragma->pragma == nullptr || pragma->placement != ppl_on_symbol) continue;
    if (!keeps_pragma(symbol, pragma->pragma, entity, variable)) continue;
    add_pragma(symbol, static_cast<a_file_pragma_kind>(pragma->pragma->kind),
               pragma->pragma->texts);
  }
}

void add_override(SYMTAB *symbol, const a_source_correspondence *entity) {
  an_opt_override *override = get_opt_override(entity);
  if (override == nullptr) return;
  if (!icode_optlist.empty()) {
    symbol->option_set = override->option_set_id;
    return;
  }
  add_pragma(symbol, fpk_OPT_OVERRIDE,
             {override->opt_options != nullptr ? override->opt_options : "",
              override->cg_options != nullptr ? override->cg_options : ""});
}

// An interrupt routine returns nothing and takes nothing; a software interrupt may do both.
void check_interrupt_routine(SYMTAB *symbol, a_routine *routine) {
  if ((routine->decl_modifiers & dm_interrupt) == 0 && !routine->is_interrupt) return;
  if (is_software_interrupt(routine)) {
    symbol->cqual |= 0x20;
    return;
  }
  a_type *type = f_skip_typerefs(routine->type);
  if (!is_void_type(type->return_type)) {
    sym_diagnostic(es_error, ec_pragma_interrupt_requires_void, routine->symbol);
  } else if (type->routine_supplement->param_types != nullptr) {
    pos_st_error(ec_pragma_interrupt_has_params, &routine->decl_position, routine->name);
  } else {
    symbol->cqual |= 0x20;
    return;
  }
  routine->decl_modifiers &= ~dm_interrupt;
}

// The dynamic linker is told of a definition that does not have the default visibility.
void add_visibility(SYMTAB *symbol, std::uint8_t own_visibility, a_storage_class storage_class) {
  static const char *const texts[] = {"", "default", "protected", "hidden", "internal", "extern"};
  int visibility = own_visibility;
  if (visibility == svk_unspecified && storage_class == sc_none)
    visibility = targ_sym_default_visibility;
  if (storage_class == sc_static || visibility <= svk_default) return;
  add_pragma(symbol, fpk_SYM_VISIBILITY, {texts[visibility]});
}

bool is_comdat_routine(const a_routine *routine) {
  if (routine->is_comdat) return true;
  return !in_cplusplus() && routine->is_inline && routine->defined &&
         routine->storage_class != sc_static;
}

void add_routine_pragmas(SYMTAB *symbol, a_routine *routine) {
  const a_routine_type_supplement *type = f_skip_typerefs(routine->type)->routine_supplement;
  add_section(symbol, nullptr, routine->section_specification, fpk_CODE_SECTION);
  if (routine->is_always_inline || (routine->is_inline && always_inline_funcs))
    add_pragma(symbol, fpk_FUNC_ALWAYS_INLINE);
  if (routine->is_never_inline) add_pragma(symbol, fpk_FUNC_CANNOT_INLINE);
  if (routine->is_const_function || type->is_const_function) {
    add_pragma(symbol, fpk_FUNC_NO_GLOBAL_ASG);
    add_pragma(symbol, fpk_FUNC_NO_IND_ASG);
  }
  if (routine->is_weak) add_pragma(symbol, fpk_QX_WEAK);
  if (routine->is_alias) {
    const char *target =
        routine->alias_target != nullptr ? sym_name(routine->alias_target)
        : routine->gnu_supplement != nullptr && routine->gnu_supplement->alias_name != nullptr
            ? external_form(routine->gnu_supplement->alias_name)
            : nullptr;
    if (target != nullptr) add_pragma(symbol, fpk_FUNC_SYNONYM, {target, "1"});
  }
  if (routine->is_constructor_function) add_pragma(symbol, fpk_FUNC_IN_INIT_ARRAY);
  if (routine->is_noreturn || type->is_noreturn) add_pragma(symbol, fpk_FUNC_NEVER_RETURNS);
  if (routine->is_pure || type->is_pure) add_pragma(symbol, fpk_FUNC_IS_PURE);
  if (routine->is_malloc) add_pragma(symbol, fpk_FUNC_RET_UNIQUE_POINTER);
  if (routine->is_naked) {
    add_pragma(symbol, fpk_FUNC_IS_NAKED);
    add_pragma(symbol, fpk_FUNC_CANNOT_INLINE);
  }
  add_own_pragmas(symbol, routine, nullptr);
  if (is_comdat_routine(routine))
    add_pragma(symbol, fpk_COMDAT_GROUP,
               {routine->comdat_group_name != nullptr ? routine->comdat_group_name : symbol->name});
  add_visibility(symbol, routine->visibility, routine->storage_class);
  if (is_hook(routine) && !has_pragma(symbol, fpk_HOOK_FUNCTION))
    add_pragma(symbol, fpk_HOOK_FUNCTION);
  if (enable_ramfunc || routine->is_ramfunc) add_pragma(symbol, fpk_RAMFUNC);
  if (routine->is_internal_runtime) add_pragma(symbol, fpk_FUNC_IS_INTERNAL_RUNTIME);
  add_pragma(symbol, fpk_SRC_LANGUAGE, {in_cplusplus() ? "C++" : "C"});
  add_override(symbol, routine);
}

std::uint8_t retention_of_routine(const a_routine *routine, const SYMTAB *symbol) {
  if (routine->never_removed || routine->is_retained) return retain_always;
  for (const PRAGMA *p = symbol->pragma_list; p != nullptr; p = p->next)
    if (p->kind == fpk_RETAIN || p->kind == fpk_FUNC_EXT_CALLED) return retain_always;
  if ((symbol->cqual & (0x20 | 0x1000)) != 0) return retain_if_referenced;
  return is_comdat_routine(routine) ? retain_if_inlined_or_comdat : retain_if_referenced;
}

std::uint8_t class_of_storage(a_storage_class storage_class, bool is_volatile) {
  switch (storage_class) {
    case sc_none:
      return isc_global;
    case sc_extern:
      return isc_extern;
    case sc_static:
      return isc_static;
    case sc_auto:
      return isc_auto;
    case sc_register:
      return is_volatile ? isc_auto : isc_register;
    default:
      return isc_none;
  }
}

void set_alignment_of_variable(SYMTAB *symbol, a_variable *variable) {
  std::uint32_t top = top_level_alignment(variable) * 8;
  symbol->alignment = symbol->type->alignment > top ? symbol->type->alignment : top;
  if (variable->explicit_alignment * 8 > symbol->alignment)
    symbol->alignment = variable->explicit_alignment * 8;
  bool is_small_local = symbol->storage_class == isc_auto || symbol->storage_class == isc_register;
  if (!is_small_local || !is_class_struct_union_type(variable->type) || symbol->size > 64) return;
  for (TYPE::IKIND ikind : {TYPE::SHORT, TYPE::INT, TYPE::LONG, TYPE::LLONG}) {
    TYPE *whole = type_pkg->basic_types[ikind];
    if (whole->size < symbol->size) continue;
    if (whole->alignment > symbol->alignment) symbol->alignment = whole->alignment;
    return;
  }
}

}  // namespace

void reset_symbols() {
  symbols.clear();
  pragmas_of_entity.clear();
  pragmas_of_symbols.clear();
  nameless_counter = local_static_counter = register_counter = 0;
  memset_symbol = nullptr;
}

void collect_pragmas(const a_scope *scope) {
  for (const a_pragma *pragma = scope->pragmas; pragma != nullptr; pragma = pragma->next)
    if (pragma->entity != nullptr) pragmas_of_entity[pragma->entity].push_back(pragma);
  for (const a_scope *inner = scope->nested_scopes; inner != nullptr; inner = inner->next)
    if (inner->kind == sck_block) collect_pragmas(inner);
}

void write_scope_pragmas(const a_scope *scope) {
  for (const a_pragma *p = scope->pragmas; p != nullptr; p = p->next)
    if (p->pragma != nullptr && p->entity == nullptr && p->placement == ppl_in_line)
      i_file->if_write_pragma(p->pragma);
}

void write_pragmas_of(const void *entity, a_pragma_placement placement) {
  auto found = pragmas_of_entity.find(entity);
  if (found == pragmas_of_entity.end()) return;
  for (const a_pragma *pragma : found->second)
    if (pragma->pragma != nullptr && pragma->placement == placement)
      i_file->if_write_pragma(pragma->pragma);
}

bool has_pragma(const SYMTAB *symbol, a_file_pragma_kind kind) {
  for (const PRAGMA *p = symbol->pragma_list; p != nullptr; p = p->next)
    if (p->kind == kind) return true;
  return false;
}

void add_pragma(SYMTAB *symbol, a_file_pragma_kind kind, std::vector<const char *> texts) {
  PRAGMA *pragma = &pragmas_of_symbols.emplace_back();
  pragma->kind = kind;
  pragma->texts = std::move(texts);
  pragma->next = symbol->pragma_list;
  symbol->pragma_list = pragma;
  symbol->pragma_count++;
}

SYMTAB *known_symbol(const a_source_correspondence *entity) {
  return entity->lowered_number < 0 ? nullptr
                                    : symbols[static_cast<std::size_t>(entity->lowered_number)];
}

void set_symbol(a_source_correspondence *entity, SYMTAB *symbol) {
  if (entity->lowered_number < 0) {
    entity->lowered_number = static_cast<std::int32_t>(symbols.size());
    symbols.push_back(symbol);
  } else {
    symbols[static_cast<std::size_t>(entity->lowered_number)] = symbol;
  }
}

const char *sym_name(const a_source_correspondence *entity) {
  if (entity->name == nullptr) return sym_name_of_temporary();
  return external_form(entity->name);
}

SYMTAB *new_symbol(const char *name, a_type *type, std::uint8_t storage_class) {
  SYMTAB *symbol = allocate_symbol();
  symbol->name = name;
  symbol->type = tp_type(type);
  symbol->size = symbol->type->size;
  symbol->alignment = symbol->type->alignment;
  symbol->storage_class = storage_class;
  return symbol;
}

void enter_if_new(SYMTAB *symbol) {
  if (symbol->index == no_symbol_index) i_file->if_enter_global(symbol);
}

SYMTAB *symbol_of_routine(a_routine *routine) {
  if (SYMTAB *known = known_symbol(routine)) return known;
  a_type *type = f_skip_typerefs(routine->type);
  const char *name = routine->asm_name != nullptr ? routine->asm_name : sym_name(routine);
  SYMTAB *symbol = new_symbol(name, type, class_of_storage(routine->storage_class, false));
  set_symbol(routine, symbol);
  symbol->size = tp_type(type->return_type)->size;
  symbol->alignment = 8;
  if (!routine->suppress_position) symbol->psn = make_psn(routine->decl_position);
  symbol->cqual = modifier_bits(routine->decl_modifiers);
  if (routine->is_inline) symbol->cqual |= routine->defined ? 4 : 12;
  check_interrupt_routine(symbol, routine);
  TRG_func_transform(routine, symbol);
  add_routine_pragmas(symbol, routine);
  symbol->retention = retention_of_routine(routine, symbol);
  error_position = routine->decl_position;
  note_weak_function(symbol);
  return symbol;
}

SYMTAB *symbol_of_variable(a_variable *variable) {
  if (SYMTAB *known = known_symbol(variable)) return known;
  const char *name = variable->asm_name != nullptr ? variable->asm_name
                     : variable->is_this_parameter ? external_form("this")
                                                   : sym_name(variable);
  bool is_volatile = is_volatile_type(variable->type);
  SYMTAB *symbol =
      new_symbol(name, variable->type, class_of_storage(variable->storage_class, is_volatile));
  set_symbol(variable, symbol);
  symbol->psn = make_psn(variable->decl_position);
  symbol->cqual = modifier_bits(variable->decl_modifiers);
  if (symbol->storage_class == isc_register)
    symbol->value = static_cast<std::int32_t>(register_counter++);
  set_alignment_of_variable(symbol, variable);
  add_section(symbol, variable->section_name_text, variable->section_specification,
              fpk_DATA_SECTION);
  if (variable->is_weak) add_pragma(symbol, fpk_QX_WEAK);
  add_own_pragmas(symbol, variable, variable);
  if (variable->is_thread_local) add_pragma(symbol, fpk_THREAD_LOCAL);
  if (variable->comdat_group_name != nullptr)
    add_pragma(symbol, fpk_COMDAT_GROUP, {external_form(variable->comdat_group_name)});
  if (variable->is_file_scope)
    add_visibility(symbol, variable->visibility, variable->storage_class);
  add_override(symbol, variable);
  bool is_file_level = symbol->storage_class != isc_auto && symbol->storage_class != isc_register;
  if (is_file_level && variable->never_removed)
    symbol->retention = retain_always;
  else if (variable->is_comdat)
    symbol->retention = retain_if_inlined_or_comdat;
  return symbol;
}

// A static of a block becomes a variable of the file under a name of its own. The copies of an
// inline function that several files hold must share it: it is global and in the function's group.
void promote_local_static(a_variable *variable, a_routine *routine) {
  check_invariant(routine != nullptr);
  SYMTAB *symbol = symbol_of_variable(variable);
  if (variable->is_promoted_local_static) return;
  variable->is_promoted_local_static = true;
  const char *routine_name = sym_name(routine);
  if (is_comdat_routine(routine)) {
    std::string name = std::string(symbol->name) + "$" + routine_name;
    symbol->name = formed_name("%s_%u", name.c_str(), local_static_counter++);
    symbol->storage_class = isc_global;
    add_pragma(symbol, fpk_COMDAT_GROUP, {symbol->name});
  } else {
    symbol->name = formed_name("%s$%u", symbol->name, local_static_counter++);
  }
  add_pragma(symbol, fpk_SCOPING_FUNC, {routine_name});
  promoted_statics.push_back(variable);
  enter_if_new(symbol);
}

const char *sym_name_of_temporary() {
  return formed_name("$P$T%s%u", "", nameless_counter++);
}

SYMTAB *symbol_of_foreign_routine(const char *name, TYPE *return_type) {
  for (a_routine *r = il_header.primary_scope->routines; r != nullptr; r = r->next)
    if (r->name != nullptr && std::strcmp(r->name, name) == 0) return symbol_of_routine(r);
  TYPE *type = type_pkg->mk_func(return_type, false, false, false, TYPE::CC_DEFAULT);
  type_pkg->type_frozen(&type);
  SYMTAB *symbol = allocate_symbol();
  symbol->name = external_form(name);
  symbol->type = type;
  symbol->size = return_type->size;
  symbol->storage_class = isc_extern;
  add_pragma(symbol, fpk_SRC_LANGUAGE, {"C"});
  return symbol;
}

SYMTAB *symbol_of_memset() {
  if (memset_symbol == nullptr)
    memset_symbol = symbol_of_foreign_routine("memset", type_pkg->void_pointer_type);
  enter_if_new(memset_symbol);
  return memset_symbol;
}
