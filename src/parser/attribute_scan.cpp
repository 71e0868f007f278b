// Reading attributes. The arguments of each are read as its row of the table says, in a small
// language:
//
//     ""           no arguments
//     "(...)"      a list of items, separated by commas; a leading ? makes the whole list optional
//     ci           an integer constant expression        n    an identifier or keyword
//     ct           a type or such a constant             sn   a string literal
//     t            a type                                sx   the same
//     X            an expression                         *    any tokens, balanced
//     item ?       the item may be empty, and the list may end behind it
//     ? item       the item may be absent
//     item +       one or more of it
//
// An unknown attribute's arguments are passed over as "?(*)".
#include <cstring>

#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "parser/attribute_internal.h"
#include "parser/declarator.h"
#include "parser/disambig.h"
#include "parser/expr.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"

a_source_position end_position_of_attributes;
std::uint32_t last_token_number_of_attributes;

namespace {

an_attribute *unscanned_attributes;

// One [[ ]], (( )) or __declspec( ) while it is read.
struct a_group_scan {
  an_attribute_syntax syntax;
  an_attribute_location_tag location;
  an_attribute_group *group;
  const char *using_namespace;  // of "using ns :"; null: none
  bool namespace_unknown;
  bool seen[atk_last];  // kinds of this list
  an_attribute *first;
  an_attribute **last;
};

// ---- Arguments ---------------------------------------------------------------------------------

struct an_argument_scan {
  an_attribute *attribute;
  an_attribute_arg **last;
  bool failed;
};

an_attribute_arg *add_argument(an_argument_scan &scan, an_attribute_arg_kind kind) {
  an_attribute_arg *arg = alloc_attribute_arg();
  arg->kind = kind;
  arg->position = pos_curr_token;
  *scan.last = arg;
  scan.last = &arg->next;
  return arg;
}

void fail(an_argument_scan &scan, an_error_code code) {
  if (!scan.failed) pos_error(code, &pos_curr_token);
  scan.failed = true;
}

bool at_name() {
  return curr_token == tok_identifier || is_keyword_token(curr_token);
}

const char *text_of_name() {
  return curr_token == tok_restrict ? "restrict" : locator_for_curr_id.header->name;
}

void scan_constant_argument(an_argument_scan &scan) {
  an_attribute_arg *arg = add_argument(scan, aak_constant);
  a_constant constant;
  clear_constant(&constant, ck_error);
  scan_integral_constant_expression(&constant);
  if (constant.kind == ck_error) scan.failed = true;
  arg->constant = alloc_shareable_constant(&constant);
}

void scan_type_argument(an_argument_scan &scan) {
  an_attribute_arg *arg = add_argument(scan, aak_type);
  type_name(&arg->type);
}

void scan_string_argument(an_argument_scan &scan) {
  if (curr_token != tok_string_literal) {
    fail(scan, ec_exp_string_literal);
    return;
  }
  an_attribute_arg *arg = add_argument(scan, aak_constant);
  arg->constant = alloc_unshared_constant(&const_for_curr_token);
  get_token();
}

void scan_name_argument(an_argument_scan &scan) {
  if (!at_name()) {
    fail(scan, ec_exp_identifier);
    return;
  }
  an_attribute_arg *arg = add_argument(scan, aak_identifier);
  arg->identifier = text_of_name();
  get_token();
}

void scan_expression_argument(an_argument_scan &scan) {
  an_attribute_arg *arg = add_argument(scan, aak_constant);
  a_constant constant;
  clear_constant(&constant, ck_error);
  scan_expr_for_attribute(&constant);
  if (constant.kind == ck_error) scan.failed = true;
  arg->constant = alloc_unshared_constant(&constant);
}

// Anything up to the ) that ends the list. The brackets inside must match.
void scan_raw_tokens(an_argument_scan &scan) {
  constexpr int max_depth = 256;
  a_token_kind closers[max_depth];
  int depth = 0;
  init_token_string();
  an_attribute_arg *arg = add_argument(scan, aak_raw_tokens);
  while (curr_token != tok_end_of_source) {
    a_token_kind closer = curr_token == tok_lparen     ? tok_rparen
                          : curr_token == tok_lbracket ? tok_rbracket
                          : curr_token == tok_lbrace   ? tok_rbrace
                                                       : tok_error;
    if (closer != tok_error) {
      if (depth == max_depth) break;
      closers[depth++] = closer;
    } else if (token_classes[curr_token] == tcl_closer) {
      if (depth == 0) break;
      if (closers[--depth] != curr_token) fail(scan, ec_unbalanced_attribute_argument);
    }
    add_curr_token_to_string();
    get_token();
  }
  if (curr_token != tok_rparen) fail(scan, ec_unbalanced_attribute_argument);
  arg->identifier = make_copy_of_token_string();
}

void scan_one_argument(an_argument_scan &scan, const char *item) {
  switch (item[0]) {
    case 'c':
      if (item[1] == 't' && is_type_start(dst_type_id_only))
        scan_type_argument(scan);
      else
        scan_constant_argument(scan);
      break;
    case 't':
      scan_type_argument(scan);
      break;
    case 's':
      scan_string_argument(scan);
      break;
    case 'n':
      scan_name_argument(scan);
      break;
    case 'X':
      scan_expression_argument(scan);
      break;
    case '*':
      scan_raw_tokens(scan);
      break;
    default:
      check_invariant(false);
  }
  scan.attribute->end_position = end_pos_curr_token;
}

// One item of a descriptor.
struct a_descriptor_item {
  const char *text;
  bool may_be_absent;  // a leading ?
  bool may_be_last;    // a trailing ?: empty, or nothing behind it
  bool may_be_repeated;
};

const char *next_descriptor_item(const char *p, a_descriptor_item *item) {
  *item = {};
  if (*p == '?') {
    item->may_be_absent = true;
    ++p;
  }
  item->text = p;
  while (*p != ',' && *p != ')' && *p != '?' && *p != '+')
    ++p;
  for (; *p == '?' || *p == '+'; ++p) {
    if (*p == '?') item->may_be_last = true;
    if (*p == '+') item->may_be_repeated = true;
  }
  return *p == ',' ? p + 1 : p;
}

// The list from behind "(" to ")". descriptor stands behind its "(".
void scan_argument_list(an_argument_scan &scan, const char *descriptor) {
  bool is_first = true, list_may_end = false;
  while (*descriptor != ')' && !scan.failed) {
    a_descriptor_item item;
    descriptor = next_descriptor_item(descriptor, &item);
    if (curr_token == tok_rparen && (list_may_end || item.may_be_absent)) return;
    if (!is_first && !loop_token(tok_comma)) return fail(scan, ec_exp_comma);
    is_first = false;
    list_may_end = item.may_be_last;
    if ((item.may_be_last || item.may_be_absent) &&
        (curr_token == tok_comma || curr_token == tok_rparen)) {
      add_argument(scan, aak_raw_tokens)->identifier = nullptr;
      continue;
    }
    scan_one_argument(scan, item.text);
    while (item.may_be_repeated && !scan.failed && loop_token(tok_comma))
      scan_one_argument(scan, item.text);
  }
}

// [ ( arguments ) ]   by the descriptor; false after a message.
bool scan_attribute_arguments(an_attribute *attribute, const char *descriptor) {
  an_argument_scan scan = {attribute, &attribute->args, false};
  if (*descriptor == '\0') {
    if (curr_token != tok_lparen) return true;
    pos_st_error(ec_arguments_provided_for_attribute, &pos_curr_token, attribute->name);
    flush_until_matching_token();
    get_token();
    return false;
  }
  if (*descriptor == '?') {
    if (curr_token != tok_lparen) return true;
    ++descriptor;
  }
  if (curr_token != tok_lparen) {
    pos_error(ec_exp_lparen, &pos_curr_token);
    return false;
  }
  get_token();
  add_stop_token(tok_rparen);
  add_stop_token(tok_comma);
  scan_argument_list(scan, descriptor + 1);
  if (!scan.failed && curr_token != tok_rparen) fail(scan, ec_exp_rparen);
  remove_stop_token(tok_comma);
  if (scan.failed) flush_to_closing_paren();
  remove_stop_token(tok_rparen);
  attribute->end_position = end_pos_curr_token;
  if (curr_token == tok_rparen) get_token();
  return !scan.failed;
}

// ---- One attribute -----------------------------------------------------------------------------

bool is_known_namespace(const char *name) {
  return std::strcmp(name, "gnu") == 0 || std::strcmp(name, "QX") == 0;
}

bool at_double_colon() {
  return curr_token == tok_colon_colon || (curr_token == tok_colon && next_token() == tok_colon);
}

// [ns ::] name    of a [[ ]] list
void scan_attribute_name(a_group_scan &scan, an_attribute *attribute) {
  attribute->name = text_of_name();
  attribute->position = pos_curr_token;
  attribute->end_position = end_pos_curr_token;
  get_token();
  if (scan.syntax != asx_std) return;
  attribute->namespace_name = scan.using_namespace;
  attribute->namespace_from_using = scan.using_namespace != nullptr;
  attribute->namespace_unknown = scan.namespace_unknown;
  if (!at_double_colon()) return;
  if (scan.using_namespace != nullptr) pos_error(ec_namespace_not_allowed, &attribute->position);
  if (curr_token == tok_colon) get_token();
  get_token();
  if (!at_name()) {
    pos_error(ec_exp_identifier, &pos_curr_token);
    return;
  }
  attribute->namespace_name = attribute->name;
  attribute->namespace_unknown = !is_known_namespace(attribute->name);
  attribute->name = text_of_name();
  attribute->end_position = end_pos_curr_token;
  get_token();
}

// The name without __ around it, in the file-scope region.
void set_stripped_name(an_attribute *attribute) {
  const char *name = attribute->name;
  std::size_t length = std::strlen(name);
  strip_underscores(&name, &length);
  if (name != attribute->name) attribute->name = alloc_il_text(name, length);
}

void report_unknown_attribute(const an_attribute *attribute) {
  an_error_severity severity = attribute->syntax == asx_declspec ? es_discretionary_error
                               : attribute->namespace_unknown    ? es_remark
                                                                 : es_warning;
  pos_st_diagnostic(severity, ec_unrecognized_attribute, &attribute->position, attribute->name);
}

// The same attribute a second time in one list.
void check_repetition(a_group_scan &scan, an_attribute *attribute, const an_attribute_row *row) {
  bool &seen = scan.seen[row->kind];
  if (seen) {
    bool only_once = row->modes[0] == '1';
    pos_st_diagnostic(only_once ? es_error : es_remark, ec_attr_twice_in_group,
                      &attribute->position, attribute->name);
    if (only_once) drop_attribute(attribute);
  }
  seen = true;
}

void link_attribute(a_group_scan &scan, an_attribute *attribute) {
  *scan.last = attribute;
  scan.last = &attribute->next;
}

an_attribute *new_attribute(const a_group_scan &scan) {
  an_attribute *attribute = alloc_attribute();
  attribute->syntax = scan.syntax;
  attribute->location = scan.location;
  attribute->group = scan.group;
  attribute->position = pos_curr_token;
  attribute->end_position = end_pos_curr_token;
  return attribute;
}

// attribute:
//     [identifier ::] identifier [( arguments )] [...]
// An element may be empty.
void scan_attribute(a_group_scan &scan) {
  if (curr_token == tok_comma || curr_token == tok_rparen || curr_token == tok_rbracket) return;
  if (!at_name()) {
    error_position = pos_curr_token;
    syntax_error(ec_exp_identifier);
    return;
  }
  an_attribute *attribute = new_attribute(scan);
  scan_attribute_name(scan, attribute);
  bool is_gnu = attribute->namespace_name != nullptr &&
                std::strcmp(attribute->namespace_name, "gnu") == 0 && gnu_mode &&
                gnu_version >= 40800;
  attribute->gnu_namespace = is_gnu;
  if (is_gnu || scan.syntax == asx_gnu) set_stripped_name(attribute);
  const an_attribute_row *row = find_attribute_row(attribute->name, std::strlen(attribute->name),
                                                   is_gnu ? asx_gnu : scan.syntax,
                                                   is_gnu ? nullptr : attribute->namespace_name);
  if (row == nullptr) {
    report_unknown_attribute(attribute);
    scan_attribute_arguments(attribute, "?(*)");
    return;
  }
  attribute->kind = row->kind;
  attribute->is_type_attribute = attribute_kinds[row->kind].applicability[0] == 'T';
  if (!scan_attribute_arguments(attribute, row->arguments)) drop_attribute(attribute);
  check_repetition(scan, attribute, row);
  if (curr_token == tok_ellipsis) {
    attribute->is_pack_expansion = true;
    pos_st_error(ec_not_supported, &pos_curr_token, "a pack expansion of attributes is");
    drop_attribute(attribute);
    get_token();
  }
  link_attribute(scan, attribute);
}

void scan_attribute_list(a_group_scan &scan, a_token_kind closer) {
  add_stop_token(tok_comma);
  add_stop_token(closer);
  // __declspec takes its words without commas too.
  for (;;) {
    scan_attribute(scan);
    if (loop_token(tok_comma)) continue;
    if (scan.syntax == asx_declspec && at_name()) continue;
    break;
  }
  remove_stop_token(closer);
  remove_stop_token(tok_comma);
}

// ---- Groups ------------------------------------------------------------------------------------

void start_group(a_group_scan &scan, an_attribute_syntax syntax) {
  scan.syntax = syntax;
  scan.group = alloc_attribute_group();
  scan.group->start_position = pos_curr_token;
  scan.using_namespace = nullptr;
  scan.namespace_unknown = false;
  std::memset(scan.seen, 0, sizeof scan.seen);
}

void note_group_end(a_group_scan &scan) {
  scan.group->end_position = end_position_of_attributes = end_pos_curr_token;
  last_token_number_of_attributes = curr_token_sequence_number;
}

// __attribute__ ( ( attribute-list ) )
void scan_gnu_group(a_group_scan &scan) {
  start_group(scan, asx_gnu);
  get_token();
  if (!required_token(tok_lparen, ec_exp_lparen)) return;
  add_stop_token(tok_rparen);
  if (required_token(tok_lparen, ec_exp_lparen)) {
    scan_attribute_list(scan, tok_rparen);
    required_token(tok_rparen, ec_exp_rparen);
  } else {
    // __attribute__(x)   the message about the second "(" is enough
    flush_to_closing_paren();
  }
  remove_stop_token(tok_rparen);
  note_group_end(scan);
  required_token(tok_rparen, ec_exp_rparen);
}

// __declspec ( attribute-list )
void scan_declspec_group(a_group_scan &scan) {
  bool allowed = scan.location == al_decl_start || scan.location == al_tag_keyword ||
                 scan.location == al_specifier;
  an_attribute **end = scan.last;
  if (!allowed) pos_warning(ec_invalid_attribute_location, &pos_curr_token);
  start_group(scan, asx_declspec);
  get_token();
  if (required_token(tok_lparen, ec_exp_lparen)) {
    scan_attribute_list(scan, tok_rparen);
    note_group_end(scan);
    required_token(tok_rparen, ec_exp_rparen);
  }
  if (allowed) return;
  *end = nullptr;
  scan.last = end;
}

// using identifier :
void scan_attribute_using_prefix(a_group_scan &scan) {
  get_token();
  if (!at_name()) {
    pos_error(ec_exp_identifier, &pos_curr_token);
    return;
  }
  scan.using_namespace = text_of_name();
  scan.namespace_unknown = !is_known_namespace(scan.using_namespace);
  if (scan.namespace_unknown)
    pos_st_warning(ec_attribute_namespace_unrecognized, &pos_curr_token, scan.using_namespace);
  get_token();
  required_token(tok_colon, ec_exp_colon);
}

// [ [ [using identifier :] attribute-list ] ]
void scan_std_group(a_group_scan &scan) {
  if (gpp_mode && std_version < 201103)
    f_report_gnu_cpp11_extensions_if_needed(&pos_curr_token, ec_std_attributes_is_cpp11);
  start_group(scan, asx_std);
  get_token();
  get_token();
  add_stop_token(tok_rbracket);
  if (curr_token == tok_using && using_attribute_namespaces_enabled)
    scan_attribute_using_prefix(scan);
  scan_attribute_list(scan, tok_rbracket);
  required_token(tok_rbracket, ec_exp_rbracket);
  remove_stop_token(tok_rbracket);
  note_group_end(scan);
  required_token(tok_rbracket, ec_exp_rbracket);
}

// alignas ( type-or-constant )
void scan_alignas_specifier(a_group_scan &scan) {
  start_group(scan, asx_alignas);
  an_attribute *attribute = new_attribute(scan);
  attribute->kind = atk_align;
  attribute->name = in_cplusplus() ? "alignas" : "_Alignas";
  get_token();
  if (!scan_attribute_arguments(attribute, "(ct)")) drop_attribute(attribute);
  link_attribute(scan, attribute);
  note_group_end(scan);
}

bool scan_one_group(a_group_scan &scan) {
  switch (curr_token) {
    case tok_attribute:
      scan_gnu_group(scan);
      return true;
    case tok_declspec:
      scan_declspec_group(scan);
      return true;
    case tok_alignas:
      scan_alignas_specifier(scan);
      return true;
    case tok_lbracket:
      if (!std_attributes_enabled || next_token() != tok_lbracket) return false;
      scan_std_group(scan);
      return true;
    default:
      return false;
  }
}

void start_scan(a_group_scan &scan, an_attribute_location_tag location) {
  scan.location = location;
  scan.first = unscanned_attributes;
  scan.last = f_last_attribute_link(&scan.first);
  unscanned_attributes = nullptr;
}

}  // namespace

// ---- The face ----------------------------------------------------------------------------------

// attribute-specifier-sequence:
//     { __attribute__ (( )) | [[ ]] | __declspec ( ) | alignas ( ) }
an_attribute *scan_attributes(an_attribute_location_tag location) {
  a_group_scan scan;
  start_scan(scan, location);
  while (scan_one_group(scan)) {
  }
  return scan.first;
}

an_attribute *scan_gnu_attribute_groups(an_attribute_location_tag location) {
  a_group_scan scan;
  start_scan(scan, location);
  while (curr_token == tok_attribute)
    scan_gnu_group(scan);
  return scan.first;
}

void skip_over_attributes() {
  scan_attributes(al_none);
}

void unscan_attributes(an_attribute *list) {
  *f_last_attribute_link(&unscanned_attributes) = list;
}

void disallow_attributes(an_attribute *list) {
  if (list == nullptr) return;
  pos_warning(ec_invalid_attribute_location, &list->position);
  for (; list != nullptr; list = list->next)
    drop_attribute(list);
}
