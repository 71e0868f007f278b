// The symbol table: what a name means in a scope while the program is parsed.
//
// Each spelling has one a_symbol_header, found through one hash table for the whole compilation.
// Each declaration of the name has one a_symbol, which leads to the entity of the IL. The symbols
// that are visible now hang on their header, innermost first, so that the usual lookup reads one
// pointer. Labels, macros and keywords are symbols too, told apart by their name space.
//
// Headers and symbols lie in region 0, names in the primary file-scope region; none is IL and none
// is freed. Entering a symbol never looks at scopes that are not open, except to keep the chain of
// a header ordered when the symbol goes to an outer scope.
#ifndef SEMANTICS_SYMBOL_TBL_H
#define SEMANTICS_SYMBOL_TBL_H

#include <cstddef>
#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"

enum a_token_kind : std::uint16_t;
struct a_macro_def;
struct a_class_symbol_supplement;
struct a_template_symbol_supplement;
struct a_hash_table;

enum a_symbol_kind : std::uint8_t {
#define SYMBOL_KIND(number, name, printed, c_space, cpp_space) syk_##name = number,
#include "semantics/symbol_tbl_kinds.def"
  syk_last
};
static_assert(syk_last == 24);
extern const char *const symbol_kind_names[syk_last + 1];  // as messages print them

// Names of different spaces live side by side in one scope.
enum a_name_space : std::uint8_t {
  ns_labels = 0,
  ns_tags = 1,
  ns_ordinary = 2,
  ns_macros = 3,
  ns_keywords = 4,
  ns_block_externs = 5,  // kept for block-scope extern declarations; no lookup finds them
  ns_members = 6,
};
// By symbol kind, for the dialect in force.
extern a_name_space name_space_for_symbol_kind[syk_last];

// One spelling.
struct a_symbol_header {
  const char *name;  // ends in a null
  std::size_t length;
  a_symbol *active_symbols;        // visible now, innermost scope first
  a_symbol *class_member_symbols;  // reached through their class or closed namespace only
  std::uint32_t hash_value;
  std::uint8_t opname_kind;  // of an operator function's name; 0: none
};

struct a_symbol {
  a_symbol_header *header;
  a_symbol *next_active;    // on the chain of the header
  a_symbol *next_in_scope;  // all symbols of a scope, in order of declaration
  a_symbol *prev_in_scope;
  a_symbol *next_with_same_name_in_scope;  // in an entry of a scope's lookup table
  std::int32_t scope_number;               // no_scope_number: in no scope
  std::uint32_t decl_seq;                  // of the declaration: later ones are greater
  a_source_position decl_position;
  union {
    a_type *class_type;          // with is_class_member
    a_namespace *namespace_ptr;  // otherwise; null: the file scope or a block
  } parent;

  a_symbol_kind kind;
  bool is_class_member : 1;
  bool is_error_symbol : 1;           // its declaration failed
  bool is_template_param_symbol : 1;  // of a template parameter
  bool is_hidden : 1;                 // only a declarator's search sees it
  bool is_ambiguous : 1;              // of a projection: lookup found several answers
  bool is_inactive : 1;               // on class_member_symbols, not on active_symbols
  bool is_in_symbol_table : 1;        // on a chain of its header
  bool is_injected_class_name : 1;    // of a syk_type: the class's name inside the class
  bool defined : 1;                   // of a label: its statement was seen
  bool referenced : 1;                // some use was recorded
  bool value_set : 1;                 // of a variable: assigned, initialized, or address taken
  bool value_used : 1;                // of a variable: its value was read, or its address taken
  bool is_declared_label : 1;         // of a label: named by __label__ in a block
  bool undefined_use_reported : 1;    // of a label or routine: its missing definition was reported
  bool implicitly_declared : 1;       // of a routine: by a call in C

  union {
    a_token_kind keyword;        // syk_keyword
    a_macro_def *macro_def;      // syk_macro
    a_constant *constant;        // syk_constant: an enumerator
    a_type *type;                // syk_type, syk_class, syk_union, syk_enum
    a_variable *variable;        // syk_variable, syk_parameter, syk_static_data_member
    a_field *field;              // syk_field
    a_routine *routine;          // syk_routine, syk_member_function
    a_label *label;              // syk_label
    a_symbol *target;            // syk_projection, syk_namespace_projection
    a_symbol *first_function;    // syk_overloaded_function: its members, linked by next_overload
    a_namespace *namespace_ptr;  // syk_namespace
    a_template_symbol_supplement *template_info;  // the template kinds
    void *pointer;                                // any of the pointers above
  } variant;

  union {
    a_class_symbol_supplement *class_supplement;  // syk_class, syk_union
    a_derivation_step *path;                      // syk_projection: how the base is reached
    a_symbol *next_overload;                      // a function of an overload set
    // syk_extern_variable, syk_extern_routine: the composite type of all block declarations.
    a_type *composite_type;
    void *first;
  } extra;
  a_symbol *block_extern;  // of a name that a block declares extern: its kind 14 or 15 symbol
};

inline constexpr std::int32_t no_scope_number = -1;  // of macros, keywords, fields of C, errors

// What stays with a class while its scope is closed.
struct a_class_symbol_supplement {
  a_scope_pointers_block *pointers_block;  // symbols and open lists of the class
  std::int32_t scope_number;
  a_symbol *constructor;  // null: none declared
  a_symbol *destructor;
  a_symbol *conversion_functions;  // linked by next_overload
  a_symbol *friends;               // functions that only argument dependent lookup finds
  a_symbol *injected_class_name;
};

// A name on its way from the token to its meaning; a value that is copied in and out.
struct a_symbol_locator {
  a_symbol_header *header;
  a_source_position position;
  a_symbol *symbol;  // result; null: not looked up, or not found
  union {
    a_type *class_type;          // with qualifier_is_class
    a_namespace *namespace_ptr;  // otherwise
  } qualifier;
  a_template_arg *template_args;
  a_name_qualifier *name_qualifier_chain;  // as written
  union {
    a_type *type;  // a conversion's target, the type behind ~, or of a decltype qualifier
    std::uint8_t operator_kind;  // with is_operator_name
  } name_data;

  bool is_qualified : 1;
  bool has_global_prefix : 1;       // a leading ::
  bool global_scope_qualifier : 1;  // the qualifier is the global scope
  bool is_operator_name : 1;
  bool is_conversion_name : 1;
  bool is_destructor_name : 1;
  bool is_literal_operator_name : 1;
  bool nested_class_anachronism : 1;  // the finder reports 408
  bool is_coalesced : 1;              // the token stands for a whole qualified name
  bool dependent_qualifier : 1;       // no lookup is made through the qualifier
  bool qualifier_may_be_incomplete : 1;
  bool constructor_name : 1;
  bool error_name : 1;       // known bad: lookups give null, and nothing more is reported
  bool specific_symbol : 1;  // symbol is fixed
  bool has_template_args : 1;
  bool qualifier_is_class : 1;
  bool base_class_qualifier : 1;  // a failed lookup is 1222, not 136
  bool carried_reference_bit : 1;
  bool decltype_qualifier : 1;
};

// ---- State: whole compilation ------------------------------------------------------------------

// The headers by their spelling: a slot is free, or the search for a name goes on in the next one.
// Hashes stand apart, close together: most of what a search reads.
struct a_symbol_table {
  std::size_t num_slots;  // a power of 2; grows with the names
  std::uint32_t *hashes;  // 0: free
  a_symbol_header **headers;
};
extern a_symbol_table symbol_table;
extern const a_symbol_locator cleared_locator;
extern std::int32_t next_scope_number;

// ---- State: per translation unit ---------------------------------------------------------------

extern std::uint32_t decl_seq_counter;  // grows with each declaration, from 1
// Symbols that belong to no scope: unnamed tags, error symbols.
extern a_symbol *symbols_with_no_scope;
// A fresh file scope puts its symbols on the inactive chains (a second file scope is open).
extern bool file_scope_symbols_are_on_inactive_list;

// ---- Headers -----------------------------------------------------------------------------------

// The header of a spelling, made if it is new.
a_symbol_header *find_symbol_header(const char *name, std::size_t length);
// The same; fills locator->header and gives the first active symbol, null if there is none.
a_symbol *find_symbol(const char *name, std::size_t length, a_symbol_locator *locator);
std::uint32_t hash_of_name(const char *name, std::size_t length);

a_symbol_header *error_symbol_header();    // "<error>"
a_symbol_header *unnamed_symbol_header();  // "<unnamed>"

a_symbol *find_macro_symbol(a_symbol_header *header);  // null: no macro
a_symbol *find_macro_symbol_by_name(const char *name);
a_symbol *find_label_symbol(a_symbol_header *header);  // in the function (GNU: or its blocks)
// The symbol with linkage that a block-scope extern of this name continues: the one of the file
// scope, or the one that an earlier block left; null: none.
a_symbol *find_external_symbol(a_symbol_header *header);

// ---- Making symbols ----------------------------------------------------------------------------

// A symbol in no scope and on no chain.
a_symbol *alloc_symbol(a_symbol_kind kind, a_symbol_header *header,
                       const a_source_position *position);
// The same with the locator's name; a locator without a header gives "<error>".
a_symbol *make_symbol(a_symbol_kind kind, a_symbol_locator *locator);
// Changes the kind, clearing the variant and giving the supplement of the new kind.
void set_symbol_kind(a_symbol *symbol, a_symbol_kind kind);

enum an_enter_flag : unsigned {
  ef_hidden = 1,           // only declarators see it
  ef_no_shadow_check = 2,  // made by the compiler: hides without a remark
};
// Makes a symbol in the scope at a depth of the scope stack and makes it visible; also sets
// locator->symbol. Does not look for an earlier declaration: that is the caller's.
a_symbol *enter_symbol(a_symbol_kind kind, a_symbol_locator *locator, int depth, unsigned flags);
a_symbol *full_enter_symbol(a_symbol_kind kind, a_symbol_header *header,
                            const a_source_position *position, int depth, unsigned flags);
a_symbol *enter_typedef_symbol(a_type *type, a_symbol_locator *locator, int depth, unsigned flags);
// Kind 14 or 15 for the block declarations of this name; lives to the end of the unit.
a_symbol *enter_extern_symbol(a_symbol_kind kind, a_symbol_locator *locator);
a_symbol *make_dummy_undefined_symbol(a_symbol_header *header, const a_source_position *position);
// Kind 13 in the innermost function block (or file scope), so that one missing name reports once.
a_symbol *enter_undefined_symbol(a_symbol_locator *locator);
a_symbol *make_unnamed_tag_symbol(a_symbol_kind kind, const a_source_position *position);
a_symbol *make_unnamed_symbol(a_symbol_kind kind, const a_source_position *position);
bool is_unnamed_tag_symbol(const a_symbol *symbol);
// Gives an unnamed tag the name of the typedef that follows it.
void relink_unnamed_tag_symbol(a_symbol *symbol, a_symbol_locator *locator);
a_symbol *make_symbol_for_predeclared_type(a_type *type, const char *name);
// The typedef va_list of the file scope, when <stdarg.h> is built in; once for each unit.
void declare_builtin_va_list_type();
a_symbol *make_predeclared_function_symbol(const char *name, a_routine *routine);
a_symbol *enter_keyword(a_token_kind token, const char *name);
// A macro is in no scope; the caller fills variant.macro_def.
a_symbol *enter_macro_symbol(a_symbol_header *header, const a_source_position *position);
// Enters a symbol that left its scope before into the scope at depth, keeping its entity.
void reenter_symbol(a_symbol *symbol, int depth, unsigned flags);
void reenter_block_scope_symbol(a_symbol *symbol);
a_symbol *enter_copy_of_symbol(const a_symbol *symbol, int depth);

// A locator that is known to mean symbol.
void make_locator_for_symbol(a_symbol *symbol, a_symbol_locator *locator);
// Makes the locator mean an error symbol at its position.
void make_specific_symbol_error_locator(a_symbol_locator *locator);
void clear_qualifier_from_locator(a_symbol_locator *locator);

// ---- Overload sets -----------------------------------------------------------------------------

// Adds a new function symbol to an existing function or set in the same scope; gives the set.
a_symbol *add_symbol_to_overload_list(a_symbol *existing, a_symbol *added);
void remove_symbol_from_overload_set(a_symbol *symbol, a_symbol *set);

// ---- Linking -----------------------------------------------------------------------------------

// Appends to the scope's list; *no_error, if given, is cleared when the language forbids the name
// there (the message is given, and the symbol is on no list).
void add_symbol_to_scope_list(a_symbol *symbol, int depth, bool *no_error);
void add_symbol_to_symbol_table(a_symbol *symbol, int depth);
void unlink_symbol_from_symbol_table(a_symbol *symbol);
void add_symbol_to_inactive_list(a_symbol *symbol);
void remove_symbol_from_scope_list(a_symbol *symbol, a_scope_pointers_block *block);
// Takes a symbol out of everything: its header's chain, its scope, its lookup table.
void remove_symbol(a_symbol *symbol);

// The symbols of a header in a scope that has a lookup table, linked by
// next_with_same_name_in_scope, the latest first; null: none.
a_symbol *symbols_in_lookup_table(const a_scope_pointers_block *block,
                                  const a_symbol_header *header);
void add_symbol_to_lookup_table(a_symbol *symbol, a_scope_pointers_block *block,
                                std::size_t first_size);
void remove_symbol_from_lookup_table(a_symbol *symbol, a_scope_pointers_block *block);

// ---- Symbols and entities ----------------------------------------------------------------------

// The IL entry of a symbol and its kind; internal error if it has none, unless null is fine.
char *il_entry_for_symbol(a_symbol *symbol, an_il_entry_kind *kind);
char *il_entry_for_symbol_null_okay(a_symbol *symbol, an_il_entry_kind *kind);
a_source_correspondence *source_corresp_entry_for_symbol(a_symbol *symbol);  // null: none
a_type *type_of_symbol(const a_symbol *symbol);  // null where the kind has no type
void set_type_of_symbol(a_symbol *symbol, a_type *type);

// Ties entity and symbol: name, position, class or namespace membership, locality.
void set_source_corresp(a_source_correspondence *entity, a_symbol *symbol);
void set_source_corresp_with_scope_depth(a_source_correspondence *entity, a_symbol *symbol,
                                         int depth);
void set_source_corresp_name(a_source_correspondence *entity, a_symbol *symbol);
void set_class_membership(a_symbol *symbol, a_source_correspondence *entity, a_type *class_type);
void set_namespace_membership(a_symbol *symbol, a_source_correspondence *entity,
                              a_namespace *namespace_ptr);

bool is_local_symbol(const a_symbol *symbol);  // declared inside a function
bool is_block_extern_symbol(const a_symbol *symbol);
inline bool is_tag_symbol_kind(a_symbol_kind kind) {
  return kind >= syk_class && kind <= syk_enum;
}
inline bool is_type_symbol_kind(a_symbol_kind kind) {
  return kind >= syk_type && kind <= syk_enum;
}
inline bool is_variable_symbol_kind(a_symbol_kind kind) {
  return kind == syk_variable || kind == syk_static_data_member || kind == syk_parameter;
}
inline bool is_routine_symbol_kind(a_symbol_kind kind) {
  return kind == syk_routine || kind == syk_member_function;
}
// The symbol behind projections.
inline a_symbol *fundamental_symbol_of(a_symbol *symbol) {
  while (symbol->kind == syk_projection || symbol->kind == syk_namespace_projection)
    symbol = symbol->variant.target;
  return symbol;
}
a_translation_unit *trans_unit_for_symbol(const a_symbol *symbol);

// ---- Access ------------------------------------------------------------------------------------

// The access of a member through a path.
an_access_specifier compute_access(an_access_specifier path, an_access_specifier member);

// ---- Scope numbers -----------------------------------------------------------------------------

std::int32_t take_next_scope_number();

// ---- Life cycle --------------------------------------------------------------------------------

void symbol_tbl_early_init();
void symbol_tbl_one_time_init();
void symbol_tbl_init();
void symbol_tbl_trans_unit_init();

#endif
