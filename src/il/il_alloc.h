// Allocation of IL entries, the lists of scopes that own them, and their removal.
//
// Every entry has a hidden prefix in front of it: a word of marks, which any entry of any region
// has, and for a file-scope entry the link of the orphan lists (in a secondary unit also the link
// between corresponding entries). An entry is cleared when it is made, and belongs to one memory
// region until that is released; none is freed alone.
//
// A file-scope entry never points into the region of a function: where it would have to, a local
// reference record in the function's region holds the pair.
#ifndef IL_IL_ALLOC_H
#define IL_IL_ALLOC_H

#include <cstddef>
#include <cstdint>

#include "driver/mem_manage.h"
#include "il/il_entity.h"
#include "il/il_expr.h"
#include "il/il_stmt.h"
#include "il/il_template.h"

// ---- The prefix of an entry --------------------------------------------------------------------

// The word directly in front of every entry.
struct an_il_entry_marks {
  std::uint32_t walk_number;  // of the last walk that came here; 0: none
  bool in_file_scope_region : 1;
  bool from_secondary_trans_unit : 1;
  bool il_lowered : 1;  // made by lowering
  bool keep_in_il : 1;
  bool keep_definition_pending : 1;
  bool is_orphan : 1;      // on a list of orphans
  bool needed_walked : 1;  // for entries without a head: the needed walk was here
  bool is_scratch : 1;     // a local constant that is in no list of the IL
};
static_assert(sizeof(an_il_entry_marks) == 8);
inline an_il_entry_marks &il_marks(const void *entry) {
  return static_cast<an_il_entry_marks *>(const_cast<void *>(entry))[-1];
}
inline bool in_file_scope_region(const void *entry) {
  return il_marks(entry).in_file_scope_region;
}
// The next orphan of the same kind; for file-scope entries only.
inline void *&next_orphan_of(const void *entry) {
  return static_cast<void **>(const_cast<void *>(entry))[-2];
}
// For file-scope entries of secondary units only.
inline void *&trans_unit_corresp_link_of(const void *entry) {
  return static_cast<void **>(const_cast<void *>(entry))[-3];
}

// ---- State -------------------------------------------------------------------------------------

extern const std::uint32_t sizeof_il_entry[iek_last + 1];  // by kind; 1 for text, 9999 at the end

// Of file-scope entries of the current unit; set by compute_il_prefix_size.
extern std::size_t il_prefix_size;
extern an_il_entry_marks il_marks_template;  // file-scope marks, il_lowered as now
extern an_il_entry_marks il_local_marks_template;
extern bool initial_value_for_il_lowering_flag;  // entries made now are marked as lowered
extern bool okay_to_eliminate_unneeded_il_entries;
extern a_source_correspondence source_corresp_template;
extern a_constant *available_local_constants;

// A list by head and tail.
struct an_orphan_list {
  void *first;
  void *last;
};
extern an_orphan_list orphaned_file_scope_il_entries[iek_last];

void compute_il_prefix_size();
// What is made from now on counts as lowered, or not any more.
void set_il_lowering_flag(bool value);

// ---- Blocks ------------------------------------------------------------------------------------

// An entry-shaped block of the file-scope region of the current unit; not cleared.
inline void *alloc_il(std::size_t size) {
  char *block =
      static_cast<char *>(alloc_in_region(file_scope_region_number, size + il_prefix_size));
  void *entry = block + il_prefix_size;
  next_orphan_of(entry) = nullptr;
  il_marks(entry) = il_marks_template;
  return entry;
}
// The same in region 1, whatever unit is current.
void *alloc_primary_file_scope_il(std::size_t size);
inline void *alloc_in_current_il_region(std::size_t size) {
  if (curr_il_region_number == file_scope_region_number) return alloc_il(size);
  char *block =
      static_cast<char *>(alloc_in_region(curr_il_region_number, size + sizeof(an_il_entry_marks)));
  void *entry = block + sizeof(an_il_entry_marks);
  il_marks(entry) = il_local_marks_template;
  return entry;
}
inline char *alloc_text_of_string_literal(std::size_t size) {
  return static_cast<char *>(alloc_il(size));
}
// A name or another text in the file-scope region, with a null behind it.
char *alloc_il_text(const char *text, std::size_t length);

// ---- One routine for each record ---------------------------------------------------------------
//
// Those that take a kind also clear the variant part for it (set_..._kind does so again).

a_source_file *alloc_source_file();
a_seq_number_lookup_entry *alloc_seq_number_lookup_entry();

a_constant *alloc_constant(a_constant_kind kind);  // in the current region
a_constant *fs_constant(a_constant_kind kind);     // in the file scope
void clear_constant(a_constant *constant, a_constant_kind kind);
void set_constant_kind(a_constant *constant, a_constant_kind kind);
void set_template_param_constant_kind(a_constant *constant, a_template_param_constant_kind kind);
// Scratch constants. Released or moved, the caller's variable becomes null.
a_constant *local_constant();
void release_local_constant(a_constant **constant);
a_constant *move_local_constant_to_il(a_constant **constant);
// A copy in the IL; never shared with others.
a_constant *alloc_unshared_constant_full(const a_constant *constant);
inline a_constant *alloc_unshared_constant(const a_constant *constant) {
  return alloc_unshared_constant_full(constant);
}
// One constant of the IL for each value and scope class.
a_constant *alloc_shareable_constant(const a_constant *constant);
std::uint32_t hash_constant(const a_constant *constant);
// Equal kinds, types and values; with ccf_exact the marks that later phases read must agree too.
enum a_compare_constants_flag { ccf_none = 0, ccf_exact = 1 };
bool compare_constants(const a_constant *a, const a_constant *b, int flags);
void empty_shareable_constants_table();
void empty_func_shareable_constants_table(a_scope_stack_entry *entry);
// The constant refers to an entry of a function region.
bool has_non_file_scope_ref(const a_constant *constant);
void break_source_corresp(a_source_correspondence *corresp);
void break_instance_source_corresp(a_source_correspondence *corresp);
void break_constant_source_corresp(a_constant *constant);

a_param_type *alloc_param_type(a_type *type);
a_based_type_list_member *alloc_based_type_list_member(a_based_type_relation relation,
                                                       a_type *type);
a_type *alloc_type(a_type_kind kind);
void clear_type(a_type *type, a_type_kind kind);
void set_type_kind(a_type *type, a_type_kind kind);
an_exception_specification *alloc_exception_specification();
an_exception_specification_type *alloc_exception_specification_type();
a_derivation_step *alloc_derivation_step();
void free_derivation_step(a_derivation_step *step);
a_base_class_derivation *alloc_base_class_derivation();
a_base_class *alloc_base_class();
a_vcall_offset_entry *alloc_vcall_offset_entry();
an_overriding_virtual_function *alloc_overriding_virtual_function();
a_class_list_entry *alloc_list_entry_for_class();
// In the region that `entity` lies in.
a_class_list_entry *alloc_list_entry_for_class_full(const void *entity);
a_routine_list_entry *alloc_list_entry_for_routine();
void clear_class_type_definition_fields(a_class_type_supplement *supplement);

a_variable *alloc_variable(a_storage_class storage_class);
a_variable_template_info *alloc_variable_template_info();
a_field *alloc_field();
a_routine *alloc_routine();
void set_routine_special_kind(a_routine *routine, a_special_function_kind kind);
a_gnu_routine_supplement *alloc_gnu_supplement_for_routine(a_routine *routine);
a_label *alloc_label();
a_namespace *alloc_namespace(bool is_alias);
void clear_namespace(a_namespace *name_space, bool is_alias);
a_using_decl *alloc_using_decl();
an_asm_entry *alloc_asm_entry();
an_asm_operand *alloc_asm_operand();
a_named_register_list *alloc_named_register_list();
a_label_list *alloc_label_list();
a_macro *alloc_macro();
// In the region of the entity; null: in the current one. The kind maps to record kind and
// placement.
a_pragma *alloc_pragma(a_pragma_kind kind, a_source_correspondence *entity);

an_expr_node *alloc_expr_node(an_expr_node_kind kind);
void clear_expr_node(an_expr_node *node, an_expr_node_kind kind);
void set_expr_node_kind(an_expr_node *node, an_expr_node_kind kind);
an_expr_node *alloc_lowered_eh_construct_node(a_lowered_eh_construct_kind kind);
a_catch_entry *alloc_catch_entry(a_variable *typeinfo_variable, a_label *label);
an_eh_info_entry *alloc_eh_info_entry(an_eh_entry_kind kind, std::uint32_t id);
a_call_expr_entry *alloc_call_expr_entry(an_expr_node *expr);
a_routine_selection *alloc_routine_selection();
a_subobject_path *alloc_subobject_path();

a_statement *alloc_statement(a_statement_kind kind);
void set_statement_kind(a_statement *statement, a_statement_kind kind);
a_switch_case_entry *alloc_switch_case_entry();
a_handler *alloc_handler();
an_object_lifetime *alloc_object_lifetime(an_object_lifetime_kind kind);
void free_object_lifetime(an_object_lifetime *lifetime);
a_dynamic_init *alloc_dynamic_init(a_dynamic_init_kind kind);
void set_dynamic_init_kind(a_dynamic_init *init, a_dynamic_init_kind kind);
a_local_static_variable_init *alloc_local_static_variable_init();
a_vla_dimension *alloc_vla_dimension();
a_constructor_init *alloc_ctor_init(a_ctor_init_kind kind);

a_scope *alloc_scope(a_scope_kind kind, std::int32_t number, a_routine *routine);
void set_scope_kind(a_scope *scope, a_scope_kind kind);
a_local_scope_ref *alloc_local_scope_ref();
a_local_expr_node_ref *alloc_local_expr_node_ref();
an_il_entity_list_entry *alloc_il_entity_list_entry();

a_template *alloc_template();
a_template_decl *alloc_template_decl();
a_template_param *alloc_template_parameter();
a_template_arg *alloc_template_arg(a_template_arg_kind kind);
void free_template_arg_list(a_template_arg *list);
a_lambda *alloc_lambda();
a_lambda_capture *alloc_lambda_capture();
an_attribute *alloc_attribute();
an_attribute_arg *alloc_attribute_arg();
an_attribute_group *alloc_attribute_group();

an_element_position *alloc_element_position();
a_decl_position_supplement *alloc_decl_position_supplement(bool in_file_scope);
a_name_qualifier *alloc_name_qualifier();
a_name_reference *alloc_name_reference();
void clear_name_reference(a_name_reference *reference);

// ---- The lists of scopes -----------------------------------------------------------------------
//
// All append, and set the parent scope. The scope is the one at `depth` of the scope stack; its IL
// scope is made when there is none.

void add_to_types_list(a_type *type, int depth);
void add_to_variables_list(a_variable *variable, int depth);
// Into the list behind previous, or at its head (previous null); the scope may be open or not.
void insert_in_variables_list(a_variable *variable, a_variable *previous, a_scope *scope);
void add_to_parameters_list(a_variable *variable, int depth);
void add_to_routines_list(a_routine *routine, int depth);
void add_to_constants_list(a_constant *constant, bool at_file_scope);
void add_to_labels_list(a_label *label);
void add_to_namespaces_list(a_namespace *name_space, int depth);
void add_to_using_decls_list(a_using_decl *using_decl, int depth);
void add_to_asm_entries_list(an_asm_entry *entry, int depth);
void add_to_templates_list(a_template *il_template, int depth);
void add_to_pragma_list(a_pragma *pragma, int depth);
void add_to_dynamic_inits_list(a_dynamic_init *init, int depth);
void add_to_macros_list(a_macro *macro);  // of il_header

// ---- Parents -----------------------------------------------------------------------------------

void set_parent_scope(a_source_correspondence *entity, an_il_entry_kind kind, a_scope *scope);
// Follows a local reference; null when the function's region is gone.
a_scope *f_get_parent_scope_of(const a_source_correspondence *entity);
inline a_scope *get_parent_scope_of(const a_source_correspondence *entity) {
  return entity->has_local_scope_ref ? f_get_parent_scope_of(entity) : entity->parent_scope;
}
void clear_parent(a_source_correspondence *entity, an_il_entry_kind kind);
// For a file-scope entry that refers to an expression of the scope's region.
a_local_expr_node_ref *make_local_expr_node_ref(an_expr_node *expr, a_local_expr_ref_role role,
                                                void *entry, a_scope *scope);
// Null: none of that role.
an_expr_node *find_local_expr_node_in_scope(const void *entry, a_local_expr_ref_role role,
                                            const a_scope *scope);

// ---- Orphans -----------------------------------------------------------------------------------

// Puts a file-scope entry that no list owns on the list of its kind.
void f_possibly_add_orphaned_file_scope_il_entry(void *entry, an_il_entry_kind kind,
                                                 a_translation_unit *unit);

// ---- Removal -----------------------------------------------------------------------------------

void eliminate_unneeded_il_entries(a_scope *scope);
void eliminate_bodies_of_unneeded_functions(a_scope *file_scope);
void eliminate_unneeded_scope_orphaned_list_entries();
// Releases the region of a function body; the routine has none any more.
void clear_function_body(a_scope *scope);
// Keeps the file-scope entries that a function's scopes list; before its region is released.
void add_scope_orphaned_il_lists(a_scope *scope);
void remove_from_variables_list(a_variable *variable, a_scope *scope);
void remove_from_routines_list(a_routine *routine, a_scope *scope);
void remove_from_types_list(a_type *type, a_scope *scope);

// ---- Phases ------------------------------------------------------------------------------------

void il_alloc_one_time_init();
void il_alloc_init();
void il_alloc_trans_unit_init();

#endif
