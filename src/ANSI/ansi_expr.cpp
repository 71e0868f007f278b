// Expressions: each operator writes its node, then its operands.
//
// The pass over C bodies and the lowering of C++ have removed what has no form here; a node without
// a row is an internal error, because a missing subtree would corrupt the whole prefix stream.
#include "ANSI/ansi_expr.h"

#include "ANSI/i_gen_be_internal.h"
#include "il/il.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// The type of the object that a node names, with its qualifiers, also where its value was taken.
a_type *type_of_place(const an_expr_node *expr) {
  return expr->orig_lvalue_type != nullptr ? expr->orig_lvalue_type : expr->type;
}

[[noreturn]] void no_row(const an_expr_node *expr) {
  unexpected_state(expr->kind == enk_operation ? expr_operator_names[expr->op]
                                               : expr_node_kind_names[expr->kind]);
}

bool is_pointer_result(const a_type *type) {
  return type_has_kind(type, tk_pointer);
}

void put_two(a_node_op op, TYPE *type, const an_expr_node *expr) {
  put(op, type);
  generate_expression(first_operand(expr));
  generate_expression(second_operand(expr));
}

// An operator of arithmetic: the operands are integers or floating values.
void put_arithmetic(a_node_op op, TYPE *type, const an_expr_node *expr) {
  if (expr->op_kind_info != tk_integer && expr->op_kind_info != tk_float) no_row(expr);
  put_two(op, type, expr);
}

TYPE *ptrdiff_type() {
  return tp_type(integer_type(targ_ptrdiff_t_int_kind));
}

a_node_op comparison_op(an_expr_operator_kind op, bool is_float, bool is_unsigned) {
  switch (op) {
    case eok_eq:
      return is_float ? op_FEQ : op_EQ;
    case eok_ne:
      return is_float ? op_FNEQN : op_NEQ;
    case eok_gt:
      return is_float ? op_FGT : is_unsigned ? op_UGT : op_GT;
    case eok_lt:
      return is_float ? op_FLT : is_unsigned ? op_ULT : op_LT;
    case eok_ge:
      return is_float ? op_FGE : is_unsigned ? op_UGE : op_GE;
    default:
      return is_float ? op_FLE : is_unsigned ? op_ULE : op_LE;
  }
}

void generate_comparison(an_expr_node *expr) {
  a_type *type = f_skip_typerefs(first_operand(expr)->type);
  bool is_float = expr->op_kind_info == tk_float;
  bool is_unsigned = type->kind != tk_integer || !int_kind_is_signed[type->int_kind];
  put_two(comparison_op(expr->op, is_float, is_unsigned), basic_int(), expr);
}

// A pointer and an index: the index is scaled by the size of an element, told in bits.
void generate_pointer_step(a_node_op op, a_type *result_type, an_expr_node *pointer,
                           an_expr_node *index) {
  put(op, tp_type(result_type));
  generate_expression(pointer);
  bool is_integer = is_integral_or_enum_type(index->type);
  TYPE *index_type = is_integer ? ptrdiff_type() : tp_type(index->type);
  put(op_PMCONV, index_type);
  if (tp_type(index->type)->stripped != index_type->stripped) put(op_SCONV, index_type);
  generate_expression(index);
  a_type *element = type_pointed_to(f_skip_typerefs(pointer->type));
  put_icon(index_type, step_size(element) * static_cast<std::uint64_t>(targ_char_bit));
}

void generate_pointer_operation(a_node_op op, an_expr_node *expr, a_type *wanted) {
  an_expr_node *pointer = first_operand(expr), *index = second_operand(expr);
  if (expr->array_is_second_operand) std::swap(pointer, index);
  generate_pointer_step(op, wanted, pointer, index);
}

void generate_pointer_difference(an_expr_node *expr, a_type *wanted) {
  put(op_PVCONV, ptrdiff_type());
  put_two(op_MINUS, tp_type(wanted), expr);
  a_type *element = type_pointed_to(f_skip_typerefs(first_operand(expr)->type));
  put_icon(ptrdiff_type(), step_size(element) * static_cast<std::uint64_t>(targ_char_bit));
}

// ++ and --: the step is written as a second operand, for a pointer in bytes.
void generate_incdec(a_node_op op, an_expr_node *expr, a_type *wanted) {
  TYPE *type = tp_type(wanted);
  put(op, type);
  generate_expression(first_operand(expr));
  a_type *operand_type = f_skip_typerefs(first_operand(expr)->type);
  switch (operand_type->kind) {
    case tk_pointer:
      put_icon(basic_int(), step_size(operand_type->pointed_to));
      break;
    case tk_float: {
      NODE one(op_FCON, type);
      one.text = "1.0";
      put(one);
      break;
    }
    default:
      put_icon(type, 1);
      break;
  }
}

void generate_cast(an_expr_node *expr, a_type *wanted) {
  an_expr_node *operand = first_operand(expr);
  TYPE *type = tp_type(wanted);
  if (tp_type(operand->type) != type || operand->kind == enk_constant)
    put(is_pointer_result(wanted) ? op_PCONV : op_SCONV, type);
  generate_expression(operand);
}

void generate_lvalue_cast(an_expr_node *operand, a_type *type) {
  a_type *pointer = make_pointer_type(operand->type);
  if (tp_type(pointer) != tp_type(type))
    put(is_pointer_result(type) ? op_PCONV : op_SCONV, tp_type(type));
  generate_address(operand, pointer);
}

void generate_selection(an_expr_node *expr, bool by_pointer) {
  an_expr_node *object = first_operand(expr);
  a_field *field = second_operand(expr)->field;
  a_type *class_type = f_skip_typerefs(object->type);
  if (by_pointer) class_type = f_skip_typerefs(class_type->pointed_to);
  if (scalar_csu(class_type) != nullptr) {
    if (by_pointer) put(op_UMULT, tp_type(type_of_place(expr)));
    generate_expression(object);
    return;
  }
  tp_type(class_type);  // the numbers of the members are known from here on
  put(by_pointer ? op_STREF : op_STDOT,
      tp_type(bit_field_container_type(field, type_of_place(expr))));
  generate_expression(object);
  put_field(field, class_type);
}

void generate_assignment(an_expr_node *expr, a_type *wanted) {
  a_type *type = f_skip_typerefs(wanted);
  bool is_class = is_class_struct_union_type(type) && scalar_csu(type) == nullptr;
  put_two(is_class ? op_STASG : op_ASG, tp_type(wanted), expr);
}

void generate_struct_assign(an_expr_node *expr) {
  an_expr_node *to = first_operand(expr), *from = second_operand(expr);
  put(op_MEMCPY, type_pkg->mk_ptr(tp_type(integer_type(ik_char))));
  put(op_COMMA, basic_void());
  put(op_COMMA, basic_void());
  generate_address(to, make_pointer_type(to->type));
  generate_address(from, make_pointer_type(from->type));
  put_icon(basic_int(), f_skip_typerefs(to->type)->size);
}

void generate_conditional(an_expr_node *expr, TYPE *type) {
  put(op_QUEST, type);
  generate_expression(first_operand(expr));
  put(op_COLON, type);
  generate_expression(second_operand(expr));
  generate_expression(third_operand(expr));
}

// The address of a parameter as it came in, for the start of variable arguments.
void generate_parameter_address(an_expr_node *expr, a_type *wanted) {
  a_variable *variable = first_operand(expr)->variable;
  SYMTAB *symbol = incoming_parameter(variable);
  if (symbol == nullptr) symbol = symbol_of_variable(variable);
  put(op_UAND, tp_type(wanted));
  put_name(symbol, symbol->type);
}

a_node_op compound_op(an_expr_operator_kind op) {
  switch (op) {
    case eok_add_assign:
      return op_PLUSASG;
    case eok_subtract_assign:
      return op_MINUSASG;
    case eok_multiply_assign:
      return op_MULTASG;
    case eok_divide_assign:
      return op_DIVASG;
    case eok_remainder_assign:
      return op_MODASG;
    case eok_shift_left_assign:
      return op_SLLASG;
    case eok_shift_right_assign:
      return op_SRLASG;
    case eok_and_assign:
      return op_ANDBASG;
    case eok_or_assign:
      return op_ORBASG;
    default:
      return op_XORBASG;
  }
}

void generate_operation(an_expr_node *expr, a_type *wanted) {
  TYPE *type = tp_type(wanted);
  switch (expr->op) {
    case eok_address_of:
    case eok_array_to_pointer:
    case eok_function_to_pointer:
      generate_address(first_operand(expr), wanted);
      return;
    case eok_indirect:
    case eok_reference_indirect:
      if (wanted == expr->type) type = tp_type(type_of_place(expr));
      if (!type_has_kind(wanted, tk_routine)) put(op_UMULT, type);
      generate_expression(first_operand(expr));
      return;
    case eok_parens:
    case eok_extension:
    case eok_lvalue_to_rvalue:
      generate_expression(first_operand(expr));
      return;
    case eok_cast:
    case eok_lvalue_cast:
    case eok_lvalue_class_cast:
    case eok_lvalue_adjust:
      generate_cast(expr, wanted);
      return;
    case eok_negate:
      put(op_UMINUS, type);
      generate_expression(first_operand(expr));
      return;
    case eok_complement:
      put(op_NOTB, type);
      generate_expression(first_operand(expr));
      return;
    case eok_not:
      put(op_EXCLAIM, basic_int());
      generate_expression(first_operand(expr));
      return;
    case eok_post_incr:
      generate_incdec(op_PLUSPLUS, expr, wanted);
      return;
    case eok_post_decr:
      generate_incdec(op_MINMIN, expr, wanted);
      return;
    case eok_pre_incr:
      generate_incdec(op_PLUSASG, expr, wanted);
      return;
    case eok_pre_decr:
      generate_incdec(op_MINUSASG, expr, wanted);
      return;
    case eok_add:
      put_arithmetic(op_PLUS, type, expr);
      return;
    case eok_subtract:
      put_arithmetic(op_MINUS, type, expr);
      return;
    case eok_multiply:
      put_arithmetic(op_MULT, type, expr);
      return;
    case eok_divide:
      put_arithmetic(op_DIV, type, expr);
      return;
    case eok_remainder:
      put_arithmetic(op_MOD, type, expr);
      return;
    case eok_shift_left:
      put_arithmetic(op_SLL, type, expr);
      return;
    case eok_shift_right:
      put_arithmetic(op_SRL, type, expr);
      return;
    case eok_and:
      put_arithmetic(op_ANDB, type, expr);
      return;
    case eok_or:
      put_arithmetic(op_ORB, type, expr);
      return;
    case eok_xor:
      put_arithmetic(op_XORB, type, expr);
      return;
    case eok_ptr_add:
      generate_pointer_operation(op_PLUS, expr, wanted);
      return;
    case eok_ptr_subtract:
      generate_pointer_operation(op_MINUS, expr, wanted);
      return;
    case eok_ptr_diff:
      generate_pointer_difference(expr, wanted);
      return;
    case eok_eq:
    case eok_ne:
    case eok_gt:
    case eok_lt:
    case eok_ge:
    case eok_le:
      generate_comparison(expr);
      return;
    case eok_assign:
      generate_assignment(expr, wanted);
      return;
    case eok_add_assign:
    case eok_subtract_assign:
    case eok_multiply_assign:
    case eok_divide_assign:
    case eok_remainder_assign:
    case eok_shift_left_assign:
    case eok_shift_right_assign:
    case eok_and_assign:
    case eok_or_assign:
    case eok_xor_assign:
      put_arithmetic(compound_op(expr->op), type, expr);
      return;
    case eok_ptr_add_assign:
      generate_pointer_operation(op_PLUSASG, expr, wanted);
      return;
    case eok_ptr_subtract_assign:
      generate_pointer_operation(op_MINUSASG, expr, wanted);
      return;
    case eok_struct_assign:
      generate_struct_assign(expr);
      return;
    case eok_land:
      put_two(op_ANDAND, basic_int(), expr);
      return;
    case eok_lor:
      put_two(op_OROR, basic_int(), expr);
      return;
    case eok_comma:
      put_two(op_COMMAOP, type, expr);
      return;
    case eok_subscript:
      put(op_UMULT, type);
      generate_address(expr, make_pointer_type(wanted));
      return;
    case eok_dot_field:
      generate_selection(expr, false);
      return;
    case eok_arrow_field:
      generate_selection(expr, true);
      return;
    case eok_conditional:
    case eok_lvalue_conditional:
      generate_conditional(expr, type);
      return;
    case eok_call:
      generate_call(expr);
      return;
    case eok_gnu_address_of_label:
      generate_parameter_address(expr, wanted);
      return;
    default:
      no_row(expr);
  }
}

}  // namespace

void put_name(SYMTAB *symbol, TYPE *type) {
  if (symbol->level == 0) enter_if_new(symbol);
  NODE node(op_NAME, type);
  node.symbol = symbol;
  put(node);
}

void put_label(std::uint32_t label) {
  NODE node(op_LABEL, basic_void());
  node.number = label;
  put(node);
}

void put_icon(TYPE *type, std::uint64_t value) {
  NODE node(op_ICON, type);
  node.integer = value;
  put(node);
}

void put_lcon(TYPE *type, std::uint64_t value) {
  NODE node(op_LCON, type);
  node.integer = value;
  put(node);
}

std::uint64_t step_size(a_type *type) {
  type = f_skip_typerefs(type);
  if (type->kind == tk_void || type->kind == tk_routine) return 1;
  std::uint64_t alignment = type->alignment == 0 ? 1 : type->alignment;
  return (type->size + alignment - 1) / alignment * alignment;
}

void put_field(a_field *field, a_type *class_type) {
  TYPE *csu = tp_type(f_skip_typerefs(class_type))->stripped;
  NODE node(op_FIELD, tp_type(bit_field_container_type(field, field->type)));
  node.csu = csu;
  node.member = type_pkg->member_with_id(csu->csu, field->lowered_number);
  check_invariant(node.member != nullptr);
  put(node);
}

a_type *bit_field_container_type(a_field *field, a_type *type) {
  if (!field->is_bit_field) return type;
  a_type *declared = f_skip_typerefs(field->type);
  an_integer_kind kind = declared->int_kind;
  bool is_signed = int_kind_is_signed[kind] != 0;
  a_type *container = integer_type(kind);
  if (declared->is_bool) return type;
  if (!targ_supports_non_int_bit_field)
    container = integer_type(is_signed ? ik_int : ik_unsigned_int);
  else if (!is_signed)
    container = integer_type(static_cast<an_integer_kind>(unsigned_int_kind_of[kind]));
  a_type_qualifier_set qualifiers = get_type_qualifiers(type);
  return qualifiers == tq_none ? container : make_qualified_type(container, qualifiers);
}

void generate_address(an_expr_node *expr, a_type *pointer_type) {
  if (expr->kind == enk_constant) {
    a_constant *target = expr->constant;
    a_constant address = {};
    address.kind = ck_address;
    address.type = pointer_type;
    address.address_kind = abk_constant;
    address.address_constant = target;
    generate_constant(&address, pointer_type, false);
    return;
  }
  if (expr->kind == enk_operation) {
    switch (expr->op) {
      case eok_indirect:
      case eok_reference_indirect:
        generate_expression(first_operand(expr));
        return;
      case eok_lvalue_cast:
      case eok_lvalue_class_cast:
      case eok_lvalue_adjust:
        generate_lvalue_cast(first_operand(expr), pointer_type);
        return;
      case eok_subscript:
        generate_pointer_operation(op_PLUS, expr, pointer_type);
        return;
      case eok_parens:
      case eok_extension:
        generate_address(first_operand(expr), pointer_type);
        return;
      default:
        break;
    }
  }
  put(op_UAND, tp_type(pointer_type));
  generate_expression(expr);
}

void generate_expression(an_expr_node *expr, a_type *wanted_type) {
  a_type *wanted = wanted_type != nullptr ? wanted_type : expr->type;
  switch (expr->kind) {
    case enk_operation:
      generate_operation(expr, wanted);
      return;
    case enk_constant:
      generate_constant(expr->constant, wanted, false);
      return;
    case enk_variable: {
      a_variable *variable = expr->variable;
      if (variable->storage_class == sc_static && variable->is_local_to_routine &&
          !variable->is_promoted_local_static)
        promote_local_static(variable, current_routine);
      put_name(symbol_of_variable(variable), tp_type(type_of_place(expr)));
      return;
    }
    case enk_routine: {
      SYMTAB *symbol = symbol_of_routine(expr->routine);
      if (!expr->is_lvalue) put(op_UAND, tp_type(wanted));
      enter_if_new(symbol);
      put_name(symbol, tp_type(expr->routine->type));
      return;
    }
    default:
      no_row(expr);
  }
}
