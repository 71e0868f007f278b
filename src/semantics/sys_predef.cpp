// Builtin functions and types that exist before the first line of a program.
//
// The intrinsics of the target are declared at the start: a program that declares abs or memcpy
// itself redeclares them. The __builtin_, __atomic_ and __sync_ functions cannot be declared by a
// program; each is made when its name is first met.
#include "semantics/sys_predef.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "driver/switches.h"
#include "il/il.h"
#include "semantics/layout.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_arch.h"

namespace {

struct a_builtin_row {
  const char *name;
  std::uint16_t id;
  a_builtin_condition condition;
  bool is_machine_intrinsic;  // one instruction, or an intrinsic without parameters
  const char *signature;
};

// "void(void)" takes nothing.
constexpr bool has_no_parameters(const char *signature) {
  while (*signature != '(')
    ++signature;
  return signature[1] == 'v' && signature[2] == 'o' && signature[5] == ')';
}

constexpr a_builtin_row intrinsic_rows[] = {
#define INTRINSIC(name, id, condition, flags, signature) \
  {#name, id, bc_##condition, (#flags)[0] == 'M' || has_no_parameters(signature), signature},
#include "target/builtins.def"
};

constexpr a_builtin_row gnu_rows[] = {
#define GNU_BUILTIN(name, id, condition, signature) \
  {"__builtin_" #name, id, bc_##condition, false, signature},
#define ATOMIC_BUILTIN(name, id, condition, signature) \
  {"__atomic_" #name, id, bc_##condition, false, signature},
#define SYNC_BUILTIN(name, id, condition, signature) \
  {"__sync_" #name, id, bc_##condition, false, signature},
#define LIBRARY_BUILTIN(name, signature) {"__builtin_" #name, bi_none, bc_always, false, signature},
#include "target/builtins.def"
};

// The numbers that the later stages know.
static_assert(qi_abs == 3851 && qi__smpy == 3885 && qi__uhsub8 == 3946 && qi__smmls == 3984);
static_assert(qi___wfi == 4010 && qi__enable_interrupts == 4024 && qi___bitband == last_qx_builtin);
static_assert(bi_nansl == 3531 && bi_atomic_fetch_xor_8 == 264 && bi_atomic_store_n == 292);

// Names in order, for the search; made once.
const a_builtin_row *sorted_gnu_rows[std::size(gnu_rows)];
bool rows_are_sorted;

a_type *va_list_type;  // of the current unit; null: not made yet

const a_builtin_row *find_gnu_row(const char *name, std::size_t length) {
  if (!rows_are_sorted) {
    for (std::size_t i = 0; i < std::size(gnu_rows); ++i)
      sorted_gnu_rows[i] = &gnu_rows[i];
    std::sort(std::begin(sorted_gnu_rows), std::end(sorted_gnu_rows),
              [](const a_builtin_row *a, const a_builtin_row *b) {
                return std::strcmp(a->name, b->name) < 0;
              });
    rows_are_sorted = true;
  }
  auto compare = [length](const char *row_name, const char *text) {
    int order = std::strncmp(row_name, text, length);
    return order != 0 ? order : row_name[length] != '\0';
  };
  auto found = std::lower_bound(
      std::begin(sorted_gnu_rows), std::end(sorted_gnu_rows), name,
      [&](const a_builtin_row *row, const char *text) { return compare(row->name, text) < 0; });
  if (found == std::end(sorted_gnu_rows) || compare((*found)->name, name) != 0) return nullptr;
  return *found;
}

// ---- Signatures --------------------------------------------------------------------------------

// Reads "const volatile void*", "unsigned long long", "size_t" and so on.
class a_signature_reader {
 public:
  explicit a_signature_reader(const char *text) : p_(text) {}
  a_type *read_type();
  bool accept(char c) {
    skip_blanks();
    if (*p_ != c) return false;
    ++p_;
    return true;
  }
  bool accept_word(const char *word);

 private:
  void skip_blanks() {
    while (*p_ == ' ')
      ++p_;
  }
  a_type *read_base_type();
  const char *p_;
};

bool is_word_character(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

bool a_signature_reader::accept_word(const char *word) {
  skip_blanks();
  std::size_t length = std::strlen(word);
  if (std::strncmp(p_, word, length) != 0 || is_word_character(p_[length])) return false;
  p_ += length;
  return true;
}

a_type *a_signature_reader::read_base_type() {
  struct a_typedef_row {
    const char *name;
    an_integer_kind kind;
  };
  const a_typedef_row typedefs[] = {
      {"size_t", targ_size_t_int_kind},    {"uint8_t", ik_unsigned_char},
      {"uint16_t", ik_unsigned_short},     {"uint32_t", ik_unsigned_int},
      {"uint64_t", ik_unsigned_long_long},
  };
  for (const a_typedef_row &row : typedefs)
    if (accept_word(row.name)) return integer_type(row.kind);
  if (accept_word("void")) return void_type();
  if (accept_word("bool")) return bool_type();
  if (accept_word("float")) return float_type(fk_float);
  if (accept_word("double")) return float_type(fk_double);
  bool is_unsigned = accept_word("unsigned");
  an_integer_kind kind = ik_int;
  if (accept_word("char")) {
    kind = is_unsigned ? ik_unsigned_char : plain_char_int_kind;
    return integer_type(kind);
  }
  if (accept_word("short")) {
    kind = ik_short;
  } else if (accept_word("long")) {
    if (accept_word("double")) return float_type(fk_long_double);
    kind = accept_word("long") ? ik_long_long : ik_long;
  } else if (!accept_word("int")) {
    check_invariant(is_unsigned);
  }
  return integer_type(is_unsigned ? static_cast<an_integer_kind>(unsigned_int_kind_of[kind])
                                  : kind);
}

a_type *a_signature_reader::read_type() {
  unsigned qualifiers = 0;
  for (;;) {
    if (accept_word("const"))
      qualifiers |= tq_const;
    else if (accept_word("volatile"))
      qualifiers |= tq_volatile;
    else
      break;
  }
  a_type *type = make_qualified_type(read_base_type(), qualifiers);
  while (accept('*'))
    type = make_pointer_type_full(type);
  return accept('&') ? make_lhsref_type(type) : type;
}

a_type *make_builtin_type(const char *signature) {
  a_signature_reader reader(signature);
  a_type *type = make_routine_type(reader.read_type());
  a_routine_type_supplement *supplement = type->routine_supplement;
  supplement->prototyped = true;
  supplement->name_linkage = nlk_external_c;
  bool opened = reader.accept('(');
  check_invariant(opened);
  if (reader.accept_word("void") && reader.accept(')')) return type;
  // What was read as "void" above may have been the first word of a parameter.
  a_signature_reader parameters(std::strchr(signature, '(') + 1);
  do {
    if (parameters.accept('.')) {
      supplement->has_ellipsis = true;
      break;
    }
    add_param_type(type, parameters.read_type());
  } while (parameters.accept(','));
  return type;
}

// ---- Declaring functions -----------------------------------------------------------------------

a_symbol *declare_builtin(const a_builtin_row &row) {
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  bool saved_misra = check_misra_c_2004, saved_pwa = check_pwa;
  check_misra_c_2004 = check_pwa = false;
  a_routine *routine = alloc_routine();
  routine->type = make_builtin_type(row.signature);
  routine->storage_class = routine->declared_storage_class = sc_extern;
  routine->special_data.builtin_number = row.id;
  routine->name_linkage = nlk_external_c;
  routine->name_linkage_set = true;
  a_symbol *symbol = make_predeclared_function_symbol(row.name, routine);
  // A function of the library goes by its own name from here on.
  if (row.id == bi_none) routine->name = row.name + std::strlen("__builtin_");
  add_to_routines_list(routine, 0);
  check_misra_c_2004 = saved_misra;
  check_pwa = saved_pwa;
  switch_back_to_original_region(saved);
  return symbol;
}

void declare_intrinsics() {
  for (const a_builtin_row &row : intrinsic_rows)
    if (arm_condition_holds(row.condition)) declare_builtin(row);
}

}  // namespace

bool is_builtin_function_name(const char *name, std::size_t length) {
  if (const a_builtin_row *row = find_gnu_row(name, length))
    return builtin_functions_enabled && arm_condition_holds(row->condition);
  if (no_intrinsics) return false;
  for (const a_builtin_row &row : intrinsic_rows)
    if (std::strncmp(row.name, name, length) == 0 && row.name[length] == '\0')
      return arm_condition_holds(row.condition);
  return false;
}

a_symbol *load_matching_builtin_function(a_symbol_header *header) {
  // All of these names begin with two underscores.
  if (!builtin_functions_enabled || header->length < 4 || header->name[0] != '_') return nullptr;
  const a_builtin_row *row = find_gnu_row(header->name, header->length);
  if (row == nullptr || !arm_condition_holds(row->condition)) return nullptr;
  return declare_builtin(*row);
}

int builtin_function_number(const a_routine *routine) {
  return routine->special_kind == sfk_none ? static_cast<int>(routine->special_data.builtin_number)
                                           : bi_none;
}

bool is_gnu_builtin_function(const a_routine *routine) {
  return builtin_function_number(routine) != bi_none;
}

bool is_qx_builtin_function(const a_routine *routine) {
  int number = builtin_function_number(routine);
  return number >= first_qx_builtin && number <= last_qx_builtin;
}

bool is_machine_intrinsic(const a_routine *routine) {
  int number = builtin_function_number(routine);
  for (const a_builtin_row &row : intrinsic_rows)
    if (row.id == number) return row.is_machine_intrinsic;
  return false;
}

// ---- Types -------------------------------------------------------------------------------------

namespace {

// struct __zvn_va_list { void *__ap; };
a_type *make_va_list_type() {
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  a_type *type = alloc_type(tk_struct);
  a_field *field = alloc_field();
  field->type = make_pointer_type_full(void_type());
  field->name = "__ap";
  field->is_class_member = true;
  type->fields = field;
  type->is_incomplete = false;
  type->class_flags.is_predeclared = true;
  type->class_flags.has_definition = true;
  type->class_flags.is_aggregate = true;
  do_class_layout(type);
  constexpr char tag[] = "__zvn_va_list";
  a_symbol_header *header = find_symbol_header(tag, std::strlen(tag));
  a_symbol *symbol = full_enter_symbol(syk_class, header, &null_source_position, 0, 0);
  symbol->variant.type = type;
  set_source_corresp(type, symbol);
  add_to_types_list(type, 0);
  push_scope(sck_class, new_scope_number, type, nullptr);
  constexpr char member[] = "__ap";
  a_symbol *field_symbol =
      full_enter_symbol(syk_field, find_symbol_header(member, std::strlen(member)),
                        &null_source_position, depth_scope_stack, 0);
  field_symbol->variant.field = field;
  set_source_corresp_with_scope_depth(field, field_symbol, depth_scope_stack);
  pop_scope();
  switch_back_to_original_region(saved);
  return type;
}

void declare_va_list_typedef() {
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  a_type *type = alloc_type(tk_typeref);
  type->referenced_type = get_default_va_list_type();
  make_symbol_for_predeclared_type(type, "__builtin_va_list");
  add_to_types_list(type, 0);
  switch_back_to_original_region(saved);
}

}  // namespace

a_type *get_default_va_list_type() {
  if (va_list_type == nullptr) va_list_type = make_va_list_type();
  return va_list_type;
}

bool is_va_list_type(const a_type *type) {
  return va_list_type != nullptr && skip_typerefs(type) == va_list_type;
}

// ---- All of it ---------------------------------------------------------------------------------

void enter_system_specific_predeclared_symbols() {
  declare_va_list_typedef();
  if (!no_intrinsics) declare_intrinsics();
  if (!builtin_functions_enabled || !preload_builtin_functions) return;
  for (const a_builtin_row &row : gnu_rows)
    if (arm_condition_holds(row.condition)) declare_builtin(row);
}

void sys_predef_trans_unit_init() {
  va_list_type = nullptr;
}
