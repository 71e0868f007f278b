// The enumerations of the intermediate language: what kinds of entries, types, constants,
// expression nodes, operators, statements, initializations and scopes there are, with their names
// and the tables that go with them. The rows stand in il_kinds.def and il_operators.def.
#ifndef IL_IL_KINDS_H
#define IL_IL_KINDS_H

#include <cstdint>

enum an_il_entry_kind : std::uint8_t {
  iek_none,
#define IL_ENTRY_KIND(number, name, record) iek_##name = number,
#include "il/il_kinds.def"
  iek_last
};
static_assert(iek_last == 79);

enum a_type_kind : std::uint8_t {
#define TYPE_KIND(number, name) tk_##name = number,
#include "il/il_kinds.def"
  tk_last
};

enum a_constant_kind : std::uint8_t {
#define CONSTANT_KIND(number, name) ck_##name = number,
#include "il/il_kinds.def"
  ck_last
};

// What an address constant points to (ck_address).
enum an_address_kind : std::uint8_t {
#define ADDRESS_KIND(number, name) abk_##name = number,
#include "il/il_kinds.def"
  abk_last
};

// The forms of a template-dependent constant (ck_template_param).
enum a_template_param_constant_kind : std::uint8_t {
#define TEMPLATE_PARAM_CONSTANT_KIND(number, name) tpck_##name = number,
#include "il/il_kinds.def"
  tpck_last
};

enum an_expr_node_kind : std::uint8_t {
#define EXPR_NODE_KIND(number, name) enk_##name = number,
#include "il/il_kinds.def"
  enk_last
};

enum an_expr_operator_kind : std::uint8_t {
#define EXPR_OPERATOR(number, name, flags, spelling) eok_##name = number,
#include "il/il_operators.def"
  eok_last
};
static_assert(eok_last == 118);

enum a_statement_kind : std::uint8_t {
#define STATEMENT_KIND(number, name) stmk_##name = number,
#include "il/il_kinds.def"
  stmk_last
};

enum a_dynamic_init_kind : std::uint8_t {
#define DYNAMIC_INIT_KIND(number, name) dik_##name = number,
#include "il/il_kinds.def"
  dik_last
};

enum a_scope_kind : std::uint8_t {
#define SCOPE_KIND(number, name) sck_##name = number,
#include "il/il_kinds.def"
  sck_last
};

enum a_storage_class : std::uint8_t {
#define STORAGE_CLASS(number, name) sc_##name = number,
#include "il/il_kinds.def"
  sc_last
};

enum an_integer_kind : std::uint8_t {
#define INTEGER_KIND(number, name, is_signed, unsigned_form, spelling) ik_##name = number,
#include "il/il_kinds.def"
  ik_last  // one past the last kind
};

enum a_float_kind : std::uint8_t {
#define FLOAT_KIND(number, name, spelling) fk_##name = number,
#include "il/il_kinds.def"
  fk_last  // one past the last kind
};

// What form the operands of an operator have.
enum an_operator_flag : std::uint8_t {
  opf_op1_is_rvalue = 1,
  opf_op1_is_lvalue = 2,
  opf_op1_is_class_or_array = 4,
  opf_op2_is_rvalue = 8,
  opf_op2_is_lvalue = 16,
  opf_by_rule_of_operation = 32,
  opf_has_op3 = 64
};

// How a variable gets its first value.
enum an_init_kind : std::uint8_t {
  init_none = 0,
  init_constant = 1,
  init_dynamic = 2,
  init_zero = 3,
  init_local_static = 4
};

// How a based type is made from the type whose list it stands on.
enum a_based_type_relation : std::uint8_t {
  btr_none,
  btr_qualified,
  btr_rvalue_reference,
  btr_reference,
  btr_ptr_to_member,
  btr_array_of_qualified_typedef,
  btr_pointer
};

enum a_special_function_kind : std::uint8_t {
  sfk_none,
  sfk_constructor,
  sfk_destructor,
  sfk_lambda_static_invoker,
  sfk_lambda_conversion,
  sfk_operator,
  sfk_conversion
};

// The entry of a constructor or destructor that a routine is.
enum a_ctor_dtor_variant : std::uint8_t {
  cdv_none,
  cdv_complete,
  cdv_base_subobject,
  cdv_deleting,
  cdv_selecting
};

enum a_name_linkage_kind : std::uint8_t {
  nlk_none,
  nlk_internal,
  nlk_external_c,
  nlk_external_cpp
};

enum a_string_char_kind : std::uint8_t { chk_char, chk_wchar_t, chk_char16_t, chk_char32_t };
inline constexpr int num_string_char_kinds = 4;

enum an_access_specifier : std::uint8_t { as_public, as_protected, as_private, as_inaccessible };

enum a_template_arg_kind : std::uint8_t { tak_type, tak_nontype, tak_template, tak_error };

enum a_ctor_init_kind : std::uint8_t {
  cik_virtual_base_class,
  cik_direct_base_class,
  cik_field,
  cik_delegation
};

enum a_ref_qualifier : std::uint8_t { rq_none, rq_lvalue, rq_rvalue };

// What an object lifetime is the lifetime of.
enum an_object_lifetime_kind : std::uint8_t {
  olk_none,
  olk_file_scope,
  olk_function,
  olk_end_of_lifetime,  // a marker, not a lifetime
  olk_block,
  olk_try_block,
  olk_expression,
  olk_loop_iteration,
  olk_condition
};

// The selector of an enk_lowered_eh node.
enum a_lowered_eh_construct_kind : std::uint8_t {
  lehk_caught_object_address = 0,
  lehk_function_prologue = 4,
  lehk_end_of_return = 5
};

enum an_eh_entry_kind : std::uint8_t {
  ehk_handler,
  ehk_cleanup,
  ehk_try,
  ehk_marker,
  ehk_end_of_catch,
  ehk_terminate
};

// A declaration's section, and who asked for it.
enum a_section_origin : std::uint8_t { sec_none, sec_attribute_or_pragma, sec_pragma_block };

// The state of a floating-point pragma.
enum a_stdc_pragma_state : std::uint8_t {
  stdc_none,
  stdc_off,
  stdc_on,
  stdc_unset  // nothing was said
};

// How an attribute was written, and where.
enum an_attribute_syntax : std::uint8_t { asx_none, asx_std, asx_gnu, asx_declspec, asx_alignas };
enum an_attribute_location_tag : std::uint8_t {
  al_none = 0,
  al_decl_start = 1,
  al_tag_keyword = 2,
  al_tag_end = 3,
  al_specifier = 5,
  al_pointer = 6,
  al_function_declarator = 9,
  al_declarator = 10,
  al_parenthesized_declarator = 11,
  al_enumerator = 19,
  al_array_bound_end = 20
};
enum an_attribute_arg_kind : std::uint8_t {
  aak_raw_tokens = 0,
  aak_identifier = 2,
  aak_constant = 3,
  aak_type = 4,
  aak_expression = 5
};

// For the local references of file-scope entries: what the expression is of its owner.
enum a_local_expr_ref_role : std::uint8_t {
  ler_none = 0,
  ler_type_array_bound = 1,
  ler_constant_template_operand = 2,
  ler_constant_template_expr = 3,
  ler_type_vla_dimension = 4,
  ler_type_decltype = 5,
  ler_type_underlying = 6,
  ler_field_default_init = 7
};

extern const char *const il_entry_kind_names[iek_last];
extern const char *const type_kind_names[tk_last];
extern const char *const constant_kind_names[ck_last];
extern const char *const expr_node_kind_names[enk_last];
extern const char *const expr_operator_names[eok_last];      // as in the sources, without eok_
extern const char *const expr_operator_spellings[eok_last];  // null: none
extern const std::uint8_t operator_flags[eok_last];          // an_operator_flag bits
extern const char *const statement_kind_names[stmk_last];
extern const char *const dynamic_init_kind_names[dik_last];
extern const char *const scope_kind_names[sck_last];
extern const char *const storage_class_names[sc_last];  // "" for none
extern const char *const name_linkage_kind_names[4];    // "", "internal", "\"C\"", ...

inline constexpr std::uint8_t int_kind_sentinel = 111;
extern std::uint8_t int_kind_is_signed[ik_last + 1];  // ik_char is settled by the target
extern const std::uint8_t unsigned_int_kind_of[ik_last + 1];
const char *int_kind_name(an_integer_kind kind);
const char *float_kind_name(a_float_kind kind);

inline bool operator_takes_lvalue_op1(an_expr_operator_kind op) {
  return (operator_flags[op] & opf_op1_is_lvalue) != 0;
}
inline bool operator_takes_lvalue_op2(an_expr_operator_kind op) {
  return (operator_flags[op] & opf_op2_is_lvalue) != 0;
}
inline bool is_compound_assignment_operator(an_expr_operator_kind op) {
  return op >= eok_add_assign && op <= eok_ptr_subtract_assign;
}
inline bool is_operator_returning_bool(an_expr_operator_kind op) {
  return op == eok_bool_cast || op == eok_not || (op >= eok_eq && op <= eok_le) || op == eok_land ||
         op == eok_lor;
}

#endif
