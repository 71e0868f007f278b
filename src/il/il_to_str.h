// Text of types, names, constants and template arguments: for messages, for __PRETTY_FUNCTION__,
// for dumps. No buffer is kept here: every piece of text goes to the block's output_text.
#ifndef IL_IL_TO_STR_H
#define IL_IL_TO_STR_H

#include "il/il_entity.h"
#include "il/il_expr.h"
#include "il/il_template.h"

struct an_il_to_str_output_control_block {
  void (*output_text)(const char *text, an_il_to_str_output_control_block *block);  // required
  // When set, takes numbers and escapes of characters.
  void (*output_literal_text)(const char *text, an_il_to_str_output_control_block *block);
  void (*form_name_override)(const a_source_correspondence *entity, an_il_entry_kind kind,
                             an_il_to_str_output_control_block *block);
  void (*form_class_qualifier_override)(a_type *type, an_il_to_str_output_control_block *block);
  void (*form_namespace_qualifier_override)(a_namespace *name_space,
                                            an_il_to_str_output_control_block *block);
  void (*form_function_declarator_override)(a_type *type, an_il_to_str_output_control_block *block);
  void (*form_expr)(an_expr_node *expr, an_il_to_str_output_control_block *block);
  void (*form_attributes)(an_attribute *attributes, an_il_entry_kind kind, int place);
  bool (*skip_typedef)(a_type *type, an_il_to_str_output_control_block *block);
  bool c_source_output;  // valid source is wanted
  bool suppress_qualifiers_and_suffixes;
  bool no_typedef_names;
  bool no_local_typedef_names;
  bool no_decltype_forms;
  bool keep_tabs;
  bool expand_member_typedefs;
  bool no_cast_on_small_ints;
  bool in_operator_name;
  bool no_template_args;
  bool omit_defaulted_params;
  bool in_template_arg;
  bool no_integer_suffix;
  void *data;  // for the callbacks
};
void clear_il_to_str_output_control_block(an_il_to_str_output_control_block *block);

void form_type(a_type *type, an_il_to_str_output_control_block *block);
// The parts in front of and behind the place of a name. parenthesize: an array or function opens a
// parenthesis; separator_needed: a blank must follow when a name comes next.
void form_type_first_part(a_type *type, bool parenthesize, bool separator_needed,
                          a_type_qualifier_set extra_qualifiers, int flags,
                          an_il_to_str_output_control_block *block);
void form_type_second_part(a_type *type, bool parenthesize, bool after_name,
                           an_il_to_str_output_control_block *block);
void form_function_declarator(a_type *type, an_il_to_str_output_control_block *block);
void form_type_qualifier(a_type_qualifier_set qualifiers, bool unused, bool trailing_blank,
                         an_il_to_str_output_control_block *block);
void form_name(const a_source_correspondence *entity, an_il_entry_kind kind,
               an_il_to_str_output_control_block *block);
void form_unqualified_name(const a_source_correspondence *entity, an_il_entry_kind kind,
                           an_il_to_str_output_control_block *block);
void form_class_or_namespace_qualifier(bool is_class, void *parent,
                                       an_il_to_str_output_control_block *block);
void form_template_args(a_template_arg *args, an_il_to_str_output_control_block *block);
void form_a_template_arg(a_template_arg *arg, an_il_to_str_output_control_block *block);

void form_constant(const a_constant *constant, bool needs_parens,
                   an_il_to_str_output_control_block *block);
void form_integer_constant(const a_constant *constant, bool no_cast, bool needs_parens,
                           an_il_to_str_output_control_block *block);
void form_char(unsigned long ch, an_il_to_str_output_control_block *block);
void form_pm_constant(const a_constant *constant, an_il_to_str_output_control_block *block);
void form_lvalue_address_constant(const a_constant *constant,
                                  an_il_to_str_output_control_block *block);
void form_typeid_reference(a_type *type, an_il_to_str_output_control_block *block);
void form_uuidof_reference(a_type *type, an_il_to_str_output_control_block *block);
void form_unknown_function_constant(const a_constant *constant,
                                    an_il_to_str_output_control_block *block);

const char *int_kind_name_full(an_integer_kind kind, bool signed_mark);
const char *int_type_name(const a_type *type);
an_expr_node *decltype_arg(a_type *type);  // null: not at hand

void il_to_str_one_time_init();
void il_to_str_init();

#endif
