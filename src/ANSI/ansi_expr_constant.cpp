// Constants as value nodes, and local initializations.
//
// The value nodes of an aggregate walk its type in order. FIELD moves to a member, SKIP leaves the
// rest of the innermost aggregate zero. Designators were put in order before, so that a later
// element never stands in front of an earlier one.
#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "il/il.h"
#include "semantics/float_pt.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

void put_skip(std::uint64_t bytes) {
  if (bytes == 0) return;
  NODE node(op_SKIP, basic_int());
  node.number = static_cast<std::uint32_t>(bytes);
  put(node);
}

void put_conversion(a_type *type) {
  put(type_has_kind(type, tk_pointer) ? op_PCONV : op_SCONV, tp_type(type));
}

void generate_integer(const a_constant *constant) {
  a_type *type = f_skip_typerefs(constant->type);
  TYPE *node_type;
  if (type->kind == tk_integer) {
    node_type = tp_type(constant->type);
    if (node_type->stripped->kind == TYPE::ENUM) node_type = node_type->stripped->component;
  } else {  // a pointer made from a number
    put_conversion(constant->type);
    node_type = type_pkg->basic_types[TYPE::UINT];
  }
  put_lcon(node_type, constant->integer_value);
}

void generate_float(const a_constant *constant) {
  a_type *type = f_skip_typerefs(constant->type);
  NODE node(op_FCON, tp_type(constant->type));
  node.text = type_pkg->keep_text(fp_to_string(type->float_kind, &constant->float_value));
  put(node);
}

std::uint64_t string_element(const a_constant *constant, std::uint64_t index, unsigned size) {
  const unsigned char *text =
      reinterpret_cast<const unsigned char *>(constant->string_text) + index * size;
  std::uint64_t value = 0;
  for (unsigned i = 0; i < size; i++)
    value = value << 8 | text[targ_little_endian ? size - 1 - i : i];
  return value;
}

// A string as the value of an array: an element after the other.
void generate_string_elements(const a_constant *constant, a_type *wanted) {
  a_type *array = f_skip_typerefs(wanted != nullptr ? wanted : constant->type);
  a_type *own = f_skip_typerefs(constant->type);
  a_type *element = own->element_type;
  TYPE *element_type = tp_type(f_skip_typerefs(element));
  unsigned size = static_cast<unsigned>(f_skip_typerefs(element)->size);
  std::uint64_t count = constant->string_length / size;
  std::uint64_t room =
      array->kind == tk_array && array->number_of_elements != 0 ? array->number_of_elements : count;
  for (std::uint64_t i = 0; i < count && i < room; i++)
    put_icon(element_type, string_element(constant, i, size));
  if (room > count) put_skip((room - count) * size);
}

void generate_address_target(const a_constant *constant, TYPE *pointer) {
  switch (constant->address_kind) {
    case abk_constant: {
      const a_constant *target = constant->address_constant;
      check_invariant(target->kind == ck_string);
      NODE node(op_SCON, pointer);
      node.text = target->string_text;
      node.length = static_cast<std::uint32_t>(target->string_length);
      put(node);
      return;
    }
    case abk_variable: {
      a_variable *variable = constant->address_variable;
      if (variable->storage_class == sc_static && variable->is_local_to_routine &&
          !variable->is_promoted_local_static)
        promote_local_static(variable, variable->enclosing_routine != nullptr
                                           ? variable->enclosing_routine
                                           : current_routine);
      put(op_UAND, pointer);
      put_name(symbol_of_variable(variable), tp_type(variable->type));
      return;
    }
    case abk_routine:
      put(op_UAND, pointer);
      put_name(symbol_of_routine(constant->address_routine),
               tp_type(constant->address_routine->type));
      return;
    default:
      unexpected_state("an address of something that the file cannot name");
  }
}

// The natural pointer to the target: where the constant has another type, it is converted.
a_type *type_of_target(const a_constant *constant) {
  switch (constant->address_kind) {
    case abk_variable:
      return constant->address_variable->type;
    case abk_routine:
      return constant->address_routine->type;
    default:
      return constant->address_constant->type;
  }
}

void generate_address_constant(const a_constant *constant) {
  a_type *target = type_of_target(constant);
  a_type *type = f_skip_typerefs(constant->type);
  TYPE *pointer = tp_type(make_pointer_type(target));
  bool is_pointer = type->kind == tk_pointer;
  a_type *array = f_skip_typerefs(target);
  bool is_element = array->kind == tk_array && is_pointer &&
                    identical_types_ignoring_qualifiers(array->element_type, type->pointed_to);
  if (is_element)
    pointer = tp_type(constant->type);
  else if (!is_pointer || tp_type(constant->type) != pointer)
    put_conversion(constant->type);
  if (constant->address_offset != 0) put(op_PLUS, pointer);
  generate_address_target(constant, pointer);
  if (constant->address_offset != 0)
    put_lcon(tp_type(integer_type(targ_ptrdiff_t_int_kind)),
             static_cast<std::uint64_t>(constant->address_offset));
}

std::uint64_t initial_value_size(a_type *type) {
  return f_skip_typerefs(type)->size;
}

void generate_array_elements(const a_constant *constant, a_type *array) {
  std::uint64_t given = 0;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    check_invariant(e->kind != ck_designator);
    std::uint64_t repeat = 1;
    a_constant *element = e;
    if (e->kind == ck_repeat) {
      repeat = e->repeat_count;
      element = e->repeat_element;
    }
    for (std::uint64_t i = 0; i < repeat; i++)
      generate_constant(element, array->element_type, true);
    given += repeat;
  }
  std::uint64_t count = array->is_incomplete ? 0 : array->number_of_elements;
  if (count > given) put_skip((count - given) * initial_value_size(array->element_type));
}

bool takes_no_value(const a_field *field) {
  return field->is_bit_field && field->name == nullptr;
}

a_field *next_with_value(a_field *field) {
  while (field != nullptr && takes_no_value(field))
    field = field->next;
  return field;
}

void generate_class_elements(const a_constant *constant, a_type *type) {
  tp_type(type);
  a_field *field = next_with_value(type->fields);
  bool is_union = type->kind == tk_union;
  bool any = false;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    if (e->kind == ck_designator) {
      check_invariant(e->designator_is_field);
      field = e->designator_field;
      if (!field->is_bit_field && !is_union) put_field(field, type);
      continue;
    }
    check_invariant(field != nullptr);
    if (field->is_bit_field || is_union) put_field(field, type);
    generate_constant(e, field->type, true);
    any = true;
    field = is_union ? nullptr : next_with_value(field->next);
  }
  if (is_union) {
    if (!any) put_skip(type->size);
    return;
  }
  std::uint64_t rest = 0;
  for (; field != nullptr; field = next_with_value(field->next))
    rest += initial_value_size(field->type);
  put_skip(rest);
}

void generate_aggregate(const a_constant *constant, a_type *wanted) {
  a_type *type = f_skip_typerefs(wanted != nullptr ? wanted : constant->type);
  if (type->kind == tk_array) {
    generate_array_elements(constant, type);
  } else if (is_class_struct_union_type(type)) {
    if (a_type *scalar = scalar_csu(type))
      generate_constant(constant->first_element, scalar, true);
    else
      generate_class_elements(constant, type);
  } else {
    generate_constant(constant->first_element, type, true);
  }
}

bool is_all_zero(const a_constant *constant) {
  switch (constant->kind) {
    case ck_integer:
      return constant->integer_value == 0;
    case ck_string:
      for (std::uint64_t i = 0; i < constant->string_length; i++)
        if (constant->string_text[i] != 0) return false;
      return true;
    case ck_aggregate:
      for (const a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list)
        if (e->kind != ck_designator && !is_all_zero(e)) return false;
      return true;
    case ck_repeat:
      return is_all_zero(constant->repeat_element);
    default:
      return false;
  }
}

// memset(&variable, 0, size)
void generate_zeroing(a_variable *variable) {
  SYMTAB *symbol = symbol_of_variable(variable);
  TYPE *pointer = type_pkg->void_pointer_type;
  start_expression();
  NODE call(op_CALL, pointer);
  call.num_vargs = 0;
  put(call);
  SYMTAB *callee = symbol_of_memset();
  put(op_UAND, type_pkg->mk_ptr(callee->type));
  put_name(callee, callee->type);
  put(op_COMMA, basic_void());
  put(op_COMMA, basic_void());
  put(op_PCONV, pointer);
  put(op_UAND, type_pkg->mk_ptr(symbol->type));
  put_name(symbol, symbol->type);
  put_lcon(basic_int(), 0);
  put_lcon(type_pkg->basic_types[TYPE::UINT], f_skip_typerefs(variable->type)->size);
}

// A constant of an aggregate stands in a constant static of its own, which is copied.
void generate_copy_of_constant(a_variable *variable, a_constant *constant, a_node_op op) {
  a_variable *copy = alloc_variable(sc_static);
  copy->name = variable->name;
  copy->type = make_qualified_type(variable->type, tq_const);
  copy->decl_position = variable->decl_position;
  copy->init_kind = init_constant;
  copy->initializer.constant = constant;
  copy->needed = true;
  promote_local_static(copy, current_routine);
  TYPE *type = tp_type(variable->type);
  start_expression();
  put(op, type);
  put_name(symbol_of_variable(variable), type);
  put_name(symbol_of_variable(copy), tp_type(copy->type));
}

}  // namespace

void generate_constant(a_constant *constant, a_type *wanted_type, bool in_initial_value) {
  bool converted = constant->came_from_cast && constant->kind != ck_address &&
                   constant->kind != ck_ptr_to_member && constant->kind != ck_integer &&
                   constant->kind != ck_float && constant->kind != ck_string;
  if (converted) put_conversion(constant->type);
  switch (constant->kind) {
    case ck_integer:
      generate_integer(constant);
      return;
    case ck_float:
      generate_float(constant);
      return;
    case ck_string:
      if (in_initial_value) {
        generate_string_elements(constant, wanted_type);
      } else {
        // A string where its place is wanted, as the operand of a subscript that was not folded.
        NODE node(op_SCON, tp_type(constant->type));
        node.text = constant->string_text;
        node.length = static_cast<std::uint32_t>(constant->string_length);
        put(node);
      }
      return;
    case ck_address:
      generate_address_constant(constant);
      return;
    case ck_aggregate:
      generate_aggregate(constant, wanted_type);
      return;
    case ck_repeat:
      for (std::uint64_t i = 0; i < constant->repeat_count; i++)
        generate_constant(constant->repeat_element, wanted_type, in_initial_value);
      return;
    default:
      unexpected_state(constant_kind_names[constant->kind]);
  }
}

void generate_dynamic_init(a_dynamic_init *init) {
  a_variable *variable = init->variable;
  check_invariant(variable != nullptr);
  a_type *type = f_skip_typerefs(variable->type);
  bool is_array = type->kind == tk_array;
  bool is_class = is_class_struct_union_type(type) && scalar_csu(type) == nullptr;
  a_node_op op = is_array ? op_ARASG : is_class ? op_STASG : op_ASG;
  TYPE *node_type = tp_type(variable->type);
  switch (init->kind) {
    case dik_none:
      return;
    case dik_zero:
      generate_zeroing(variable);
      return;
    case dik_constant:
    case dik_aggregate:
      if (!is_array && !is_class) break;
      if (is_all_zero(init->constant))
        generate_zeroing(variable);
      else
        generate_copy_of_constant(variable, init->constant, op);
      return;
    case dik_expression:
      break;
    default:
      unexpected_state(dynamic_init_kind_names[init->kind]);
  }
  start_expression();
  put(op, node_type);
  put_name(symbol_of_variable(variable), node_type);
  if (init->kind == dik_expression)
    generate_expression(init->expr);
  else
    generate_constant(init->constant, variable->type, false);
}
