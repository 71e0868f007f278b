// Expressions, constants, dynamic initializations and object lifetimes.
//
// Expression nodes, dynamic initializations and lifetimes lie in the current region; constants in
// the current one (alloc_constant) or in the file scope (fs_constant, scratch constants).
#ifndef IL_IL_EXPR_H
#define IL_IL_EXPR_H

#include <cstdint>

#include "UTIL/fpsmath.h"
#include "il/il_source_corresp.h"
#include "il/il_type.h"

struct an_expr_rescan_info_entry;  // parser/exprutil.h

struct a_complex_value {
  simul_fval real_part;
  simul_fval imag_part;
};

// A step of the way from an object to a subobject, for the address of the latter.
struct a_subobject_path {
  a_subobject_path *next;
  union {
    a_field *field;
    a_base_class *base_class;
    a_targ_size_t index;
  };
  enum : std::uint8_t { spk_field, spk_base_class, spk_array_element } kind;
  a_type *type;
};

struct a_constant : a_source_correspondence {
  // In a scope's list, a hash chain of shareable constants, the elements of an aggregate, the
  // enumerators of an enum, or the free scratch constants: whichever holds the constant.
  a_constant *next_in_list;
  a_type *type;
  a_type *orig_type;   // in front of an implicit conversion
  an_expr_node *expr;  // that made it, when kept
  a_constant_kind kind;
  bool is_weak_addr : 1;
  bool is_enumerator : 1;
  bool came_from_cast : 1;  // the value reached this type through a cast
  bool explicit_cast : 1;
  bool is_literal : 1;
  bool not_an_overflow : 1;
  bool is_negative_literal : 1;
  bool not_a_constant_expression : 1;
  bool is_string_from_pragma : 1;
  bool is_char_literal : 1;
  bool is_bool_literal : 1;
  bool is_null_pointer_constant : 1;
  bool is_octal_or_hex : 1;
  bool from_default_arg : 1;
  bool is_value_dependent : 1;
  bool shareable : 1;
  bool is_function_name : 1;  // the text of __func__
  bool implicit_value : 1;    // an enumerator without "= value", an element of a zero filling
  bool has_unsigned_suffix : 1;
  bool array_bound_is_deduced : 1;
  bool in_conditional_operand : 1;
  bool is_parenthesized : 1;
  union {
    a_host_large_integer integer_value;  // ck_integer
    struct {                             // ck_string
      a_targ_size_t string_length;       // in bytes, the terminating zero included
      const char *string_text;
      std::int32_t string_sequence_number;  // -1: none
      a_string_char_kind string_char_kind;
    };
    struct {  // ck_float, ck_imaginary
      simul_fval float_value;
      std::uint8_t float_class;
    };
    a_complex_value *complex_value;  // ck_complex
    struct {                         // ck_address
      union {
        void *address_target;
        a_routine *address_routine;
        a_variable *address_variable;
        a_constant *address_constant;
        a_type *address_type;
        a_base_class *address_base;
        a_label *address_label;
      };
      std::int64_t address_offset;
      a_subobject_path *subobject_path;
      an_address_kind address_kind;
    };
    struct {  // ck_ptr_to_member
      a_base_class *pm_base_class;
      a_name_reference *pm_name_reference;
      union {
        a_field *pm_field;
        a_routine *pm_routine;
      };
      bool pm_is_null : 1;
      bool pm_is_function : 1;
    };
    struct {  // ck_address_difference
      a_constant *difference_from;
      a_constant *difference_subtract;
    };
    a_dynamic_init *dynamic_init;  // ck_dynamic_init
    struct {                       // ck_aggregate
      a_constant *first_element;
      a_constant *last_element;
      bool has_designators : 1;
      bool has_dynamic_init_component : 1;
      bool is_explicit_braces : 1;
    };
    struct {  // ck_repeat
      a_constant *repeat_element;
      a_targ_size_t repeat_count;
    };
    struct {  // ck_template_param
      union {
        a_template_param_coordinate param_coordinate;
        an_expr_node *param_expr;
        a_type *param_type;
        a_constant *param_constant;
      };
      union {
        an_expr_node *param_operand_expr;
        a_template_arg *param_template_args;
      };
      a_template_param_constant_kind template_kind;
      bool param_operand_is_type : 1;
      bool param_is_pack : 1;
    };
    struct {  // ck_designator
      union {
        a_field *designator_field;
        const char *designator_name;
        a_constant *designator_index;
      };
      a_constant *designator_range_end;  // [a ... b]
      bool designator_is_field : 1;
      bool designator_is_name : 1;
    };
  };
};

// The selector of an enk_dependent_operation node.
enum a_dependent_operation_kind : std::uint8_t {
  dok_none,
  dok_cast,
  dok_call,
  dok_name,
  dok_member_selection,
  dok_destructor_call,
  dok_ptr_to_member,
  dok_literal_operator,
  dok_pack_size,
  dok_type_trait,
  dok_builtin,
  dok_operator
};

struct an_expr_node {
  a_type *type;
  a_type *orig_lvalue_type;  // of an lvalue that was converted; null: none
  an_expr_node *next;        // in a list of operands or arguments
  an_expr_node_kind kind;
  an_expr_operator_kind op;   // enk_operation, enk_template_dependent
  std::uint8_t op_kind_info;  // the a_type_kind of the operands
  bool is_lvalue : 1;
  bool is_xvalue : 1;
  bool result_not_used : 1;
  bool is_parenthesized : 1;
  bool is_implicit : 1;  // the compiler put it in: a cast, a conversion
  bool is_reference_binding : 1;
  bool is_pack_expansion : 1;
  bool is_compiler_generated : 1;
  // Of an operation.
  bool overflow_checked : 1;
  bool is_explicit_cast : 1;
  bool is_subscript_form : 1;        // *(a + i) was written a[i]
  bool array_is_second_operand : 1;  // i[a]
  bool is_virtual_call_suppressed : 1;
  bool is_arrow_form : 1;
  bool call_uses_function_pointer : 1;
  bool is_gnu_conditional : 1;  // a ?: b
  bool is_static_cast : 1;
  bool is_functional_cast : 1;
  bool result_is_field_selection : 1;
  bool never_taken : 1;
  bool is_compound_literal : 1;
  bool lowered : 1;
  a_source_position position;
  a_source_position end_position;
  an_expr_rescan_info_entry *rescan_info;
  union {
    an_expr_node *operands;  // enk_operation, enk_template_dependent, enk_init_list,
                             // enk_unresolved_call; linked through next
    struct {
      union {
        a_constant *constant;  // enk_constant
        a_variable *variable;  // enk_variable
        a_field *field;        // enk_field
        a_routine *routine;    // enk_routine
        a_type *operand_type;  // enk_type_operand, enk_typeid
        void *entity;
      };
      a_name_reference *name_reference;
    };
    struct {                 // enk_temp_init, enk_reusable_value
      a_dynamic_init *init;  // and enk_lambda
      union {
        a_type *init_type;
        a_lambda *lambda;
      };
    };
    a_new_delete_supplement *new_delete;  // enk_new_delete
    a_throw_supplement *throw_info;       // enk_throw
    a_condition_supplement *condition;    // enk_condition
    struct {                              // enk_object_lifetime
      an_expr_node *lifetime_expr;
      an_object_lifetime *lifetime;
    };
    struct {  // enk_typeid
      a_type *typeid_type;
      an_expr_node *typeid_expr;
    };
    struct {  // enk_sizeof, enk_alignof, enk_noexcept
      union {
        a_type *sizeof_type;
        an_expr_node *sizeof_expr;
        a_template *sizeof_template;
      };
      bool sizeof_is_type : 1;
      bool sizeof_is_template_form : 1;
      bool sizeof_is_pack : 1;
      bool sizeof_is_gnu_form : 1;
    };
    a_statement *statement;  // enk_statement_expr: a block
    struct {                 // enk_dependent_operation
      union {
        an_expr_node *dependent_operands;
        a_type *dependent_type;
        void *dependent_entity;
      };
      union {
        an_expr_node *dependent_second;
        a_name_reference *dependent_name;
      };
      a_dependent_operation_kind dependent_kind;
    };
    a_variable *vla_variable;  // enk_vla_dealloc
    struct {                   // enk_param_ref
      std::uint32_t param_index;
      std::uint32_t param_level;
    };
    struct {  // enk_fold
      an_expr_node *fold_operands;
      an_expr_node *fold_init;
      an_expr_operator_kind fold_op;
      bool fold_is_right : 1;
    };
    struct {  // enk_lowered_eh
      a_variable *eh_variable;
      an_expr_node *eh_expr;
      a_lowered_eh_construct_kind eh_construct;
    };
    std::uint64_t variant_words[2];
  };
};

struct a_new_delete_supplement {
  a_type *type;
  a_routine *routine;  // the operator function
  a_routine *delete_routine;
  an_expr_node *placement_args;
  an_expr_node *number_of_elements;
  an_expr_node *operand;  // of delete
  a_dynamic_init *init;
  a_name_reference *name_reference;
  bool is_new : 1;
  bool is_array : 1;
  bool has_global_prefix : 1;
  bool is_placement : 1;
  bool has_init : 1;
  bool delete_takes_size : 1;
  bool deallocates_only : 1;
};
struct a_throw_supplement {
  a_type *type;  // null: rethrow
  a_dynamic_init *init;
  a_routine *destructor;
};
// if (T x = e), and the conditions that need a scope.
struct a_condition_supplement {
  a_variable *variable;
  a_dynamic_init *init;
  an_expr_node *expr;
  a_scope *scope;
};

// A use of a name that overload resolution settled.
struct a_routine_selection {
  a_routine_selection *next;
  a_routine *routine;
  a_source_position position;
};

struct a_dynamic_init {
  a_dynamic_init *next;              // in the list of the scope
  a_dynamic_init *next_destruction;  // in the lifetime's list of destructions
  a_dynamic_init *prev_destruction;
  a_variable *variable;       // that is initialized; null for a temporary
  a_variable *temp_variable;  // lowering: that holds the temporary
  a_routine *destructor;
  an_object_lifetime *object_lifetime;  // in which the object lives
  an_object_lifetime *lifetime;         // of the temporaries of the initializer
  a_type *type;                         // of the object
  union {
    a_constant *constant;  // dik_constant, dik_aggregate, dik_nonconstant_aggr
    an_expr_node *expr;    // dik_expression, dik_call
    struct {               // dik_constructor
      a_routine *constructor;
      an_expr_node *arguments;
    };
  };
  a_constructor_init *ctor_init;
  a_lambda *lambda;
  an_expr_node *array_bound;
  an_eh_info_entry *eh_entry;
  a_source_position position;
  std::uint32_t priority;  // of the initialization; 0: none
  a_dynamic_init_kind kind;
  bool is_temporary : 1;
  bool is_reusable_value : 1;
  bool has_gaps : 1;  // members without an initializer remain
  bool is_static_storage : 1;
  bool destruction_only : 1;
  bool in_routine : 1;
  bool is_lowered : 1;
  bool is_copy_init : 1;
  bool is_direct_init : 1;
  bool is_list_init : 1;
  bool is_value_init : 1;
  bool is_default_init : 1;
  bool is_explicit_temporary : 1;
  bool lifetime_extended : 1;
  bool is_compound_literal : 1;
  bool is_elided_copy : 1;
  bool is_array_new : 1;
  bool is_thrown_object : 1;
  bool is_return_value : 1;
  bool is_partially_constant : 1;
  bool is_conditional : 1;
  bool needs_destruction : 1;
  bool from_default_member_init : 1;
  // dik_constructor
  bool constructor_is_for_array : 1;
  bool constructor_is_implied_copy : 1;
  bool constructor_zero_first : 1;
  bool constructor_is_complete_object : 1;
};

struct an_object_lifetime {
  an_object_lifetime *parent;
  an_object_lifetime *children;
  an_object_lifetime *next_sibling;
  an_object_lifetime *free_link;
  a_dynamic_init *destructions;  // newest first
  void *assoc_entry;
  an_il_entry_kind assoc_kind;
  an_object_lifetime_kind kind;
  bool is_useless : 1;
  bool has_vla : 1;
  bool is_lowered : 1;
};

struct a_constructor_init {
  a_constructor_init *next;
  union {
    a_base_class *base_class;
    a_field *field;
  };
  a_dynamic_init *init;
  a_source_position position;
  a_ctor_init_kind kind;
  bool is_implicit : 1;
  bool is_pack_expansion : 1;
  bool is_from_default_member_init : 1;
};

// What lowering records of a function with exceptions.
struct a_destructible_entity_descr;
struct a_context;
struct an_eh_info_entry {
  an_eh_info_entry *next;
  std::uint32_t id;
  std::uint32_t next_id;
  an_eh_entry_kind kind;
  a_context *context;
  a_destructible_entity_descr *entity;
  std::int64_t value;
  union {
    a_catch_entry *catch_list;
    an_expr_node *cleanup_call;
  };
};
struct a_catch_entry {
  a_catch_entry *next;
  a_variable *typeinfo_variable;  // null: catches everything
  a_label *label;
};
struct a_call_expr_entry {
  a_call_expr_entry *next;
  an_expr_node *expr;
  std::uint32_t eh_id;
};

inline an_expr_node *first_operand(const an_expr_node *node) {
  return node->operands;
}
inline an_expr_node *second_operand(const an_expr_node *node) {
  return node->operands->next;
}
inline an_expr_node *third_operand(const an_expr_node *node) {
  return node->operands->next->next;
}

#endif
