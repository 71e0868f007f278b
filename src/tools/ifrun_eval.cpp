// Evaluation of trees: places, values, operators.
#include <cmath>
#include <cstring>

#include "tools/ifrun_machine.h"

void a_machine::count_step() {
  if (limit != 0 && taken >= limit)
    throw a_run_error(status_limit, "the instruction budget is used up");
  taken++;
}

// The address of a place. A bit-field has none: its callers take the base and the field apart.
std::uint32_t a_machine::place(an_xnode *node) {
  switch (node->op) {
    case op_NAME:
      if (node->name_kind == an_xnode::global_name) return node->address;
      if (node->name_kind == an_xnode::local_name)
        return frame->base + static_cast<std::uint32_t>(node->offset);
      if (node->name_kind == an_xnode::parameter_name)
        return frame->arguments + static_cast<std::uint32_t>(node->offset);
      return address_of_callee(node->callee);
    case op_UMULT: {
      std::uint32_t address = static_cast<std::uint32_t>(evaluate(node->left).i);
      if (check_alignment && (address & (node->shape.align - 1)) != 0 && node->shape.align <= 8) {
        char text[80];
        std::snprintf(text, sizeof text, "access at address 0x%x, which is not aligned to %u bytes",
                      address, node->shape.align);
        fault(text);
      }
      return address;
    }
    case op_STDOT:
    case op_STREF: {
      std::uint32_t base = node->op == op_STDOT
                               ? place(node->left)
                               : static_cast<std::uint32_t>(evaluate(node->left).i);
      return base + static_cast<std::uint32_t>(node->bit_offset / 8);
    }
    case op_COMMAOP:
      evaluate(node->left);
      return place(node->right);
    case op_QUEST:
      return place(evaluate(node->left).i != 0 ? node->right->left : node->right->right);
    case op_STASG:
    case op_ARASG:
      return copy_class(node);
    case op_ASG:
      if (node->left->shape.vclass == vc_class) return copy_class(node);
      break;
    case op_SCON:
      return node->address;
    case op_CALL:
    case op_UCALL:
      if (node->shape.vclass == vc_class) return static_cast<std::uint32_t>(evaluate(node).i);
      break;
    case op_STARG:
      return place(node->left);
    default:
      break;
  }
  bad_file("something that is no place is used as one");
}

// A bit-field lies at its bit offset from the class start; bit 0 of a byte is the most significant
// one on a big-endian target.
a_value a_machine::load_bits(std::uint32_t base, const an_xnode *field) {
  std::uint64_t value = 0;
  std::uint64_t first = field->bit_offset;
  unsigned width = field->bit_width;
  for (unsigned i = 0; i < width; i++) {
    std::uint64_t bit = first + i;
    std::uint64_t byte = memory.load(base + static_cast<std::uint32_t>(bit / 8), 1);
    if (memory.big_endian)
      value = value << 1 | (byte >> (7 - bit % 8) & 1);
    else
      value |= (byte >> (bit % 8) & 1) << i;
  }
  if (field->shape.is_signed && width < 64 && width != 0) {
    value <<= 64 - width;
    value = static_cast<std::uint64_t>(static_cast<std::int64_t>(value) >> (64 - width));
  }
  return int_value(value);
}

void a_machine::store_bits(std::uint32_t base, const an_xnode *field, a_value value) {
  std::uint64_t first = field->bit_offset;
  unsigned width = field->bit_width;
  for (unsigned i = 0; i < width; i++) {
    std::uint64_t bit = first + i;
    std::uint32_t address = base + static_cast<std::uint32_t>(bit / 8);
    std::uint64_t byte = memory.load(address, 1);
    unsigned shift = memory.big_endian ? 7 - bit % 8 : bit % 8;
    std::uint64_t bit_value = memory.big_endian ? value.i >> (width - 1 - i) & 1 : value.i >> i & 1;
    memory.store(address, 1, (byte & ~(std::uint64_t{1} << shift)) | bit_value << shift);
  }
}

static bool is_bit_field_place(const an_xnode *node) {
  return (node->op == op_STDOT || node->op == op_STREF) && node->is_bit_field;
}

// An assignment to a bit-field needs the base once: the place of the class.
static an_xnode *without_commas(a_machine *machine, an_xnode *node) {
  while (node->op == op_COMMAOP) {
    machine->evaluate(node->left);
    node = node->right;
  }
  return node;
}

a_value a_machine::load_place(an_xnode *node) {
  if (is_bit_field_place(node)) {
    std::uint32_t base = node->op == op_STDOT ? place(node->left)
                                              : static_cast<std::uint32_t>(evaluate(node->left).i);
    return load_bits(base, node);
  }
  return memory.load_value(place(node), node->shape);
}

void a_machine::store_place(an_xnode *node, a_value value) {
  node = without_commas(this, node);
  if (is_bit_field_place(node)) {
    std::uint32_t base = node->op == op_STDOT ? place(node->left)
                                              : static_cast<std::uint32_t>(evaluate(node->left).i);
    store_bits(base, node, value);
    return;
  }
  memory.store_value(place(node), node->shape, value);
}

static std::uint64_t divide(std::uint64_t a, std::uint64_t b, const a_shape &shape, bool rest) {
  if (b == 0) fault("division by zero");
  if (!shape.is_signed) return rest ? a % b : a / b;
  std::int64_t x = static_cast<std::int64_t>(a), y = static_cast<std::int64_t>(b);
  if (y == -1) return rest ? 0 : 0 - a;
  return static_cast<std::uint64_t>(rest ? x % y : x / y);
}

static std::uint64_t shift(std::uint64_t a, std::uint64_t count, const a_shape &shape, bool left,
                           const a_shape &count_shape) {
  unsigned bits = 8u * shape.bytes;
  if ((count_shape.is_signed && static_cast<std::int64_t>(count) < 0) || count >= bits)
    fault("shift by more bits than the operand has");
  if (left) return a << count;
  return shape.is_signed ? static_cast<std::uint64_t>(static_cast<std::int64_t>(a) >> count)
                         : a >> count;
}

// Both operands have the shape already, but for the count of a shift.
a_value a_machine::arithmetic(a_node_op op, a_value a, a_value b, const a_shape &shape,
                              const a_shape &right_shape) {
  if (shape.vclass == vc_float || shape.vclass == vc_double) {
    double r;
    switch (op) {
      case op_PLUS:
        r = a.f + b.f;
        break;
      case op_MINUS:
        r = a.f - b.f;
        break;
      case op_MULT:
        r = a.f * b.f;
        break;
      case op_DIV:
        r = a.f / b.f;
        break;
      default:
        bad_file("an integer operator on floating operands");
    }
    return float_value(shape.vclass == vc_float ? static_cast<float>(r) : r);
  }
  if (shape.vclass != vc_int) bad_file("an arithmetic operator on operands of another kind");
  std::uint64_t r;
  switch (op) {
    case op_PLUS:
      r = a.i + b.i;
      break;
    case op_MINUS:
      r = a.i - b.i;
      break;
    case op_MULT:
      r = a.i * b.i;
      break;
    case op_DIV:
      r = divide(a.i, b.i, shape, false);
      break;
    case op_MOD:
      r = divide(a.i, b.i, shape, true);
      break;
    case op_ANDB:
      r = a.i & b.i;
      break;
    case op_ORB:
      r = a.i | b.i;
      break;
    case op_XORB:
      r = a.i ^ b.i;
      break;
    case op_SLL:
      r = shift(a.i, b.i, shape, true, right_shape);
      break;
    case op_SRL:
      r = shift(a.i, b.i, shape, false, right_shape);
      break;
    default:
      bad_file("an operator that has no meaning here");
  }
  return int_value(fit_integer(r, shape));
}

a_value a_machine::evaluate_binary(an_xnode *node) {
  a_value a = evaluate(node->left);
  a_value b = evaluate(node->right);
  bool is_shift = node->op == op_SLL || node->op == op_SRL;
  // The front end wrote the conversions; a difference of width is left only where it cannot matter.
  if (node->left->shape.vclass != node->shape.vclass)
    a = convert(a, node->left->shape, node->shape);
  if (!is_shift && node->right->shape.vclass != node->shape.vclass)
    b = convert(b, node->right->shape, node->shape);
  return arithmetic(node->op, a, b, node->shape, node->right->shape);
}

a_value a_machine::compare(an_xnode *node) {
  a_value a = evaluate(node->left);
  a_value b = evaluate(node->right);
  auto sa = [&] { return static_cast<std::int64_t>(a.i); };
  auto sb = [&] { return static_cast<std::int64_t>(b.i); };
  bool floats = node->left->shape.vclass == vc_float || node->left->shape.vclass == vc_double;
  if (floats != (node->op >= op_FEQ)) bad_file("a comparison of another kind than its operands");
  bool r;
  switch (node->op) {
    case op_EQ:
      r = a.i == b.i;
      break;
    case op_NEQ:
      r = a.i != b.i;
      break;
    case op_LE:
      r = sa() <= sb();
      break;
    case op_LT:
      r = sa() < sb();
      break;
    case op_GE:
      r = sa() >= sb();
      break;
    case op_GT:
      r = sa() > sb();
      break;
    case op_ULE:
      r = a.i <= b.i;
      break;
    case op_ULT:
      r = a.i < b.i;
      break;
    case op_UGE:
      r = a.i >= b.i;
      break;
    case op_UGT:
      r = a.i > b.i;
      break;
    case op_FEQ:
      r = a.f == b.f;
      break;
    case op_FNEQ:
      r = a.f < b.f || a.f > b.f;
      break;
    case op_FLE:
      r = a.f <= b.f;
      break;
    case op_FLT:
      r = a.f < b.f;
      break;
    case op_FGE:
      r = a.f >= b.f;
      break;
    case op_FGT:
      r = a.f > b.f;
      break;
    case op_FEQN:
      r = !(a.f < b.f || a.f > b.f);
      break;
    case op_FNEQN:
      r = a.f != b.f;
      break;
    case op_FLEN:
      r = !(a.f > b.f);
      break;
    case op_FLTN:
      r = !(a.f >= b.f);
      break;
    case op_FGEN:
      r = !(a.f < b.f);
      break;
    case op_FGTN:
      r = !(a.f <= b.f);
      break;
    case op_FORD:
      r = !std::isunordered(a.f, b.f);
      break;
    default:
      r = std::isunordered(a.f, b.f);
      break;
  }
  return int_value(r);
}

// The place is found once; the arithmetic is done in the work shape.
a_value a_machine::compound_assign(an_xnode *node, a_node_op op) {
  an_xnode *target = without_commas(this, node->left);
  bool bits = is_bit_field_place(target);
  std::uint32_t base;
  if (bits)
    base = target->op == op_STDOT ? place(target->left)
                                  : static_cast<std::uint32_t>(evaluate(target->left).i);
  else
    base = place(target);
  a_value right = evaluate(node->right);
  a_value old = bits ? load_bits(base, target) : memory.load_value(base, target->shape);
  a_value left = convert(old, target->shape, node->work_shape);
  if (op != op_SLL && op != op_SRL) right = convert(right, node->right->shape, node->work_shape);
  a_value result = arithmetic(op, left, right, node->work_shape, node->right->shape);
  result = convert(result, node->work_shape, target->shape);
  if (bits) {
    store_bits(base, target, result);
    return load_bits(base, target);
  }
  memory.store_value(base, target->shape, result);
  return result;
}

// x++ and x--: the value is the old one.
a_value a_machine::step_after(an_xnode *node, bool up) {
  an_xnode *target = without_commas(this, node->left);
  bool bits = is_bit_field_place(target);
  std::uint32_t base;
  if (bits)
    base = target->op == op_STDOT ? place(target->left)
                                  : static_cast<std::uint32_t>(evaluate(target->left).i);
  else
    base = place(target);
  a_value old = bits ? load_bits(base, target) : memory.load_value(base, target->shape);
  a_value one = evaluate(node->right);
  a_value result;
  if (target->shape.vclass == vc_int) {
    result = int_value(fit_integer(up ? old.i + one.i : old.i - one.i, target->shape));
    if (target->shape.is_bool) result = int_value(up ? 1 : old.i == 0);
  } else {
    one = convert(one, node->right->shape, target->shape);
    result = arithmetic(up ? op_PLUS : op_MINUS, old, one, target->shape, target->shape);
  }
  if (bits)
    store_bits(base, target, result);
  else
    memory.store_value(base, target->shape, result);
  return old;
}

// Gives the place of the target, which is found once.
std::uint32_t a_machine::copy_class(an_xnode *node) {
  std::uint32_t from = static_cast<std::uint32_t>(evaluate(node->right).i);
  std::uint32_t to = place(node->left);
  std::uint32_t size = node->left->shape.size;
  if (node->right->shape.vclass != vc_class) bad_file("a class is assigned something else");
  memory.readable_range(from, size);
  std::uint8_t *target = memory.writable_range(to, size);
  std::memmove(target, memory.raw(from), size);
  return to;
}

a_value a_machine::conversion(an_xnode *node) {
  a_value value = evaluate(node->left);
  const a_shape &from = node->left->shape;
  if (node->shape.vclass == vc_void) return value;
  bool scalar = from.vclass == vc_int || from.vclass == vc_float || from.vclass == vc_double;
  if (scalar) return convert(value, from, node->shape);
  // An array or a routine becomes a pointer; a class keeps its place.
  if (node->shape.vclass == vc_int && (from.vclass == vc_class || from.vclass == vc_function))
    return int_value(fit_integer(value.i, node->shape));
  if (node->shape.vclass == vc_class && from.vclass == vc_class) return value;
  bad_file("a conversion between kinds that have none");
}

a_value a_machine::evaluate(an_xnode *node) {
  switch (node->op) {
    case op_NAME:
      if (node->name_kind == an_xnode::routine_name)
        return int_value(address_of_callee(node->callee));
      return memory.load_value(place(node), node->shape);
    case op_UMULT:
      if (node->shape.vclass == vc_function) return evaluate(node->left);
      return memory.load_value(place(node), node->shape);
    case op_STDOT:
    case op_STREF:
      return load_place(node);
    case op_ICON:
    case op_LCON:
    case op_FCON:
      return node->constant;
    case op_SCON:
      return int_value(node->address);
    case op_UAND:
      return int_value(place(node->left));
    case op_PLUS:
    case op_MINUS:
    case op_MULT:
    case op_DIV:
    case op_MOD:
    case op_ANDB:
    case op_ORB:
    case op_XORB:
    case op_SLL:
    case op_SRL:
      return evaluate_binary(node);
    case op_PLUSASG:
      return compound_assign(node, op_PLUS);
    case op_MINUSASG:
      return compound_assign(node, op_MINUS);
    case op_MULTASG:
      return compound_assign(node, op_MULT);
    case op_DIVASG:
      return compound_assign(node, op_DIV);
    case op_MODASG:
      return compound_assign(node, op_MOD);
    case op_ANDBASG:
      return compound_assign(node, op_ANDB);
    case op_ORBASG:
      return compound_assign(node, op_ORB);
    case op_XORBASG:
      return compound_assign(node, op_XORB);
    case op_SLLASG:
      return compound_assign(node, op_SLL);
    case op_SRLASG:
      return compound_assign(node, op_SRL);
    case op_PLUSPLUS:
      return step_after(node, true);
    case op_MINMIN:
      return step_after(node, false);
    case op_UMINUS: {
      a_value v = evaluate(node->left);
      if (node->shape.vclass == vc_int) return int_value(fit_integer(0 - v.i, node->shape));
      return float_value(-v.f);
    }
    case op_NOTB:
      return int_value(fit_integer(~evaluate(node->left).i, node->shape));
    case op_EXCLAIM: {
      a_value v = evaluate(node->left);
      bool is_float = node->left->shape.vclass == vc_float || node->left->shape.vclass == vc_double;
      return int_value(is_float ? v.f == 0 : v.i == 0);
    }
    case op_ANDAND:
    case op_OROR: {
      a_shape truth;
      truth.vclass = vc_int;
      truth.bytes = 1;
      truth.is_bool = true;
      bool first = convert(evaluate(node->left), node->left->shape, truth).i != 0;
      if (first == (node->op == op_OROR)) return int_value(first);
      return convert(evaluate(node->right), node->right->shape, truth);
    }
    case op_QUEST: {
      a_value condition = evaluate(node->left);
      const a_shape &shape = node->left->shape;
      bool holds = shape.vclass == vc_int ? condition.i != 0 : condition.f != 0;
      return evaluate(holds ? node->right->left : node->right->right);
    }
    case op_COMMAOP:
    case op_PCOMMA:
      evaluate(node->left);
      return evaluate(node->right);
    case op_ASG: {
      a_value value = evaluate(node->right);
      an_xnode *target = node->left;
      if (target->shape.vclass == vc_class) return int_value(copy_class(node));
      value = convert(value, node->right->shape, target->shape);
      store_place(target, value);
      if (target->is_bit_field) {
        unsigned unused = 64u - target->bit_width;
        value.i <<= unused;
        value.i = target->shape.is_signed
                      ? static_cast<std::uint64_t>(static_cast<std::int64_t>(value.i) >> unused)
                      : value.i >> unused;
      }
      return value;
    }
    case op_STASG:
    case op_ARASG:
      return int_value(copy_class(node));
    case op_STARG:
      return int_value(place(node->left));
    case op_ARGREF:
      return int_value(place(node->left));
    case op_SCONV:
    case op_PCONV:
    case op_ACONV:
      return conversion(node);
    case op_PMCONV: {
      std::uint64_t bits = evaluate(node->right).i;
      return int_value(fit_integer(evaluate(node->left).i * (bits / 8), node->shape));
    }
    case op_PVCONV: {
      std::int64_t distance =
          static_cast<std::int64_t>(fit_integer(evaluate(node->left).i, node->shape));
      std::int64_t bits = static_cast<std::int64_t>(evaluate(node->right).i);
      if (bits < 8) fault("difference of pointers to objects without size");
      return int_value(fit_integer(static_cast<std::uint64_t>(distance / (bits / 8)), node->shape));
    }
    case op_EQ:
    case op_NEQ:
    case op_LE:
    case op_LT:
    case op_GE:
    case op_GT:
    case op_ULE:
    case op_ULT:
    case op_UGE:
    case op_UGT:
    case op_FEQ:
    case op_FNEQ:
    case op_FLE:
    case op_FLT:
    case op_FGE:
    case op_FGT:
    case op_FEQN:
    case op_FNEQN:
    case op_FLEN:
    case op_FLTN:
    case op_FGEN:
    case op_FGTN:
    case op_FORD:
    case op_FUNO:
      return compare(node);
    case op_CALL:
    case op_UCALL:
      count_step();
      return evaluate_call(node);
    case op_MEMCPY:
    case op_ABS:
    case op_SQRT:
    case op_ICALL:
    case op_UICALL:
    case op_MCALL:
    case op_UMCALL:
      return intrinsic(node);
    case op_NOP:
    case op_ASSERT:
    case op_NASSERT:
      return int_value(0);
    default:
      bad_file(std::string("node ") + if_node_info[node->op].name + " cannot be run");
  }
}
