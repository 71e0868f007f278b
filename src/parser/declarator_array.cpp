// Array suffixes of declarators: constant bounds, open bounds, and the forms of parameters.
//
// The bound of a parameter's outermost array says nothing to the type, which becomes a pointer with
// the qualifiers from inside the brackets; any bound expression is accepted there. Other bounds
// that are not constant make a variable-length array, which is not built yet and says so.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_spec.h"
#include "parser/declarator_internal.h"
#include "parser/expr.h"
#include "semantics/const_ints.h"
#include "semantics/scope_stk.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

bool at_bracket_qualifier() {
  return curr_token == tok_const || curr_token == tok_volatile || curr_token == tok_restrict ||
         curr_token == tok_restrict_gnu;
}

// What stands before the bound: static and qualifiers, in a parameter of C99 and GNU C.
struct a_bracket_prefix {
  bool has_static;
  unsigned qualifiers;
};

a_bracket_prefix scan_bracket_prefix(a_declarator_scan &scan, bool is_outermost) {
  a_bracket_prefix prefix = {};
  bool allowed = (scan.flags & dcl_param_array) != 0 && is_outermost;
  bool c99_form = !in_cplusplus() && std_version >= 199901;
  while (at_bracket_qualifier() || (curr_token == tok_static && allowed && c99_form)) {
    if (curr_token == tok_static) {
      if (prefix.has_static) pos_error(ec_mult_storage_classes, &pos_curr_token);
      prefix.has_static = true;
      get_token();
      continue;
    }
    a_source_position position = pos_curr_token;
    unsigned qualifiers = collect_type_qualifiers(scan.state);
    if (!allowed || (!c99_form && (qualifiers & ~unsigned{tq_restrict}) != 0)) {
      bool only_restrict = qualifiers == tq_restrict;
      pos_error(only_restrict ? ec_restrict_not_allowed : ec_type_qualifier_not_allowed, &position);
    } else {
      prefix.qualifiers |= qualifiers;
    }
  }
  return prefix;
}

void set_open_bound(a_type *array) {
  array->number_of_elements = 0;
  array->size = 0;
}

// [*]: "an array of some size", in prototypes.
bool is_unspecified_bound(const a_declarator_scan &scan) {
  return curr_token == tok_star && vla_enabled && (scan.flags & dcl_param_array) != 0 &&
         next_token() == tok_rbracket;
}

void report_vla(a_declarator_scan &scan, const a_source_position *position, a_type **array) {
  pos_st_error(ec_not_supported, position, "a variable-length array is");
  scan.state->has_error = true;
  *array = error_type();
}

void set_constant_bound(a_declarator_scan &scan, a_type **array, const a_constant *bound,
                        const a_source_position *position) {
  if (bound->kind == ck_error) {
    *array = error_type();
    scan.state->has_error = true;
    return;
  }
  if (bound->kind != ck_integer) {
    pos_error(ec_expr_not_integral_constant, position);
    *array = error_type();
    return;
  }
  int order = cmplit_integer_constant(bound, 0);
  if (order < 0 || (order == 0 && !gnu_mode)) {
    pos_error(ec_array_size_must_be_positive, position);
    *array = error_type();
    return;
  }
  (*array)->number_of_elements = bound->integer_value;
  error_position = *position;  // of a message about the size
  if (order == 0) {
    (*array)->zero_bound = true;
    if (report_gnu_extensions) pos_warning(ec_zero_length_array_is_gnu_extension, position);
  }
}

// The bound of a parameter's outermost array: any integral expression, which is then forgotten.
void scan_parameter_bound() {
  an_expr_node *node = nullptr;
  a_constant constant;
  clear_constant(&constant, ck_error);
  scan_nonconstant_dimension_expression(ndf_value_is_forgotten, &node, &constant);
}

void scan_bound(a_declarator_scan &scan, bool is_outermost, a_type **array) {
  a_source_position position = pos_curr_token;
  if (is_outermost && (scan.flags & dcl_param_array) != 0 && vla_enabled) {
    scan_parameter_bound();
    set_open_bound(*array);
    return;
  }
  a_constant bound;
  clear_constant(&bound, ck_error);
  bool vla_possible = vla_enabled && !in_cplusplus() && depth_innermost_function_scope >= 0;
  if (vla_possible || (scan.flags & dcl_vla_ok) != 0) {
    an_expr_node *node = nullptr;
    scan_nonconstant_dimension_expression(0, &node, &bound);
    if (node != nullptr && bound.kind == ck_error) {
      if (node->kind != enk_error)
        report_vla(scan, &position, array);
      else
        *array = error_type();
      return;
    }
  } else {
    scan_constant_dimension_expression(&bound);
  }
  set_constant_bound(scan, array, &bound, &position);
}

}  // namespace

// array suffix:
//     [ [static] [type-qualifier-list] [assignment-expression | *] ]
// C11 6.7.6.2, 6.7.6.3
a_declarator_part *scan_array_declarator(a_declarator_scan &scan, bool is_outermost) {
  a_declarator_part *part = alloc_declarator_part(dpk_array);
  part->type = alloc_type(tk_array);
  get_token();
  add_stop_token(tok_rbracket);
  a_bracket_prefix prefix = scan_bracket_prefix(scan, is_outermost);
  part->qualifiers = prefix.qualifiers;
  if (curr_token == tok_rbracket) {
    if (prefix.has_static) pos_error(ec_exp_primary_expr, &pos_curr_token);
    set_open_bound(part->type);
  } else if (is_unspecified_bound(scan)) {
    if (is_outermost)
      set_open_bound(part->type);
    else
      report_vla(scan, &pos_curr_token, &part->type);
    get_token();
  } else if (curr_token == tok_star && vla_enabled && next_token() == tok_rbracket) {
    pos_error(ec_vla_with_unspecified_bound_not_allowed, &pos_curr_token);
    part->type = error_type();
    get_token();
  } else {
    scan_bound(scan, is_outermost, &part->type);
  }
  if (prefix.qualifiers != 0 && !is_error_type(part->type))
    part->type->param_qualifiers = static_cast<std::uint8_t>(prefix.qualifiers);
  remove_stop_token(tok_rbracket);
  required_token(tok_rbracket, ec_exp_rbracket);
  return part;
}
