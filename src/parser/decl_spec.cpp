// The main loop over declaration specifiers, and the names among the specifiers.
//
// A sequence is read into an a_specifier_scan and turned into a type once it is complete. The loop
// never stops the parse: a specifier that does not fit is reported and dropped, and the declarator
// is read in any case. Whether a name is a type name or the declared name is settled here: in C a
// name is a type only while no other type specifier was seen.
#include "parser/decl_spec.h"

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec_internal.h"
#include "parser/disambig.h"
#include "parser/expr.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/lexical.h"

std::uint8_t enum_default_int_kind;

// foo int x;   with foo undeclared: a specifier that this dialect does not know.
bool is_unknown_specifier() {
  if (locator_for_curr_id.symbol != nullptr) return false;
  switch (next_token()) {
    case tok_void:
    case tok_char:
    case tok_short:
    case tok_int:
    case tok_long:
    case tok_float:
    case tok_double:
    case tok_signed:
    case tok_unsigned:
    case tok_struct:
    case tok_union:
    case tok_enum:
    case tok_const:
    case tok_volatile:
    case tok_static:
    case tok_extern:
    case tok_typedef:
      return true;
    default:
      return false;
  }
}

namespace {

a_decl_parse_state *free_decl_parse_states;
an_end_of_parse_action *free_end_of_parse_actions;

}  // namespace

void clear_decl_parse_state(a_decl_parse_state *state) {
  *state = a_decl_parse_state{};
  state->start_pos = pos_curr_token;
  state->specifiers_pos = pos_curr_token;
  state->declarator_pos = pos_curr_token;
}

a_decl_parse_state *alloc_decl_parse_state() {
  a_decl_parse_state *state = free_decl_parse_states;
  if (state != nullptr)
    free_decl_parse_states = state->next_free;
  else
    state = static_cast<a_decl_parse_state *>(alloc_in_region(0, sizeof(a_decl_parse_state)));
  clear_decl_parse_state(state);
  return state;
}

void free_decl_parse_state(a_decl_parse_state *state) {
  discard_end_of_parse_actions(state);
  state->next_free = free_decl_parse_states;
  free_decl_parse_states = state;
}

void add_end_of_parse_action(an_end_of_parse_routine routine, a_decl_parse_state *state,
                             bool keep) {
  an_end_of_parse_action *action = free_end_of_parse_actions;
  if (action != nullptr)
    free_end_of_parse_actions = action->next;
  else
    action = static_cast<an_end_of_parse_action *>(alloc_in_region(0, sizeof *action));
  *action = {state->end_of_parse_actions, routine, keep};
  state->end_of_parse_actions = action;
}

void run_end_of_parse_actions(a_decl_parse_state *state, bool declarator_done) {
  an_end_of_parse_action **link = &state->end_of_parse_actions;
  while (*link != nullptr) {
    an_end_of_parse_action *action = *link;
    action->routine(state);
    if (declarator_done && action->keep) {
      link = &action->next;
      continue;
    }
    *link = action->next;
    action->next = free_end_of_parse_actions;
    free_end_of_parse_actions = action;
  }
}

void discard_end_of_parse_actions(a_decl_parse_state *state) {
  while (state->end_of_parse_actions != nullptr) {
    an_end_of_parse_action *action = state->end_of_parse_actions;
    state->end_of_parse_actions = action->next;
    action->next = free_end_of_parse_actions;
    free_end_of_parse_actions = action;
  }
}

namespace {

// __auto_type x = value;  the declarator is a plain name with an initializer.
void check_auto_type_entity(a_decl_parse_state *state) {
  if (state->has_error || state->initializer_seen) return;
  pos_error(ec_auto_type_requires_initializer, &state->declarator_pos);
}

// ---- Types of other words -----------------------------------------------------------------------

// "auto" means a storage class in C, and the type of the initializer in C++11.
void scan_auto(a_specifier_scan &scan) {
  if (auto_storage_class_specifier_enabled && !auto_type_specifier_enabled) {
    scan_storage_class(scan);
    return;
  }
  pos_st_error(ec_not_supported, &pos_curr_token, "auto as a type specifier");
  a_source_position position = pos_curr_token;
  get_token();
  add_whole_type(scan, base_error, error_type(), &position);
}

void scan_auto_type(a_specifier_scan &scan) {
  a_source_position position = pos_curr_token;
  get_token();
  // A parameter, a member or a type name has no initializer to take the type from.
  if ((scan.flags & dsf_storage_class_ok) == 0 || (scan.flags & dsf_parameter) != 0) {
    pos_error(ec_auto_not_allowed_here, &position);
    scan.state->has_error = true;
    add_whole_type(scan, base_error, error_type(), &position);
    return;
  }
  a_type *placeholder = make_auto_type(&position, false);
  scan.state->auto_type = placeholder;
  add_whole_type(scan, base_auto, placeholder, &position);
  add_end_of_parse_action(check_auto_type_entity, scan.state, true);
}

// _Atomic ( type-name ) is a type, _Atomic alone a qualifier.
void scan_atomic(a_specifier_scan &scan) {
  if (next_token() != tok_lparen) {
    add_qualifier(scan);
    return;
  }
  a_source_position position = pos_curr_token;
  pos_st_error(ec_not_supported, &position, "_Atomic");
  get_token();
  flush_until_matching_token();
  get_token();
  add_whole_type(scan, base_error, error_type(), &position);
}

// __zvn_vector_type__ ( type , count )
void scan_vector_type(a_specifier_scan &scan) {
  a_source_position position = pos_curr_token;
  get_token();
  pos_st_error(ec_not_supported, &position, "__zvn_vector_type__");
  if (curr_token == tok_lparen) {
    flush_until_matching_token();
    get_token();
  }
  add_whole_type(scan, base_error, error_type(), &position);
}

void scan_keyword_for_whole_type(a_specifier_scan &scan) {
  a_source_position position = pos_curr_token;
  a_type *type = nullptr;
  switch (curr_token) {
    case tok_zvn_size_type:
      type = integer_type(targ_size_t_int_kind);
      break;
    case tok_zvn_ptrdiff_type:
      type = integer_type(targ_ptrdiff_t_int_kind);
      break;
    default:
      type = bool_type();
      break;
  }
  get_token();
  add_whole_type(scan, base_named, type, &position);
}

// A tag specifier behind another type is read for its declarations and dropped.
void scan_tag_specifier(a_specifier_scan &scan) {
  a_source_position position = pos_curr_token;
  bool is_enum = curr_token == tok_enum;
  a_type *type =
      is_enum ? enum_specifier(scan.state, scan.flags) : class_specifier(scan.state, scan.flags);
  add_whole_type(scan, is_enum ? base_enum : base_class, type, &position);
}

// ---- Names -------------------------------------------------------------------------------------

// unsigned T x;   where T is a typedef name and modified typedefs are allowed: T is a type only if
// a declarator follows, since it could be the declared name itself.
bool typedef_name_follows_modifier(const a_specifier_scan &scan) {
  if (scan.base != base_none || scan.complex != cplx_none) return false;
  if (!typedef_modification_is_allowed() || curr_type_symbol() == nullptr) return false;
  a_token_kind next = next_token();
  return next == tok_identifier || next == tok_star;
}

// foo x;   foo *x;   with foo undeclared: nothing but a misspelled type name looks like this.
bool looks_like_undeclared_type() {
  a_token_kind next = next_token();
  return next == tok_identifier || next == tok_star;
}

void take_undeclared_type(a_specifier_scan &scan) {
  a_source_position position = pos_curr_token;
  a_symbol *symbol = locator_for_curr_id.symbol;
  if (symbol == nullptr)
    pos_st_error(ec_undefined_identifier, &position, locator_for_curr_id.header->name);
  else if (symbol->kind != syk_undefined)
    pos_sy_error(ec_sym_not_a_type_name, &position, symbol);
  scan.state->has_error = true;
  scan.state->error_in_specifiers = true;
  get_token();
  add_whole_type(scan, base_error, error_type(), &position);
}

// unsigned T x;   where no modified typedef is allowed: a declarator that is followed by a name
// cannot be meant.
bool at_surplus_type_name() {
  return curr_type_symbol() != nullptr && next_token() == tok_identifier;
}

void scan_name(a_specifier_scan &scan) {
  if ((scan.flags & dsf_qualifiers_only) != 0) {
    scan.done = true;
    return;
  }
  if (type_seen(scan) && !typedef_name_follows_modifier(scan) && !at_surplus_type_name()) {
    scan.done = true;
    return;
  }
  a_symbol *symbol = curr_type_symbol();
  if (symbol != nullptr) {
    a_source_position position = pos_curr_token;
    record_symbol_reference(ref_other, symbol, &position, true);
    get_token();
    add_whole_type(scan, base_named, type_of_symbol(symbol), &position);
    return;
  }
  if ((scan.flags & dsf_no_name) == 0 && is_unknown_specifier()) {
    pos_st_error(ec_undefined_identifier, &pos_curr_token, locator_for_curr_id.header->name);
    get_token();
    return;
  }
  if ((scan.flags & dsf_type_required) == 0 &&
      ((scan.flags & dsf_no_name) != 0 || !looks_like_undeclared_type())) {
    scan.done = true;
    return;
  }
  if ((scan.flags & dsf_type_required) != 0 && !looks_like_undeclared_type() &&
      locator_for_curr_id.symbol != nullptr) {
    pos_error(ec_exp_type_specifier, &pos_curr_token);
    a_source_position position = pos_curr_token;
    get_token();
    add_whole_type(scan, base_error, error_type(), &position);
    return;
  }
  take_undeclared_type(scan);
}

void scan_specifier_attributes(a_specifier_scan &scan) {
  if ((scan.flags & dsf_secondary) != 0) {
    pos_warning(ec_secondary_specifier_ignored, &pos_curr_token);
    skip_over_attributes();
    return;
  }
  an_attribute *list = scan_attributes(al_specifier);
  *f_last_attribute_link(&scan.state->specifier_attributes) = list;
}

// ---- The loop ----------------------------------------------------------------------------------

// Handles one specifier; sets scan.done when the current token is none.
void scan_one_specifier(a_specifier_scan &scan) {
  switch (curr_token) {
    case tok_identifier:
    case tok_colon_colon:
      scan_name(scan);
      break;
    case tok_void:
      add_base_keyword(scan, base_void);
      break;
    case tok_char:
      add_base_keyword(scan, base_char);
      break;
    case tok_wchar_t:
      add_base_keyword(scan, base_wchar_t);
      break;
    case tok_char16_t:
      add_base_keyword(scan, base_char16_t);
      break;
    case tok_char32_t:
      add_base_keyword(scan, base_char32_t);
      break;
    case tok_c99_bool:
    case tok_bool:
      add_base_keyword(scan, base_bool);
      break;
    case tok_int:
      add_base_keyword(scan, base_int);
      break;
    case tok_float:
      add_base_keyword(scan, base_float);
      break;
    case tok_double:
      add_base_keyword(scan, base_double);
      break;
    case tok_long:
      add_long_keyword(scan);
      break;
    case tok_short:
      add_short_keyword(scan);
      break;
    case tok_signed:
      add_sign_keyword(scan, sign_signed);
      break;
    case tok_unsigned:
      add_sign_keyword(scan, sign_unsigned);
      break;
    case tok_complex:
      add_complex_keyword(scan, cplx_complex);
      break;
    case tok_imaginary:
      add_complex_keyword(scan, cplx_imaginary);
      break;
    case tok_const:
    case tok_volatile:
    case tok_restrict:
    case tok_restrict_gnu:
    case tok_nullable:
    case tok_nonnull:
    case tok_null_unspecified:
      add_qualifier(scan);
      break;
    case tok_atomic:
      scan_atomic(scan);
      break;
    case tok_struct:
    case tok_union:
    case tok_class:
    case tok_enum:
      scan_tag_specifier(scan);
      break;
    case tok_typeof: {
      a_source_position position = pos_curr_token;
      add_whole_type(scan, base_named, scan_typeof_operator(scan.state), &position);
      break;
    }
    case tok_auto:
      scan_auto(scan);
      break;
    case tok_auto_type:
      scan_auto_type(scan);
      break;
    case tok_zvn_size_type:
    case tok_zvn_ptrdiff_type:
    case tok_zvn_bool_type:
      scan_keyword_for_whole_type(scan);
      break;
    case tok_zvn_vector_type:
      scan_vector_type(scan);
      break;
    case tok_extern:
    case tok_static:
    case tok_register:
    case tok_typedef:
      scan_storage_class(scan);
      break;
    case tok_thread:
    case tok_thread_local:
    case tok_c11_thread_local:
      scan_thread_local(scan);
      break;
    case tok_inline:
      scan_inline(scan);
      break;
    case tok_noreturn:
      scan_noreturn(scan);
      break;
    case tok_virtual:
    case tok_explicit:
    case tok_friend:
    case tok_mutable:
    case tok_constexpr:
    case tok_overload:
      scan_cplusplus_specifier(scan);
      break;
    case tok_typename:
    case tok_decltype:
    case tok_decltype_construct:
    case tok_underlying_type:
    case tok_bases:
    case tok_direct_bases: {
      a_source_position position = pos_curr_token;
      scan_cplusplus_specifier(scan);
      add_whole_type(scan, base_error, error_type(), &position);
      break;
    }
    case tok_shared:
    case tok_sharedpp:
    case tok_trap:
    case tok_interrupt:
    case tok_interrupt_gnu:
    case tok_reentrant:
    case tok_cregister:
    case tok_global:
      scan_target_keyword(scan);
      break;
    case tok_data16:
    case tok_data20:
    case tok_memory_of:
      skip_memory_keyword();
      break;
    case tok_attribute:
    case tok_declspec:
    case tok_alignas:
      scan_specifier_attributes(scan);
      break;
    case tok_lbracket:
      if (std_attributes_enabled && next_token() == tok_lbracket)
        scan_specifier_attributes(scan);
      else
        scan.done = true;
      break;
    case tok_extension:
      if (scan.any_seen)
        scan.done = true;
      else
        get_token();
      return;
    default:
      scan.done = true;
      break;
  }
  if (!scan.done) scan.any_seen = true;
}

bool at_qualifier_or_attribute() {
  switch (curr_token) {
    case tok_const:
    case tok_volatile:
    case tok_restrict:
    case tok_restrict_gnu:
    case tok_nullable:
    case tok_nonnull:
    case tok_null_unspecified:
    case tok_atomic:
      return true;
    default:
      return false;
  }
}

bool continues(const a_specifier_scan &scan) {
  if (scan.done) return false;
  if ((scan.flags & dsf_qualifiers_only) != 0) return at_qualifier_or_attribute();
  if ((scan.flags & dsf_stop_after_type) != 0 && type_seen(scan)) return false;
  return true;
}

// Nothing stood there: the type is an implicit int, or what was wanted is missing.
void note_missing_specifiers(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  state->no_specifier_seen = !scan.any_seen;
  if (scan.any_seen || (scan.flags & dsf_type_ok) == 0) return;
  if ((scan.flags & dsf_type_optional) != 0) {
    state->no_specifiers = true;
    return;
  }
  error_position = pos_curr_token;
  syntax_error(ec_exp_type_specifier);
  state->has_error = true;
  scan.base = base_error;
}

// Attributes that change types act on the specified type; the others wait for the entity.
void divide_attributes(a_decl_parse_state *state) {
  an_attribute **link = &state->specifier_attributes;
  an_attribute *for_type = nullptr;
  an_attribute **type_link = &for_type;
  while (*link != nullptr) {
    an_attribute *attribute = *link;
    if (attribute->is_type_attribute && !state->tag_defined) {
      *link = attribute->next;
      attribute->next = nullptr;
      *type_link = attribute;
      type_link = &attribute->next;
    } else {
      link = &attribute->next;
    }
  }
  if (for_type != nullptr) attach_type_attributes(&state->type, for_type, state);
}

}  // namespace

// declaration-specifiers:
//     { storage-class-specifier | type-specifier | type-qualifier | function-specifier |
//       alignment-specifier | attribute-specifier }
// C11 6.7, 6.7.1 to 6.7.5
void decl_specifiers(std::uint32_t flags, a_decl_parse_state *state, a_decl_pos_block *positions) {
  a_specifier_scan scan = {};
  scan.state = state;
  scan.flags = flags;
  scan.positions = positions;
  state->specifiers_pos = pos_curr_token;
  scan.type_pos = pos_curr_token;
  if (positions != nullptr) positions->specifiers_range.start = pos_curr_token;
  for (;;) {
    if (!continues(scan)) break;
    scan_one_specifier(scan);
    if (!scan.done && positions != nullptr) positions->specifiers_range.end = end_pos_curr_token;
  }
  state->declared_storage_class = state->storage_class;
  note_missing_specifiers(scan);
  finish_specified_type(scan);
  if (state->specifier_attributes != nullptr) divide_attributes(state);
  state->pre_qualifier_type = state->type;
  state->declared_type = state->type;
  if (state->can_be_declaration_without_declarator) state->no_attribute_target = true;
}

// typeof ( expression )      typeof ( type-name )
a_type *scan_typeof_operator(a_decl_parse_state *) {
  if (report_gnu_extensions) pos_warning(ec_typeof_is_gnu_extension, &pos_curr_token);
  get_token();
  return scan_typeof();
}

bool restrict_qualifier_is_allowed(a_type *type, const a_source_position *position) {
  if (is_error_type(type)) return true;
  if (is_pointer_to_function_type(type)) {
    pos_error(ec_restrict_pointer_to_function, position);
    return false;
  }
  if (is_array_type(type))
    return restrict_qualifier_is_allowed(underlying_array_element_type(type), position);
  if (is_pointer_type(type) || is_any_reference_type(type)) return true;
  pos_error(ec_restrict_not_allowed, position);
  return false;
}

void decl_spec_one_time_init() {
  free_decl_parse_states = nullptr;
  free_end_of_parse_actions = nullptr;
}

void decl_spec_trans_unit_init() {
  enum_default_int_kind = !enum_types_can_be_larger_than_int           ? ik_int
                          : strict_ansi_mode && !long_long_is_standard ? ik_unsigned_long
                                                                       : ik_unsigned_long_long;
}
