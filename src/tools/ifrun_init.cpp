// Initial values: a stream of value nodes walks the type of the variable.
//
// The walk keeps the open aggregates on a stack. A value goes to the next scalar in order, opening
// aggregates on the way. FIELD moves to a member; SKIP closes the innermost aggregate whose
// remaining parts have that many bytes; what gets no value stays zero.
#include <algorithm>
#include <vector>

#include "tools/ifrun_machine.h"

namespace {

struct an_open_aggregate {
  const TYPE *type;                 // stripped; an array, struct or union
  std::uint64_t bit_offset;         // from the start of the variable
  std::uint64_t index = 0;          // array: element that comes next
  const fkMDATA *member = nullptr;  // struct: member that comes next; union: its first one
};

struct a_place_for_value {
  const TYPE *type;
  std::uint64_t bit_offset;
  const fkMDATA *member;  // of a bit-field, else null
};

bool is_aggregate(const TYPE *type) {
  return type->stripped->kind == TYPE::ARRAY || type->stripped->is_class_kind();
}

class a_walk {
 public:
  explicit a_walk(const TYPE *type) : root(type) {}

  a_place_for_value next_place() {
    for (;;) {
      close_finished();  // also a class without members, when it was just opened
      a_place_for_value place = next_part();
      if (!is_aggregate(place.type)) return place;
      open(place);
    }
  }

  // The class is one that is open and not full yet; else the next one in order; else one that is
  // full already and gets a value once more.
  void move_to(const TYPE *csu, const fkMDATA *member) {
    csu = csu->stripped;
    if (return_to(csu, member, false)) return;
    std::vector<an_open_aggregate> before = stack;
    if (open_next(csu)) {
      stack.back().member = member;
      return;
    }
    stack = before;
    if (!return_to(csu, member, true))
      bad_file("an initial value moves to a member out of its place");
  }

  void skip(std::uint64_t bytes) {
    for (std::size_t i = stack.size(); i-- > 0;) {
      if (remaining_bytes(stack[i]) != bytes) continue;
      stack.resize(i);
      return;
    }
    // The aggregate was not opened yet: it is skipped whole.
    for (;;) {
      close_finished();
      a_place_for_value place = next_part();
      if (place.type->stripped->size_in_bytes() == bytes) return;
      if (!is_aggregate(place.type)) bad_file("an initial value skips what is not there");
      open(place);
    }
  }

 private:
  bool return_to(const TYPE *csu, const fkMDATA *member, bool even_if_full) {
    for (std::size_t i = stack.size(); i-- > 0;) {
      if (stack[i].type != csu || (is_finished(stack[i]) && !even_if_full)) continue;
      stack.resize(i + 1);
      stack[i].member = member;
      return true;
    }
    return false;
  }

  // Opens what comes next down to the class; false: it does not begin there.
  bool open_next(const TYPE *csu) {
    close_finished();
    if (stack.empty() && root_taken) return false;
    do {
      a_place_for_value place = next_part();
      if (!is_aggregate(place.type)) return false;
      open(place);
    } while (stack.back().type != csu);
    return true;
  }

  // Takes the next part of the innermost open aggregate, or the variable itself.
  a_place_for_value next_part() {
    if (stack.empty()) {
      if (root_taken) bad_file("more initial values than the variable has parts");
      root_taken = true;
      return {root, 0, nullptr};
    }
    an_open_aggregate &top = stack.back();
    if (top.type->kind == TYPE::ARRAY) {
      const TYPE *element = top.type->component;
      std::uint64_t offset = top.bit_offset + top.index * element->stripped->size;
      top.index++;
      return {element, offset, nullptr};
    }
    const fkMDATA *member = top.member;
    if (member == nullptr) bad_file("more initial values than a class has members");
    top.member = top.type->kind == TYPE::UNION ? nullptr : member->next;
    return {member->type, top.bit_offset + static_cast<std::uint64_t>(member->bit_offset),
            member->is_bit_field ? member : nullptr};
  }

  void open(const a_place_for_value &place) {
    an_open_aggregate aggregate{place.type->stripped, place.bit_offset};
    if (aggregate.type->is_class_kind()) aggregate.member = aggregate.type->csu->data_members.head;
    stack.push_back(aggregate);
  }

  static bool is_finished(const an_open_aggregate &aggregate) {
    if (aggregate.type->kind == TYPE::ARRAY)
      return aggregate.type->array_is_complete &&
             aggregate.index >= static_cast<std::uint64_t>(aggregate.type->element_count);
    return aggregate.member == nullptr;
  }

  void close_finished() {
    while (!stack.empty() && is_finished(stack.back()))
      stack.pop_back();
  }

  static std::uint64_t remaining_bytes(const an_open_aggregate &aggregate) {
    const TYPE *type = aggregate.type;
    if (type->kind == TYPE::ARRAY)
      return (static_cast<std::uint64_t>(type->element_count) - aggregate.index) *
             type->component->stripped->size_in_bytes();
    if (type->kind == TYPE::UNION) return aggregate.member != nullptr ? type->size_in_bytes() : 0;
    std::uint64_t bytes = 0;
    for (const fkMDATA *member = aggregate.member; member != nullptr; member = member->next)
      bytes += member->type->stripped->size_in_bytes();
    return bytes;
  }

  const TYPE *root;
  bool root_taken = false;
  std::vector<an_open_aggregate> stack;
};

}  // namespace

namespace {

// Calls take(node, place) for each value.
template <class T>
void for_each_value(const an_if_init &init, T take) {
  a_walk walk(init.symbol->type);
  for (const NODE *node : init.values) {
    if (node->op == op_FIELD)
      walk.move_to(node->csu, node->member);
    else if (node->op == op_SKIP)
      walk.skip(node->number);
    else
      take(node, walk.next_place());
  }
}

}  // namespace

std::uint32_t a_machine::size_of_initial_value(const an_if_init &init) {
  std::uint64_t bits = 0;
  for_each_value(init, [&](const NODE *, const a_place_for_value &place) {
    bits = std::max(bits, place.bit_offset + place.type->stripped->size);
  });
  return static_cast<std::uint32_t>((bits + 7) / 8);
}

void a_machine::fill_initial_value(const an_if_init &init) {
  std::uint32_t base = place_of(init.symbol);
  for_each_value(init, [&](const NODE *node, const a_place_for_value &place) {
    an_xnode *x = prepare_tree(node, nullptr);
    a_shape shape = shape_of(place.type);
    a_value value = convert(evaluate(x), x->shape, shape);
    if (place.member != nullptr) {
      an_xnode field;
      field.shape = shape;
      field.is_bit_field = true;
      field.bit_width = static_cast<std::uint8_t>(place.member->bit_width);
      field.bit_offset = place.bit_offset;
      store_bits(base, &field, value);
    } else {
      std::uint32_t address = base + static_cast<std::uint32_t>(place.bit_offset / 8);
      memory.store_value(address, shape, value);
    }
  });
}
