// Templates, template parameters and arguments, lambdas and attributes. All lie in the file-scope
// region.
#ifndef IL_IL_TEMPLATE_H
#define IL_IL_TEMPLATE_H

#include <cstdint>

#include "il/il_source_corresp.h"
#include "il/il_type.h"

struct a_template_decl_info;  // parser/templates.h

enum a_template_kind : std::uint8_t {
  templk_none,
  templk_class,
  templk_function,
  templk_variable,
  templk_alias,
  templk_member_class,
  templk_member_function,
  templk_static_data_member,
  templk_template_template_param
};

struct a_template : a_source_correspondence {
  a_template *next;
  a_template_kind kind;
  bool is_exported : 1;
  bool definition_seen : 1;
  bool is_variadic : 1;
  a_source_position export_position;
  a_template_decl *declaration;
  a_template *canonical_template;
  a_template *prototype_template;
  const char *text;  // of the definition
  union {
    a_type *type;
    a_routine *routine;
    a_variable *variable;
    void *entry;
  } prototype_instantiation;
};
struct a_template_decl {
  a_template_decl *next;  // the enclosing clause
  a_template_decl_info *decl_info;
  a_template_param *params;
  a_template *il_template;
  a_source_position position;
};

// The tokens of a parameter's declaration or default.
struct a_template_cache_info;
struct a_template_param : a_source_correspondence {
  a_template_param *next;
  a_token_cache *token_cache;
  a_template_cache_info *default_cache;
  union {
    a_type *type;             // a type parameter
    a_constant *constant;     // a nontype parameter
    a_template *il_template;  // a template template parameter
    void *entry;
  } payload;
  union {
    a_type *type;
    a_constant *constant;
    a_template *il_template;
    void *entry;
  } default_value;  // null: none, or not read at once
  a_template_arg_kind kind;
  bool default_usable : 1;
  bool default_is_dependent : 1;
  bool default_not_scanned : 1;
  bool is_pack : 1;
  bool has_default : 1;
  bool needs_rescan : 1;  // the type depends on earlier parameters
};

struct a_template_arg {
  a_template_arg *next;
  union {
    a_type *type;
    a_constant *constant;
    a_template *il_template;
    an_operand *operand;  // is_operand: not yet a constant
    void *entry;
  } payload;
  a_template_arg_kind kind;
  bool is_operand : 1;
  bool from_default : 1;
  bool template_arg_checked : 1;
  bool is_pack_element : 1;
  bool pack_expansion : 1;
  a_source_position position;
};

enum a_capture_default : std::uint8_t { cd_none, cd_by_copy, cd_by_reference };
struct a_lambda {
  a_type *closure_type;
  a_lambda_capture *capture_list;
  a_routine *body_routine;
  a_capture_default capture_default;
  bool captures_this : 1;
  bool is_generic : 1;
  bool is_mutable : 1;
  bool has_parameter_list : 1;
  bool is_in_default_arg : 1;
  std::uint32_t discriminator;
  a_source_position bracket_position;
  a_source_position header_position;
};
struct a_lambda_capture {
  a_lambda_capture *next;
  a_symbol *variable_symbol;
  a_variable *variable;
  a_field *field;  // of the closure
  a_dynamic_init *init;
  a_source_position position;
  bool is_this : 1;
  bool is_init_capture : 1;
  bool is_pack : 1;
  bool by_reference : 1;
  bool is_implicit : 1;
};

struct an_attribute {
  an_attribute *next;
  std::uint8_t kind;  // row of the attribute table; 0: ignored or erroneous
  an_attribute_syntax syntax;
  an_attribute_location_tag location;
  bool on_definition : 1;
  bool is_type_attribute : 1;
  bool is_pack_expansion : 1;
  bool gnu_namespace : 1;  // [[gnu::x]]
  bool namespace_from_using : 1;
  bool namespace_unknown : 1;
  const char *name;            // without surrounding __
  const char *namespace_name;  // the part in front of ::
  an_attribute_arg *args;
  an_attribute_group *group;
  a_decl_parse_state *parse_state;  // while it is attached to a type
  a_source_position position;
  a_source_position end_position;
  void *pack_expansion;
};
struct an_attribute_arg {
  an_attribute_arg *next;
  an_attribute_arg_kind kind;
  bool is_pack_expansion;
  a_source_position position;
  a_source_position end_position;
  void *pack_expansion;
  union {
    const char *identifier;  // raw tokens too
    a_constant *constant;
    a_type *type;
    an_expr_node *expr;
  };
};
struct an_attribute_group {
  a_source_position start_position;
  a_source_position end_position;
};

#endif
