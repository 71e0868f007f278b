// Enum specifiers and their enumerators.
//
// The values are scanned one by one; the type of the enum is chosen when the list is complete, from
// the smallest and the largest value. While the list is scanned an enumerator has the type of its
// value: int, or the enum itself in C++.
#include <initializer_list>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec_internal.h"
#include "parser/declarator.h"
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

namespace {

// One enumerator list while it is scanned.
struct an_enum_scan {
  a_type *type;
  int depth;         // where the enumerators are declared
  bool any_value;    // at least one good value was seen
  a_constant value;  // of the enumerator just scanned
  a_constant minimum;
  a_constant maximum;
};

an_integer_kind kind_of_value(const a_constant &value) {
  return static_cast<an_integer_kind>(skip_typerefs(value.type)->int_kind);
}

void set_int_value(a_constant &value, an_integer_kind kind, std::int64_t number) {
  clear_constant(&value, ck_integer);
  value.type = integer_type(kind);
  value.integer_value = static_cast<a_host_large_integer>(number);
}

void note_range(an_enum_scan &scan) {
  if (scan.value.kind != ck_integer) return;
  if (!scan.any_value) {
    scan.minimum = scan.value;
    scan.maximum = scan.value;
    scan.any_value = true;
    return;
  }
  if (cmp_integer_constants(&scan.value, &scan.minimum) < 0) scan.minimum = scan.value;
  if (cmp_integer_constants(&scan.value, &scan.maximum) > 0) scan.maximum = scan.value;
}

// A written value: with int-sized enums it must fit int, or at least its bits must.
void check_explicit_value(an_enum_scan &scan, const a_source_position *position) {
  if (scan.value.kind != ck_integer) {
    set_error_constant(&scan.value);
    return;
  }
  a_constant &value = scan.value;
  if (in_range_for_integer_kind(&value, nullptr, ik_int)) {
    set_int_value(value, ik_int, static_cast<std::int64_t>(value.integer_value));
    return;
  }
  if (enum_types_can_be_larger_than_int) return;
  bool fits_bits = skip_typerefs(value.type)->size <= static_cast<a_targ_size_t>(targ_sizeof_int);
  if (strict_ansi_mode && strict_ansi_error_severity >= es_error) {
    pos_error(ec_enum_value_out_of_int_range, position);
  } else if (!fits_bits) {
    pos_error(ec_enum_value_out_of_int_range, position);
  } else if (strict_ansi_mode) {
    pos_warning(ec_enum_value_out_of_int_range, position);
  }
  a_host_large_integer bits = value.integer_value;
  truncate_integer_value(&bits, targ_sizeof_int * targ_char_bit, true);
  set_int_value(value, ik_int, static_cast<std::int64_t>(bits));
}

// The value behind the previous one; at the end of a kind the next larger one takes over.
void increment_value(an_enum_scan &scan, const a_source_position *position) {
  a_constant &value = scan.value;
  if (value.kind != ck_integer) return;
  an_integer_kind kind = kind_of_value(value);
  if (is_max_value_for_integer_kind(&value, kind)) {
    an_integer_kind widest = static_cast<an_integer_kind>(enum_default_int_kind);
    if (is_max_value_for_integer_kind(&value, widest) || kind == ik_unsigned_long_long ||
        !enum_types_can_be_larger_than_int) {
      pos_error(ec_enum_value_out_of_int_range, position);
      return;
    }
    kind = widest;
  }
  a_host_large_integer next = value.integer_value + 1;
  set_int_value(value, kind, static_cast<std::int64_t>(next));
}

void enter_enumerator(an_enum_scan &scan, a_symbol_locator *locator, an_attribute *attributes) {
  locator->symbol = nullptr;
  a_symbol *previous = scope_depth_id_lookup(locator, scan.depth, 0);
  if (previous != nullptr) {
    // enum { a = b, b };   the message about the use of b is enough
    if (!previous->is_error_symbol)
      pos_st_error(ec_id_already_declared, &locator->position, locator->header->name);
    return;
  }
  a_constant *constant = fs_constant(ck_integer);
  a_source_correspondence head = *constant;
  *constant = scan.value;
  static_cast<a_source_correspondence &>(*constant) = head;
  constant->next_in_list = nullptr;
  constant->is_enumerator = true;
  a_symbol *symbol = enter_symbol(syk_constant, locator, scan.depth, 0);
  symbol->variant.constant = constant;
  set_source_corresp_with_scope_depth(constant, symbol, scan.depth);
  an_enum_supplement *supplement = scan.type->enum_supplement;
  if (supplement->last_enumerator == nullptr)
    supplement->first_enumerator = constant;
  else
    supplement->last_enumerator->next_in_list = constant;
  supplement->last_enumerator = constant;
  if (attributes != nullptr)
    attach_attributes(attributes, reinterpret_cast<char *>(constant), iek_constant);
}

// enumerator:
//     identifier [attributes] [= constant-expression]
void scan_enumerator(an_enum_scan &scan, bool is_first) {
  a_symbol_locator locator = locator_for_curr_id;
  a_source_position position = pos_curr_token;
  an_attribute *attributes = nullptr;
  get_token();
  if (curr_token == tok_attribute) attributes = scan_attributes(al_enumerator);
  if (curr_token == tok_assign) {
    get_token();
    a_source_position value_position = pos_curr_token;
    clear_constant(&scan.value, ck_error);
    scan_integral_constant_expression(&scan.value);
    check_explicit_value(scan, &value_position);
  } else if (is_first) {
    set_int_value(scan.value, ik_int, 0);
  } else {
    increment_value(scan, &position);
  }
  note_range(scan);
  enter_enumerator(scan, &locator, attributes);
}

// enum e { a, b, }   the comma before the brace came with C99.
void report_trailing_comma(const a_source_position *position) {
  if (in_pcc_mode() || (!in_cplusplus() && std_version > 199900)) return;
  if (in_cplusplus() && std_version > 201102) return;
  pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_remark,
                 ec_nonstd_extra_comma, position);
}

void scan_enumerator_list(an_enum_scan &scan) {
  get_token();
  add_stop_token(tok_rbrace);
  add_stop_token(tok_comma);
  bool is_first = true;
  for (;;) {
    if (curr_token != tok_identifier) {
      error_position = pos_curr_token;
      syntax_error(ec_exp_identifier);
      if (curr_token != tok_comma) break;
    } else {
      scan_enumerator(scan, is_first);
      is_first = false;
    }
    a_source_position comma = pos_curr_token;
    if (!loop_token(tok_comma)) break;
    if (curr_token == tok_rbrace) {
      report_trailing_comma(&comma);
      break;
    }
  }
  remove_stop_token(tok_comma);
  remove_stop_token(tok_rbrace);
  required_token(tok_rbrace, ec_exp_rbrace);
}

bool both_fit(const an_enum_scan &scan, an_integer_kind kind) {
  return !scan.any_value || in_range_for_integer_kind(&scan.minimum, &scan.maximum, kind);
}

an_integer_kind smallest_kind(const an_enum_scan &scan) {
  for (an_integer_kind kind : {ik_signed_char, ik_unsigned_char, ik_short, ik_unsigned_short})
    if (both_fit(scan, kind)) return kind;
  return ik_int;
}

an_integer_kind kind_at_least_int(const an_enum_scan &scan, const a_source_position *position) {
  for (an_integer_kind kind :
       {ik_int, ik_unsigned_int, ik_long, ik_unsigned_long, ik_long_long, ik_unsigned_long_long}) {
    if (kind >= ik_long_long && strict_ansi_mode && !long_long_is_standard) break;
    if (both_fit(scan, kind)) return kind;
  }
  pos_diagnostic(strict_ansi_mode ? es_error : es_warning, ec_insufficient_enum_range, position);
  return static_cast<an_integer_kind>(enum_default_int_kind);
}

an_integer_kind unsigned_twin(an_integer_kind kind) {
  switch (kind) {
    case ik_signed_char:
    case ik_char:
      return ik_unsigned_char;
    case ik_short:
      return ik_unsigned_short;
    case ik_int:
      return ik_unsigned_int;
    case ik_long:
      return ik_unsigned_long;
    case ik_long_long:
      return ik_unsigned_long_long;
    default:
      return kind;
  }
}

// Chooses the integer kind of the enum; the enumerators of GNU C take the plain type of the kind.
void choose_enum_type(an_enum_scan &scan, const a_source_position *position) {
  a_type *type = scan.type;
  an_integer_kind kind = ik_int;
  if (type->is_small_enum || enum_types_can_be_smaller_than_int) kind = smallest_kind(scan);
  if (kind == ik_int && enum_types_can_be_larger_than_int) kind = kind_at_least_int(scan, position);
  if (gcc_mode) {
    a_type *plain = integer_type(kind < ik_int ? ik_int : kind);
    for (a_constant *c = type->enum_supplement->first_enumerator; c != nullptr;
         c = c->next_in_list) {
      if (c->kind == ck_integer) c->type = plain;
    }
    an_integer_kind twin = unsigned_twin(kind);
    if (twin != kind && both_fit(scan, twin)) kind = twin;
  }
  type->int_kind = kind;
}

void finish_enum_type(an_enum_scan &scan, const a_source_position *position) {
  choose_enum_type(scan, position);
  a_type *type = scan.type;
  type->size = 0;
  type->is_incomplete = false;
  type->enum_supplement->definition_seen = true;
  set_type_size(type);
}

void scan_enum_body(a_type *type, a_tag_scan &tag, an_attribute *head_attributes,
                    a_decl_parse_state *state) {
  an_enum_scan scan = {};
  scan.type = type;
  scan.depth = depth_for_new_tag(tag);
  attach_tag_attributes(head_attributes, type, state, true);
  state->tag_defined = true;
  scan_enumerator_list(scan);
  if (curr_token == tok_attribute)
    attach_tag_attributes(scan_attributes(al_tag_end), type, state, true);
  finish_enum_type(scan, &tag.keyword_pos);
}

a_type *make_enum_type(a_tag_scan &tag) {
  a_type *type = alloc_type(tk_integer);
  type->int_kind = ik_int;
  type->is_enum = true;
  type->is_incomplete = true;
  set_type_size(type);
  enter_tag(tag, type);
  return type;
}

// enum e ...   with e found: what it names must be an enum, and a body must be its first.
a_type *type_of_found_enum(a_tag_scan &tag, a_symbol *symbol) {
  if (symbol->kind != syk_enum) {
    pos_stsy_error(ec_tag_kind_incompatible_with_declaration, &tag.locator->position, "enum",
                   symbol);
    return nullptr;
  }
  a_type *type = type_of_symbol(symbol);
  if (tag.is_definition && !type->is_incomplete) {
    pos_sy_error(ec_already_defined, &tag.locator->position, symbol);
    return nullptr;
  }
  return type;
}

a_type *type_for_enum_head(a_tag_scan &tag, a_decl_parse_state *state) {
  a_symbol *symbol = find_tag(tag);
  if (symbol != nullptr) {
    a_type *type = type_of_found_enum(tag, symbol);
    if (type != nullptr) {
      record_symbol_reference(ref_other, symbol, &tag.locator->position, true);
      return type;
    }
    state->has_error = true;
    if (!tag.is_definition) return error_type();
    tag.named = false;
  } else if (!tag.is_definition) {
    // enum e;   enum e *p;   before its definition
    pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_remark,
                   ec_nonstd_forward_decl_enum, &tag.locator->position);
  }
  return make_enum_type(tag);
}

}  // namespace

// enum-specifier:
//     enum [attributes] [identifier] { enumerator-list [,] } [attributes]
//     enum [attributes] identifier
// C11 6.7.2.2
a_type *enum_specifier(a_decl_parse_state *state, std::uint32_t) {
  a_symbol_locator locator = cleared_locator;
  a_tag_scan tag = {};
  tag.locator = &locator;
  tag.symbol_kind = syk_enum;
  tag.keyword_pos = pos_curr_token;
  bool first_specifier = state->storage_class == dsc_none && state->qualifier_pos.seq == 0;
  get_token();
  an_attribute *attributes = nullptr;
  if (curr_token == tok_attribute) attributes = scan_attributes(al_tag_keyword);
  if (in_cplusplus() && (curr_token == tok_class || curr_token == tok_struct)) {
    pos_st_error(ec_not_supported, &pos_curr_token, "scoped enum");
    get_token();
  }
  if (curr_token == tok_identifier) {
    locator = locator_for_curr_id;
    locator.symbol = nullptr;
    tag.named = true;
    get_token();
  }
  if (curr_token == tok_colon && explicit_enum_base_enabled) {
    pos_st_error(ec_not_supported, &pos_curr_token, "enum with a fixed base");
    get_token();
    a_type *base = nullptr;
    type_name(&base);
  }
  tag.is_definition = curr_token == tok_lbrace;
  tag.is_declaration = curr_token == tok_semicolon && first_specifier;
  state->tag_declared = true;
  if (!tag.named && !tag.is_definition) {
    error_position = pos_curr_token;
    syntax_error(ec_exp_identifier);
    state->has_error = true;
    return error_type();
  }
  a_type *type = type_for_enum_head(tag, state);
  if (tag.is_definition)
    scan_enum_body(type, tag, attributes, state);
  else
    attach_tag_attributes(attributes, type, state, false);
  return type;
}
