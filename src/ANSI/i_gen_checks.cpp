// What an entity's pragmas ask for and its definition cannot give, and what code that is kept as
// intermediate code cannot hold.
#include <cstdlib>
#include <string>

#include "ANSI/i_gen_be_internal.h"
#include "DIAG/error.h"
#include "driver/switches.h"

namespace {

// What has been told already; a unit is told of each only once.
bool told_weak_symbols, told_inline_assembly;

const PRAGMA *pragma_of(const SYMTAB *symbol, a_file_pragma_kind kind) {
  for (const PRAGMA *p = symbol->pragma_list; p != nullptr; p = p->next)
    if (p->kind == kind) return p;
  return nullptr;
}

const char *first_text(const PRAGMA *pragma) {
  return pragma->texts.empty() || pragma->texts[0] == nullptr ? "" : pragma->texts[0];
}

void check_location(const SYMTAB *symbol, const PRAGMA *pragma,
                    const a_source_correspondence *entity) {
  const char *text = first_text(pragma);
  std::uint64_t bytes = symbol->alignment / 8;
  if (bytes <= 1 || std::strtoull(text, nullptr, 0) % bytes == 0) return;
  pos_ststst_warning(ec_pragma_location_align, &entity->decl_position, entity->name,
                     std::to_string(bytes).c_str(), text);
}

void check_kept_value(const a_variable *variable, bool is_noinit) {
  if (variable->storage_class == sc_extern) return;  // defined elsewhere, if at all
  const a_source_position *position = &variable->decl_position;
  bool has_value = variable->init_kind != init_none;
  if (is_noinit && has_value) pos_st_error(ec_noinit_was_init, position, variable->name);
  if (!is_noinit && !has_value) pos_st_error(ec_persistent_requires_init, position, variable->name);
  if (!is_noinit && variable->init_kind == init_dynamic)
    pos_st_error(ec_persistent_was_dynamic, position, variable->name);
}

bool keeps_initialization(const SYMTAB *symbol, const a_source_correspondence *entity,
                          const a_variable *variable, bool is_noinit) {
  if (pragma_of(symbol, fpk_DATA_SECTION) != nullptr) {
    pos_st2_error(ec_cannot_coexist_with_datasection, &entity->decl_position, entity->name,
                  is_noinit ? "noinit" : "persistent");
    return false;
  }
  if (pragma_of(symbol, is_noinit ? fpk_PERSISTENT : fpk_NOINIT) != nullptr) {
    pos_st_error(ec_cannot_mix_noinit_and_persistent, &entity->decl_position, entity->name);
    return false;
  }
  if (variable != nullptr) check_kept_value(variable, is_noinit);
  return true;
}

void forbid_kept_code(bool *told, const char *what) {
  i_file->set_header_extra_bit(1);
  if (!embed_icode || *told) return;
  *told = true;
  pos_st_remark(ec_prevent_lto, &error_position, what);
}

}  // namespace

bool keeps_pragma(const SYMTAB *symbol, const PRAGMA *pragma, const a_source_correspondence *entity,
                  const a_variable *variable) {
  switch (pragma->kind) {
    case fpk_LOCATION:
      check_location(symbol, pragma, entity);
      return true;
    case fpk_NOINIT:
    case fpk_PERSISTENT:
      return keeps_initialization(symbol, entity, variable, pragma->kind == fpk_NOINIT);
    default:
      return true;
  }
}

void note_weak_function(const SYMTAB *symbol) {
  if (embed_icode && pragma_of(symbol, fpk_QX_WEAK) != nullptr)
    forbid_kept_code(&told_weak_symbols, "weak symbols");
}

void note_inline_assembly() {
  if (!embed_inline_assy) forbid_kept_code(&told_inline_assembly, "inline assembly");
}

void reset_checks() {
  told_weak_symbols = told_inline_assembly = false;
}
