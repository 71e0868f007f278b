// Named entities and scopes: variables, routines, fields, labels, namespaces, and the root of the
// intermediate language, il_header.
//
// Routines, fields, namespaces and variables of storage sc_none, sc_extern and sc_static lie in the
// file-scope region; labels, scopes and local variables in the region of their function.
#ifndef IL_IL_ENTITY_H
#define IL_IL_ENTITY_H

#include <cstdint>

#include "driver/mem_manage.h"
#include "il/il_source_corresp.h"
#include "il/il_type.h"

struct PRAGMA;                      // ifile/if_util.h
enum a_pragma_kind : std::uint8_t;  // target/pragma.h

// The decl_modifiers word: the keywords and pragmas of the target.
inline constexpr std::uint32_t dm_calling_convention_mask = 7;
inline constexpr std::uint32_t dm_cdecl = 1;
inline constexpr std::uint32_t dm_fastcall = 2;
inline constexpr std::uint32_t dm_stdcall = 4;
inline constexpr std::uint32_t dm_interrupt = 8;
inline constexpr std::uint32_t dm_nmi_interrupt = 16;
inline constexpr std::uint32_t dm_reentrant = 32;
inline constexpr std::uint32_t dm_port = 64;
inline constexpr std::uint32_t dm_shared = 128;
inline constexpr std::uint32_t dm_sharedpp = 256;
inline constexpr std::uint32_t dm_trap = 512;
inline constexpr std::uint32_t dm_cregister = 1024;
inline constexpr std::uint32_t dm_global = 2048;
inline constexpr std::uint32_t dm_data_mem_bank = 4096;
inline constexpr std::uint32_t dm_data_align = 8192;

// A section that a declaration asked for.
struct a_section_specification {
  const char *name;
  a_source_position position;
  a_section_origin kind;
};

struct a_variable : a_source_correspondence {
  a_variable *next;
  a_type *type;
  a_param_type *param_type;  // of a parameter
  union {                    // by init_kind
    a_constant *constant;
    a_dynamic_init *dynamic;
    a_local_static_variable_init *local_static;
    void *entry;
  } initializer;
  a_storage_class storage_class;
  a_storage_class declared_storage_class;  // as written
  an_init_kind init_kind;
  std::uint8_t visibility;              // 0: the default of the unit
  a_targ_alignment explicit_alignment;  // 0: none
  std::uint32_t decl_modifiers;         // dm_ bits

  bool is_weak : 1;
  bool defined : 1;       // a definition, tentative ones included
  bool is_tentative : 1;  // a file-scope definition of C without initializer
  bool is_parameter : 1;
  bool is_this_parameter : 1;
  bool is_file_scope : 1;         // declared at file or namespace scope
  bool is_extern_block_decl : 1;  // only block-scope declarations were seen
  bool initially_live : 1;        // starts set
  bool address_taken : 1;
  bool is_temporary_candidate : 1;
  bool is_compiler_generated : 1;
  bool is_temporary : 1;
  bool modified_after_init : 1;
  bool is_register_candidate : 1;
  bool is_thread_local : 1;
  bool is_static_data_member : 1;
  bool is_constexpr : 1;
  bool is_const_value : 1;  // its constant stands for it
  bool is_vla : 1;          // lowering makes it a pointer
  bool is_anonymous_union_object : 1;
  bool is_handler_parameter : 1;
  bool is_range_for_variable : 1;
  bool is_condition_variable : 1;
  bool is_return_value : 1;  // lowered: the object that the routine returns
  bool is_guard : 1;
  bool has_named_guard : 1;
  bool initialized_by_routine : 1;
  bool is_static_at_link_time : 1;
  bool is_template_instance : 1;
  bool is_specialization : 1;
  bool is_inline : 1;
  bool has_asm_name : 1;   // unmangled_name holds the name of the source
  bool never_removed : 1;  // used, retain
  bool is_common : 1;
  bool is_captured : 1;
  bool is_virtual_table : 1;
  bool is_typeinfo : 1;
  bool is_comdat : 1;
  bool used_before_set_reported : 1;
  bool has_flexible_array_init : 1;
  bool type_completed_by_init : 1;  // int a[] = ...
  bool is_promoted_local_static : 1;
  bool is_const_after_init : 1;
  bool asm_register_given : 1;
  bool is_function_name_variable : 1;  // __func__
  bool emitted : 1;                    // the generator has written it
  bool is_pack_element : 1;
  bool is_pack : 1;

  const char *section_name_text;
  const char *asm_name;  // __asm__("name") of the declaration
  a_section_specification *section_specification;
  a_routine *instance_of_routine;
  a_source_range init_range;
  an_il_entity_list_entry *attributes_of_definition;
  a_variable_template_info *template_info;
  a_variable *next_in_group;
  const char *comdat_group_name;
  a_variable *shadowed_variable;
  a_variable *alias_target;
  an_object_lifetime *assoc_object_lifetime;
  std::uint32_t asm_register;  // asm_register_given
};

struct a_routine : a_source_correspondence {
  a_routine *next;
  a_type *type;
  std::int32_t function_def_number;      // 0: no body
  a_memory_region_number region_number;  // of the body; 0: none
  a_storage_class storage_class;
  a_storage_class declared_storage_class;
  a_special_function_kind special_kind;
  std::uint8_t visibility;
  std::uint16_t calling_method;               // calling_convention_unset: none
  union {                                     // by special_kind; 0 for none
    std::uint32_t builtin_number;             // sfk_none: 0 for an ordinary function
    std::uint8_t operator_kind;               // sfk_operator
    a_routine_list_entry *alternate_entries;  // constructor, destructor
    std::uint64_t all;
  } special_data;
  std::uint32_t decl_modifiers;  // dm_ bits

  bool is_inline : 1;
  bool defined : 1;
  bool is_weak : 1;
  bool is_virtual : 1;
  bool is_pure_virtual : 1;
  bool is_alias : 1;
  bool is_explicit : 1;
  bool is_constexpr : 1;
  bool is_defaulted : 1;
  bool is_deleted : 1;
  bool is_override : 1;
  bool is_final : 1;
  bool is_static_member : 1;
  bool is_friend_defined : 1;
  bool is_compiler_generated : 1;
  bool is_trivial : 1;
  bool is_main : 1;
  bool is_prototyped_by_use : 1;  // declared by its first call
  bool is_template_instance : 1;
  bool is_specialization : 1;
  bool is_prototype_instantiation : 1;
  bool is_nested_function : 1;
  bool address_taken : 1;
  bool called : 1;
  bool definition_needed_pending : 1;
  bool keep_definition_pending : 1;
  bool definition_needed : 1;
  bool keep_definition_in_il : 1;
  bool owns_memory_region : 1;
  bool body_lowered : 1;
  bool body_dropped : 1;
  bool processing_delayed : 1;
  bool on_inline_list : 1;
  bool extern_inline_seen : 1;  // a declaration without inline, or with extern
  bool gnu_inline : 1;
  bool is_always_inline : 1;
  bool is_never_inline : 1;
  bool is_noreturn : 1;
  bool is_pure : 1;
  bool is_const_function : 1;
  bool is_naked : 1;
  bool is_malloc : 1;
  bool is_hot : 1;
  bool is_cold : 1;
  bool is_ramfunc : 1;
  bool is_interrupt : 1;
  bool never_removed : 1;  // used
  bool is_retained : 1;
  bool is_constructor_function : 1;  // attribute constructor
  bool warn_unused_result : 1;
  bool is_internal_runtime : 1;
  bool has_try : 1;
  bool has_label_address : 1;
  bool has_vla : 1;
  bool has_asm : 1;
  bool calls_setjmp : 1;
  bool calls_alloca : 1;
  bool uses_va_start : 1;
  bool missing_return_possible : 1;  // control can reach the end of the body
  bool is_old_style_definition : 1;
  bool is_comdat : 1;
  bool suppress_position : 1;
  bool emitted : 1;
  bool is_instantiation_for_extern_template : 1;
  bool has_deduced_return_type : 1;
  bool is_lambda_body : 1;
  bool needs_prologue_marker : 1;
  bool is_thunk : 1;
  bool is_wrapper : 1;
  bool in_il_only : 1;
  bool is_final_overrider : 1;
  bool is_vla_helper : 1;
  bool is_asm_function : 1;
  std::uint8_t ctor_dtor_variant : 3;  // a_ctor_dtor_variant

  const char *asm_name;  // __asm__("name") of the declaration
  const char *comdat_group_name;
  a_section_specification *section_specification;
  a_gnu_routine_supplement *gnu_supplement;
  a_class_list_entry *friend_classes;
  a_template *template_info;
  a_template_arg *template_args;
  a_routine *alias_target;
  a_routine *cloned_from;  // the wrapped routine of a wrapper
  a_routine *primary_entry;
  a_routine_list_entry *entry_list;
  a_routine *overridden;
  std::int64_t virtual_index;
  std::int64_t this_offset;
  std::int64_t vcall_offset;
  a_constructor_init *ctor_inits;
  an_eh_info_entry *eh_info;
  a_using_decl *using_decl;
  a_source_range body_range;
  std::uint32_t priority;  // of an attribute constructor; 0: none
};

struct a_gnu_routine_supplement {
  const char *section_name;
  const char *alias_name;
  const char *error_text;    // attribute error
  const char *warning_text;  // attribute warning
  std::uint32_t constructor_priority;
  std::uint32_t format_kind;  // 0: none; else the archetype
  std::uint32_t format_string_index;
  std::uint32_t format_first_arg;
  std::uint32_t format_arg_index;
  std::uint32_t alloc_size_first;
  std::uint32_t alloc_size_second;
  an_attribute *calls;
  const char *target_text;
};

struct a_field : a_source_correspondence {
  a_field *next;
  a_type *type;
  a_targ_size_t offset;  // in bytes
  bool is_packed : 1;
  bool has_error_type : 1;
  bool is_bit_field : 1;
  bool is_mutable : 1;
  bool is_unnamed_member : 1;
  bool is_anonymous_parent : 1;  // an anonymous struct or union
  bool is_zero_size_skip : 1;    // an unnamed bit-field of width 0
  bool is_virtual_pointer : 1;
  bool is_captured_this : 1;
  bool is_flexible_array : 1;
  bool has_default_init : 1;
  bool default_init_is_constant : 1;
  bool default_init_pending : 1;
  bool is_compiler_generated : 1;
  bool overlaps_next : 1;
  std::uint8_t bit_offset;
  std::uint8_t bit_size;        // as declared
  std::uint16_t declared_bits;  // width of the declared type of a bit-field
  a_targ_alignment explicit_alignment;
  a_source_range declared_range;
  union {
    a_constant *constant;
    an_expr_node *expr;
    a_dynamic_init *dynamic;
  } default_init;
  a_field *anonymous_union_field;  // a member of it can be named from outside
  an_object_lifetime *default_init_lifetime;
};

struct a_label : a_source_correspondence {
  a_label *next;
  a_statement *statement;  // null: not defined
  a_source_position first_use_position;
  an_object_lifetime *lifetime;
  bool is_defined : 1;
  bool is_used : 1;
  bool address_taken : 1;
  bool is_compiler_generated : 1;
  bool is_local_label : 1;  // __label__
  bool is_break_label : 1;  // of a loop or switch
  bool is_continue_label : 1;
};

struct a_namespace : a_source_correspondence {
  a_namespace *next;
  bool is_alias : 1;
  bool is_inline : 1;
  bool is_unnamed : 1;
  bool is_std : 1;
  union {
    a_scope *scope;
    a_namespace *alias_target;  // is_alias
  };
  a_using_decl *inline_using_directive;
};

struct a_using_decl {
  a_using_decl *next;
  a_source_position position;
  a_source_position end_position;
  void *target;
  a_scope *scope;
  a_name_qualifier *qualifier;
  an_il_entry_kind entry_kind;  // of the target
  std::uint8_t access;
  bool is_directive : 1;
  bool is_class_member : 1;
  bool is_access_declaration : 1;
  bool is_typename : 1;
  bool is_inherited_ctor : 1;
  bool is_implicit : 1;  // for an inline or unnamed namespace
  int depth;
};

struct a_scope {
  a_scope *next;
  a_scope *prev;
  a_scope *parent;
  std::int32_t scope_number;
  std::int32_t stack_depth;  // -1: not on the stack
  a_scope_kind kind;
  bool is_handler_scope : 1;
  bool has_vla : 1;
  bool lists_orphaned : 1;  // types, variables and namespaces were handed on
  bool is_statement_expr : 1;
  bool is_for_init : 1;
  union {                // by kind
    a_type *type;        // class, enum, prototype
    a_handler *handler;  // block, is_handler_scope
    a_namespace *name_space;
    a_statement *statement;  // condition
    a_routine *routine;      // function
    void *entry;
  } assoc;
  // A function scope only.
  a_variable *parameters;
  a_constructor_init *ctor_inits;
  an_object_lifetime *function_lifetime;
  a_variable *this_param;
  a_variable *return_var;
  // Of every kind.
  a_statement *block;
  an_object_lifetime *lifetime;
  a_constant *constants;
  a_type *types;
  a_variable *variables;
  a_variable *local_variables;  // sc_auto and higher, of block scopes
  a_label *labels;
  a_routine *routines;
  an_asm_entry *asm_entries;
  a_scope *nested_scopes;
  a_namespace *namespaces;
  a_using_decl *using_decls;
  a_dynamic_init *dynamic_inits;
  a_local_static_variable_init *local_static_inits;
  a_vla_dimension *vla_dimensions;
  a_local_expr_node_ref *local_expr_refs;
  a_local_scope_ref *local_scope_refs;
  a_pragma *pragmas;
  a_template *templates;
  an_il_entity_list_entry *source_sequence;
};

// A file-scope entity whose parent is a scope of a function: kept in the function's region, so that
// the entity holds no pointer into it.
struct a_local_scope_ref {
  a_local_scope_ref *next;
  void *entity;
  an_il_entry_kind kind;
  a_scope *scope;
};
// The same for an expression that a file-scope entry refers to.
struct a_local_expr_node_ref {
  a_local_expr_node_ref *next;
  an_expr_node *expr;
  void *entry;
  an_il_entry_kind kind;
  a_local_expr_ref_role role;
};

// Lists of file-scope entries of a function, kept when its region goes.
struct a_scope_orphaned_list_header {
  a_scope_orphaned_list_header *next;
  a_routine *routine;
  std::int32_t scope_number;
  a_type *types;
  a_variable *variables;
  a_namespace *namespaces;
};

struct an_il_entity_list_entry {
  an_il_entity_list_entry *next;
  void *entity;
  an_il_entry_kind kind;
};

struct a_vla_dimension {
  a_vla_dimension *next;
  a_type *type;
  an_expr_node *bound_expr;
  a_variable *variable;  // holds the value of the bound
  std::uint32_t number;
  a_source_position position;
  bool lowered;
};

struct a_local_static_variable_init {
  a_local_static_variable_init *next;
  a_variable *variable;
  an_init_kind init_kind;
  union {
    a_constant *constant;
    a_dynamic_init *dynamic;
    void *entry;
  } initializer;
};

struct a_variable_template_info {
  a_template *assoc_template;
  a_template_arg *template_args;
  a_variable *instantiated_from;
};

struct a_name_qualifier {
  a_name_qualifier *next;
  void *entity;
  an_il_entry_kind kind;  // type or namespace
  a_template_arg *template_args;
  a_source_position position;
};
struct a_name_reference {
  a_name_reference *next;  // the others of the same entity
  a_name_qualifier *name_qualifier;
  a_type *destructor_type;
  a_template_arg *template_args;
  std::int64_t arg_count;  // -1: none
  std::uint8_t form_byte;
  bool has_global_prefix : 1;
  bool has_template_args : 1;
  bool carried_locator_bit : 1;
  bool in_dependent_context : 1;
};

struct an_asm_entry : a_source_correspondence {
  an_asm_entry *next;
  a_source_position position;
  a_constant *asm_text;  // ck_string
  an_asm_operand *outputs;
  an_asm_operand *inputs;
  a_named_register_list *clobbers;
  a_label_list *labels;
  std::uint8_t form : 2;  // 2: an asm with a string
  bool is_volatile : 1;
  bool is_goto : 1;
};
struct an_asm_operand {
  an_asm_operand *next;
  const char *constraint;
  const char *symbolic_name;
  an_expr_node *expr;
  a_source_position position;
};
struct a_named_register_list {
  a_named_register_list *next;
  int register_number;
};
struct a_label_list {
  a_label_list *next;
  a_label *label;
};

struct a_macro : a_source_correspondence {
  a_macro *next;
  const char *text;  // of the definition, as printed
  bool is_predefined : 1;
  bool is_command_line : 1;
  bool is_undefinition : 1;
};

enum a_stdc_pragma_subject : std::uint8_t {
  stdc_subject_none,
  stdc_fp_contract,
  stdc_fenv_access,
  stdc_cx_limited_range
};
enum a_pragma_placement : std::uint8_t {
  ppl_on_symbol,
  ppl_start_of_routine,
  ppl_in_line,
  ppl_on_statement
};
struct a_pragma {
  a_pragma *next;
  a_pragma_kind kind;
  an_il_entry_kind entity_kind;  // iek_none: no entity
  bool hidden;
  std::uint8_t selector;        // a_stdc_pragma_subject, or the subject of a GCC pragma
  std::uint8_t selector_value;  // a_stdc_pragma_state
  a_pragma_placement placement;
  std::int16_t pragma_kind;  // of the PRAGMA record
  void *entity;
  a_source_position position;
  const char *text;
  PRAGMA *pragma;
};

enum a_source_language : std::uint8_t { sl_cplusplus, sl_c };

// The root of the intermediate language.
struct an_il_header {
  a_source_file *primary_source_files;
  a_scope *primary_scope;  // the file scope of the primary unit
  a_routine *main_routine;
  const char *version_text;
  const char *configuration_text;
  const char *date_text;
  void *link;
  a_scope **region_scope_table;  // by region; the scopes of a region are linked through next
  a_scope_orphaned_list_header *orphaned_scope_lists;
  a_scope_orphaned_list_header *last_orphaned_scope_list;
  a_macro *macro_list;
  a_macro *last_macro;
  a_source_language source_language;
  bool short_enums_in_use;
  bool any_vla_type;  // a variably modified type exists
  bool any_typeinfo_use;
  bool lowered;
  bool plain_char_is_signed;
  std::int32_t target_configuration_index;
  std::int32_t std_version;
};
extern an_il_header il_header;

#endif
