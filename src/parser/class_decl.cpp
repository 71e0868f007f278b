// Struct and union bodies of C: the member declarations one after the other, and the end of the
// definition, where the layout is computed.
//
// Members are names of their class only: they are entered in a class scope, while tags and
// enumerators declared inside the body go to the scope around it. A nameless struct or union member
// gives its own members to the class around it, so that x.a works where a stands two levels down.
#include "parser/class_decl.h"

#include <initializer_list>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_entity.h"
#include "il/il_type.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "parser/decls.h"
#include "parser/depth_guard.h"
#include "parser/disambig.h"
#include "parser/expr.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/layout.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/lexical.h"
#include "target/pragma.h"

namespace {

// One class body while it is read.
struct a_class_scan {
  a_type *type;
  a_field *last_field;
  bool any_named_field;
};

// One member of a declarator list.
struct a_member {
  a_decl_parse_state *state;
  a_symbol_locator locator;  // no header: an unnamed bit-field or anonymous member
  a_source_position position;
  bool is_bit_field;
  a_constant width;
  a_source_position width_position;
};

// ---- Bit-fields --------------------------------------------------------------------------------

// With the option for unsigned bit-fields a type that is signed only because nothing says
// otherwise, as it stands or through a typedef, is the unsigned one.
a_type *type_of_plain_bit_field(a_type *type) {
  const a_type *bottom = skip_typerefs(type);
  bool plain = !bottom->is_enum && !bottom->is_bool && !bottom->explicit_signed &&
               is_signed_integral_type(type);
  if (!targ_plain_int_bit_field_is_unsigned || !plain) return type;
  return make_qualified_type(
      integer_type(static_cast<an_integer_kind>(unsigned_int_kind_of[bottom->int_kind])),
      get_type_qualifiers(type));
}

// The type of a bit-field; reports and gives int where it cannot be one.
a_type *check_bit_field_type(const a_member &member, a_type *type) {
  if (is_error_type(type)) return integer_type(ik_int);
  if (!is_integral_or_enum_type(type)) {
    pos_error(ec_bad_bit_field_type, &member.position);
    return integer_type(ik_int);
  }
  a_type *bottom = skip_typerefs(type);
  bool standard = bottom->int_kind == ik_int || bottom->int_kind == ik_unsigned_int ||
                  (bottom->is_bool && std_version >= 199901);
  if (!in_cplusplus() && strict_ansi_mode && (!standard || bottom->is_enum))
    pos_diagnostic(strict_ansi_error_severity, ec_nonstd_bit_field_type, &member.position);
  return type_of_plain_bit_field(type);
}

unsigned bits_of_type(const a_type *type) {
  const a_type *bottom = skip_typerefs(const_cast<a_type *>(type));
  if (bottom->is_bool) return 1;
  return static_cast<unsigned>(bottom->size) * targ_char_bit;
}

void check_enum_bit_field(const a_member &member, a_type *type, unsigned width) {
  a_type *bottom = skip_typerefs(type);
  if (!bottom->is_enum || width == 0) return;
  for (a_constant *c = bottom->enum_supplement->first_enumerator; c != nullptr;
       c = c->next_in_list) {
    if (c->kind != ck_integer) continue;
    if (bits_required_to_represent_integer_constant(c) > static_cast<int>(width)) {
      pos_warning(ec_enum_bit_field_too_small, &member.position);
      return;
    }
  }
}

// The width in bits; a bad one is reported and replaced by one that fits.
unsigned check_bit_field_width(const a_member &member, a_type *type) {
  unsigned limit = bits_of_type(type);
  if (member.width.kind != ck_integer) return 1;
  if (cmplit_integer_constant(&member.width, 0) < 0 ||
      cmplit_integer_constant(&member.width, limit) > 0) {
    pos_error(ec_bad_bit_field_size, &member.width_position);
    return limit;
  }
  unsigned width = static_cast<unsigned>(member.width.integer_value);
  if (width == 0 && member.locator.header != nullptr) {
    pos_error(ec_zero_length_bit_field_must_be_unnamed, &member.width_position);
    return 1;
  }
  if (width == 1 && is_signed_integral_type(type) && member.locator.header != nullptr &&
      !skip_typerefs(type)->is_bool)
    pos_remark(ec_signed_one_bit_field, &member.position);
  check_enum_bit_field(member, type, width);
  return width;
}

void make_bit_field(const a_member &member, a_field *field) {
  field->type = check_bit_field_type(member, field->type);
  unsigned width = check_bit_field_width(member, field->type);
  field->is_bit_field = true;
  field->bit_size = static_cast<std::uint8_t>(width);
  field->declared_bits = static_cast<std::uint16_t>(bits_of_type(field->type));
  field->is_zero_size_skip = width == 0;
}

// : constant-expression
void scan_bit_field_width(a_member &member) {
  get_token();
  member.is_bit_field = true;
  member.width_position = pos_curr_token;
  clear_constant(&member.width, ck_error);
  scan_integral_constant_expression(&member.width);
}

// ---- Fields ------------------------------------------------------------------------------------

bool is_open_array(a_type *type) {
  return is_array_type(type) && is_incomplete_array_type(type);
}

// The type of an ordinary field; the error type, after a message, where no field can have it.
a_type *check_field_type(a_class_scan &scan, const a_member &member, a_type *type) {
  if (is_error_type(type)) return type;
  if (is_function_type(type)) {
    pos_error(ec_function_type_not_allowed, &member.position);
    return error_type();
  }
  if (is_open_array(type)) {
    // Only the last member may have it; that is seen when another one follows.
    if (scan.type->kind == tk_union && !gnu_mode) {
      pos_ty_error(ec_incomplete_type_not_allowed, &member.position, type);
      return error_type();
    }
    return type;
  }
  if (is_incomplete_type(type) || is_void_type(type)) {
    pos_ty_error(ec_incomplete_type_not_allowed, &member.position, type);
    return error_type();
  }
  return type;
}

// int a[]; int b;   the open array was not the last member after all.
void check_no_open_array_before(a_class_scan &scan) {
  a_field *last = scan.last_field;
  if (last == nullptr || scan.type->kind == tk_union || !is_open_array(last->type)) return;
  pos_ty_error(ec_incomplete_type_not_allowed, &last->decl_position, last->type);
  last->type = error_type();
}

void note_member_marks(a_class_scan &scan, a_type *type) {
  a_class_flags &flags = scan.type->class_flags;
  unsigned qualifiers = get_type_qualifiers(type);
  if ((qualifiers & tq_const) != 0) flags.has_const_member = true;
  if ((qualifiers & tq_volatile) != 0) flags.has_volatile_member = true;
  type = skip_array_types(type);
  if (!is_class_struct_union_type(type)) return;
  const a_class_flags &inner = skip_typerefs(type)->class_flags;
  if (inner.has_const_member) flags.has_const_member = true;
  if (inner.has_volatile_member) flags.has_volatile_member = true;
  if (inner.has_flexible_array_member) flags.has_flexible_array_member = true;
}

void append_field(a_class_scan &scan, a_field *field) {
  if (scan.last_field == nullptr)
    scan.type->fields = field;
  else
    scan.last_field->next = field;
  scan.last_field = field;
}

// Enters the name in the class; a name that is there already is reported and not entered.
void enter_field(a_class_scan &scan, a_member &member, a_field *field) {
  a_symbol_locator copy = member.locator;
  copy.symbol = nullptr;
  if (field_lookup(&copy, scan.type) != nullptr) {
    pos_st_error(ec_id_already_declared, &member.position, member.locator.header->name);
    return;
  }
  member.locator.symbol = nullptr;
  a_symbol *symbol = enter_symbol(syk_field, &member.locator, depth_scope_stack, 0);
  symbol->variant.field = field;
  set_source_corresp_with_scope_depth(field, symbol, depth_scope_stack);
  member.state->symbol = symbol;
  scan.any_named_field = true;
}

void attach_field_attributes(a_decl_parse_state *state, a_field *field) {
  for (an_attribute *list : {state->prefix_attributes, state->specifier_attributes})
    if (list != nullptr)
      attach_attributes(copy_of_attributes_list(list), reinterpret_cast<char *>(field), iek_field);
  if (state->declarator_attributes != nullptr)
    attach_attributes(state->declarator_attributes, reinterpret_cast<char *>(field), iek_field);
  state->declarator_attributes = nullptr;
}

void declare_field(a_class_scan &scan, a_member &member) {
  check_no_open_array_before(scan);
  a_field *field = alloc_field();
  field->type = member.state->declared_type;
  field->decl_position = member.position;
  if (member.is_bit_field) {
    make_bit_field(member, field);
  } else {
    field->type = check_field_type(scan, member, field->type);
  }
  field->has_error_type = is_error_type(field->type);
  if (member.locator.header == nullptr)
    field->is_unnamed_member = true;
  else
    enter_field(scan, member, field);
  append_field(scan, field);
  note_member_marks(scan, field->type);
  attach_field_attributes(member.state, field);
}

// ---- Anonymous members -------------------------------------------------------------------------

bool is_anonymous_member_type(const a_decl_parse_state &state) {
  a_type *type = skip_typerefs(state.type);
  if (type->kind != tk_struct && type->kind != tk_union && type->kind != tk_class) return false;
  return state.tag_defined && type->symbol != nullptr && is_unnamed_tag_symbol(type->symbol);
}

void declare_anonymous_member(a_class_scan &scan, a_decl_parse_state &state) {
  if (!gnu_mode && !allow_c11_anonymous_unions && !allow_nonstandard_anonymous_unions) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_useless_decl,
                   &state.specifiers_pos);
    return;
  }
  a_member member = {};
  member.state = &state;
  member.position = state.specifiers_pos;
  a_type *type = skip_typerefs(state.type);
  type->class_flags.is_anonymous = true;
  declare_field(scan, member);
  scan.last_field->is_anonymous_parent = true;
  check_anonymous_union_symbols(scan.type, scan.last_field);
  scan.any_named_field = true;
}

// ---- Member declarations -----------------------------------------------------------------------

// member-declarator:
//     declarator [: constant-expression] | : constant-expression
void scan_member_declarator(a_class_scan &scan, a_decl_parse_state &state) {
  a_member member = {};
  member.state = &state;
  member.position = pos_curr_token;
  member.locator = cleared_locator;
  if (curr_token != tok_colon) {
    declarator(dcl_name_ok | dcl_is_class_member, &state, nullptr, &member.locator, nullptr,
               nullptr);
    member.position = state.declarator_pos;
  }
  if (curr_token == tok_colon) scan_bit_field_width(member);
  if (curr_token == tok_attribute || curr_token == tok_declspec) {
    an_attribute *list = scan_attributes(al_declarator);
    *f_last_attribute_link(&state.declarator_attributes) = list;
  }
  if (member.locator.header == nullptr && !member.is_bit_field) state.declared_type = error_type();
  declare_field(scan, member);
  run_end_of_parse_actions(&state, true);
  if (curr_token == tok_assign && in_cplusplus()) {
    pos_st_error(ec_not_supported, &pos_curr_token, "an initializer of a member is");
    a_stop_token_count stops[tok_last] = {};
    stops[tok_comma] = stops[tok_semicolon] = stops[tok_rbrace] = 1;
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
  }
}

void scan_member_declarators(a_class_scan &scan, a_decl_parse_state &state) {
  if (!state.type_specified && !state.has_error)
    report_missing_type_specifier(&state.specifiers_pos, state.type, false, false, false, false);
  add_stop_token(tok_comma);
  for (;;) {
    scan_member_declarator(scan, state);
    if (!loop_token(tok_comma)) break;
    start_secondary_declarator(&state);
  }
  remove_stop_token(tok_comma);
}

// member-declaration:
//     specifier-qualifier-list [member-declarator-list] ;
//     static_assert-declaration
void scan_member_declaration(a_class_scan &scan) {
  if (curr_token_pragmas != nullptr) process_curr_token_pragmas();
  while (curr_token == tok_extension)
    get_token();
  if (curr_token == tok_static_assert) {
    static_assert_declaration();
    return;
  }
  if (curr_token == tok_semicolon) {
    if (strict_ansi_mode)
      pos_diagnostic(strict_ansi_discretionary_severity, ec_extra_semicolon, &pos_curr_token);
    get_token();
    return;
  }
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  add_stop_token(tok_semicolon);
  decl_specifiers(dsf_member | dsf_type_ok | dsf_type_required | dsf_definition_first, &state,
                  nullptr);
  if (curr_token != tok_semicolon) {
    scan_member_declarators(scan, state);
  } else if (is_anonymous_member_type(state)) {
    declare_anonymous_member(scan, state);
  } else if (!state.tag_declared && !state.has_error) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_useless_decl,
                   &state.specifiers_pos);
    scan.any_named_field = true;  // one message is enough
  }
  discard_end_of_parse_actions(&state);
  remove_stop_token(tok_semicolon);
  // struct s { int a }   many compilers let the last ";" be absent
  if (curr_token == tok_rbrace)
    pos_diagnostic(gcc_mode ? es_warning : es_error, ec_exp_semicolon, &pos_curr_token);
  else
    required_token(tok_semicolon, ec_exp_semicolon);
}

// Something that begins no member: one message, and on to the next ";" or "}".
void recover_in_class_body(a_class_scan &) {
  error_position = pos_curr_token;
  std::uint32_t before = curr_token_sequence_number;
  add_stop_token(tok_semicolon);
  syntax_error(ec_exp_declaration);
  remove_stop_token(tok_semicolon);
  if (curr_token == tok_semicolon || (curr_token_sequence_number == before &&
                                      curr_token != tok_rbrace && curr_token != tok_end_of_source))
    get_token();
}

void scan_member_list(a_class_scan &scan) {
  while (curr_token != tok_rbrace && curr_token != tok_end_of_source) {
    bool is_member = is_decl_start(0) || curr_token == tok_semicolon ||
                     curr_token == tok_identifier || curr_token == tok_colon;
    if (is_member)
      scan_member_declaration(scan);
    else
      recover_in_class_body(scan);
  }
}

// Makes a field of an anonymous member findable in the class around it.
void enter_outer_name(a_type *class_type, a_field *field) {
  a_symbol_locator locator = cleared_locator;
  locator.header = field->symbol->header;
  locator.position = field->decl_position;
  if (field_lookup(&locator, class_type) != nullptr) {
    pos_st_error(ec_id_already_declared, &locator.position, locator.header->name);
    return;
  }
  locator.symbol = nullptr;
  a_symbol *symbol = enter_symbol(syk_field, &locator, depth_scope_stack, 0);
  symbol->variant.field = field;
}

}  // namespace

void check_anonymous_union_symbols(a_type *class_type, a_field *anonymous_field) {
  a_type *inner = skip_typerefs(anonymous_field->type);
  if (!is_class_struct_union_type(inner)) return;
  for (a_field *field = inner->fields; field != nullptr; field = field->next) {
    if (field->anonymous_union_field == nullptr) field->anonymous_union_field = anonymous_field;
    if (field->is_anonymous_parent)
      check_anonymous_union_symbols(class_type, field);
    else if (field->symbol != nullptr)
      enter_outer_name(class_type, field);
  }
}

void finish_class_definition(a_type *class_type, bool) {
  a_field *last = nullptr;
  for (a_field *field = class_type->fields; field != nullptr; field = field->next)
    last = field;
  if (last != nullptr && !last->has_error_type && is_open_array(last->type)) {
    if (!flexible_array_members_allowed && !gnu_mode) {
      pos_ty_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning,
                        ec_incomplete_type_not_allowed, &last->decl_position, last->type);
    } else if (strict_ansi_mode && std_version < 199901) {
      pos_diagnostic(strict_ansi_discretionary_severity, ec_flexible_array_is_nonstandard,
                     &last->decl_position);
    }
    // C11 6.7.2.1p18: something with a name stands in front of it; a union has no end.
    bool is_alone = last == class_type->fields || class_type->kind == tk_union;
    if (is_alone && !in_cplusplus())
      pos_error(ec_flexible_array_member_not_allowed, &last->decl_position);
    class_type->class_flags.has_flexible_array_member = true;
    last->is_flexible_array = true;
  }
  class_type->is_incomplete = false;
  class_type->class_flags.is_being_defined = false;
  class_type->class_flags.has_definition = true;
  class_type->class_supplement->pragma_pack_alignment = current_max_alignment_for_class_members();
  do_class_layout(class_type);
}

// struct a { struct b { struct c { ...   The members of anonymous ones are entered at each level.
static constexpr int max_class_depth = 2000;
static int class_depth;

void scan_class_definition(a_type *class_type, a_decl_parse_state *state, std::uint32_t) {
  a_depth_guard guard(class_depth, max_class_depth);
  a_source_position start = pos_curr_token;
  class_type->class_flags.is_being_defined = true;
  class_type->class_supplement->definition_position = start;
  if (in_cplusplus()) pos_st_error(ec_not_supported, &start, "a C++ class body is");
  push_scope(sck_class, new_scope_number, class_type, nullptr);
  a_class_scan scan = {};
  scan.type = class_type;
  get_token();
  add_stop_token(tok_rbrace);
  scan_member_list(scan);
  remove_stop_token(tok_rbrace);
  if (!scan.any_named_field && !gcc_mode && !in_cplusplus())
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_no_named_fields,
                   &start);
  required_token(tok_rbrace, ec_exp_rbrace);
  if (curr_token == tok_attribute)
    attach_tag_attributes(scan_attributes(al_tag_end), class_type, state, true);
  finish_class_definition(class_type, false);
  pop_scope();
}

void process_deferred_class_fixups_and_instantiations(bool) {}

a_lambda *scan_lambda() {
  pos_st_error(ec_not_supported, &pos_curr_token, "a lambda is");
  return nullptr;
}

void class_decl_one_time_init() {}
void class_decl_trans_unit_init() {
  class_depth = 0;
}
