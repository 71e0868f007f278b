// Making routines ready: trees with addresses and shapes in place of names and types, labels as
// steps, a place in the frame for each local. A routine is prepared when it is first called.
#include <algorithm>
#include <charconv>
#include <cstring>

#include "tools/ifrun_machine.h"

namespace {

// Collects the items of a list that COMMA nodes join.
void list_items(const NODE *node, std::vector<const NODE *> *items) {
  std::vector<const NODE *> waiting = {node};
  while (!waiting.empty()) {
    const NODE *item = waiting.back();
    waiting.pop_back();
    if (item->op != op_COMMA) {
      items->push_back(item);
      continue;
    }
    waiting.push_back(item->right);
    waiting.push_back(item->left);
  }
}

bool is_compound(a_node_op op) {
  switch (op) {
    case op_PLUSASG:
    case op_MINUSASG:
    case op_MULTASG:
    case op_DIVASG:
    case op_MODASG:
    case op_ANDBASG:
    case op_ORBASG:
    case op_XORBASG:
    case op_SLLASG:
    case op_SRLASG:
      return true;
    default:
      return false;
  }
}

}  // namespace

an_xnode *a_machine::new_xnode() {
  return xnodes.emplace_back(std::make_unique<an_xnode>()).get();
}

std::uint32_t a_machine::string_address(const NODE *node) {
  std::uint32_t address = alloc_static(node->length, 4, a_memory::writable);
  memory.put_bytes(address, node->text, node->length);
  memory.map(address, node->length, a_memory::read_only);
  return address;
}

void a_machine::prepare_name(const NODE *node, a_routine_code *code, an_xnode *x) {
  const IF_SYMBOL *symbol = static_cast<const IF_SYMBOL *>(node->symbol);
  if (symbol->level != 0) {
    if (code == nullptr) bad_file("an initial value names a local");
    bool is_parameter = symbol->storage_class == isc_arg || symbol->storage_class == isc_last_arg;
    x->name_kind = is_parameter ? an_xnode::parameter_name : an_xnode::local_name;
    x->offset = local_offsets.at(symbol);
  } else if (symbol->is_routine()) {
    x->name_kind = an_xnode::routine_name;
    x->callee = routine_of(symbol);
  } else {
    x->name_kind = an_xnode::global_name;
    x->address = place_of(symbol);
  }
}

void a_machine::prepare_call(const NODE *node, a_routine_code *code, an_xnode *x) {
  bool named = node->op == op_ICALL || node->op == op_UICALL || node->op == op_MCALL ||
               node->op == op_UMCALL;
  if (named) x->text = node->text;
  const NODE *arguments = named ? node->left : node->right;
  if (!named) x->left = prepare_tree(node->left, code);
  std::vector<const NODE *> items;
  if (arguments != nullptr) list_items(arguments, &items);
  for (const NODE *item : items)
    x->arguments.push_back(prepare_tree(item, code));
  if (x->shape.vclass == vc_class && code != nullptr) {
    code->frame_size = (code->frame_size + 7) & ~7u;
    x->temp_offset = code->frame_size;
    code->frame_size += x->shape.size;
  }
}

void a_machine::prepare_field(const NODE *node, an_xnode *x) {
  const fkMDATA *member = node->right->member;
  if (node->right->op != op_FIELD) bad_file("a selection without a field");
  x->bit_offset = static_cast<std::uint64_t>(member->bit_offset);
  x->is_bit_field = member->is_bit_field;
  x->bit_width = static_cast<std::uint8_t>(member->bit_width);
}

an_xnode *a_machine::prepare_tree(const NODE *node, a_routine_code *code) {
  an_xnode *x = new_xnode();
  x->op = node->op;
  x->shape = shape_of(node->type);
  switch (node->op) {
    case op_NAME:
      prepare_name(node, code, x);
      return x;
    case op_ICON:
    case op_LCON:
      if (x->shape.vclass == vc_int) {
        x->constant = int_value(fit_integer(node->integer, x->shape));
      } else {
        bad_file("an integer constant of another type");
      }
      return x;
    case op_FCON: {
      double value = std::strtod(node->text, nullptr);
      x->constant = convert(float_value(value), shape_of(nullptr), x->shape);
      if (x->shape.vclass == vc_float) value = std::strtof(node->text, nullptr);
      if (x->shape.vclass != vc_float && x->shape.vclass != vc_double)
        bad_file("a floating constant of another type");
      x->constant = float_value(value);
      return x;
    }
    case op_SCON:
      x->address = string_address(node);
      return x;
    case op_LABEL:
      x->label = node->number;
      return x;
    case op_CALL:
    case op_UCALL:
    case op_ICALL:
    case op_UICALL:
    case op_MCALL:
    case op_UMCALL:
      prepare_call(node, code, x);
      return x;
    case op_STDOT:
    case op_STREF:
      x->left = prepare_tree(node->left, code);
      prepare_field(node, x);
      return x;
    case op_MEMCPY:
    case op_ABS:
    case op_SQRT: {
      std::vector<const NODE *> items;
      list_items(node->left, &items);
      for (const NODE *item : items)
        x->arguments.push_back(prepare_tree(item, code));
      return x;
    }
    default:
      break;
  }
  if (node->left != nullptr) x->left = prepare_tree(node->left, code);
  if (node->right != nullptr) x->right = prepare_tree(node->right, code);
  if (is_compound(node->op)) {
    bool shift = node->op == op_SLLASG || node->op == op_SRLASG;
    x->work_shape = shift || x->left->shape.is_pointer
                        ? promoted_shape(x->left->shape)
                        : usual_shape(x->left->shape, x->right->shape);
  }
  return x;
}

// Locals and parameters are two parts of the frame, the parameters behind, so that the further
// arguments of a call can follow the last one.
void a_machine::lay_out_frame(a_routine_code *code) {
  std::uint32_t offset = 0;
  auto place = [&offset](std::uint32_t size, std::uint32_t align) {
    offset = (offset + align - 1) & ~(align - 1);
    std::uint32_t result = offset;
    offset += size;
    return static_cast<std::int32_t>(result);
  };
  std::vector<IF_SYMBOL *> parameters;
  for (IF_SYMBOL *symbol : code->function->locals) {
    if (symbol->storage_class == isc_arg || symbol->storage_class == isc_last_arg) {
      parameters.push_back(symbol);
      if (symbol->storage_class == isc_last_arg) code->has_varargs = true;
    } else if (symbol->storage_class != isc_label) {
      std::uint32_t align = std::clamp(symbol->align / 8, 1u, 4096u);
      code->frame_align = std::max(code->frame_align, align);
      local_offsets[symbol] = place(static_cast<std::uint32_t>((symbol->size + 7) / 8), align);
    }
  }
  code->frame_size = (offset + 7) & ~7u;
  offset = 0;
  for (IF_SYMBOL *symbol : parameters) {
    a_parameter parameter;
    parameter.shape = shape_of(symbol->type);
    std::uint32_t align = std::clamp(symbol->align / 8, 4u, 8u);
    parameter.offset = place((parameter.shape.size + 3) & ~3u, align);
    local_offsets[symbol] = parameter.offset;
    code->parameters.push_back(parameter);
  }
  code->parameter_size = offset;
}

// SWITCH stands in front of its cases; with one case or more the DEFAULT is a second tree.
void a_machine::prepare_switch(const an_if_record_read &record, a_routine_code *code,
                               a_step *step) {
  const NODE *root = record.trees[0];
  step->kind = a_step::choose;
  step->node = prepare_tree(root->left, code);
  step->cases = &case_tables.emplace_back();
  std::vector<const NODE *> items;
  list_items(root->right, &items);
  if (record.trees.size() > 1) items.push_back(record.trees[1]);
  bool has_default = false;
  for (const NODE *item : items) {
    if (item->op == op_DEFAULT) {
      step->target = item->left->number;
      has_default = true;
    } else if (item->op == op_CASE) {
      std::uint64_t value = fit_integer(item->left->integer, step->node->shape);
      if (!step->cases->emplace(value, item->right->number).second)
        bad_file("a switch with one value twice");
    } else {
      bad_file("a switch with something that is no case");
    }
  }
  if (!has_default) bad_file("a switch without a default");
}

void a_machine::prepare(a_routine_code *code) {
  code->is_prepared = true;
  if (code->function->symbol->type->stripped->kind != TYPE::FUNCTION)
    bad_file(code->name + " is no routine");
  code->result = shape_of(code->function->symbol->type->stripped->component);
  lay_out_frame(code);
  std::unordered_map<std::uint32_t, std::uint32_t> labels;
  for (const an_if_record_read &record : code->function->records) {
    if (record.kind == ifr_label) {
      if (!labels.emplace(record.number, code->steps.size()).second)
        bad_file("label " + std::to_string(record.number) + " stands twice in " + code->name);
    }
    if (record.kind == ifr_assembly) bad_file("inline assembly cannot be run");
    if (record.kind != ifr_expr || record.trees.empty()) continue;
    const NODE *root = record.trees[0];
    a_step step;
    step.psn = record.psn;
    step.kind = a_step::evaluate;
    switch (root->op) {
      case op_BRANCH:
        step.kind = a_step::branch;
        step.target = root->left->number;
        break;
      case op_CBRANCH:
        step.kind = a_step::branch_if_zero;
        step.node = prepare_tree(root->left, code);
        step.target = root->right->number;
        break;
      case op_SWITCH:
        prepare_switch(record, code, &step);
        break;
      case op_RETURN:
        step.kind = a_step::leave;
        step.node = prepare_tree(root->right, code);
        break;
      case op_URETURN:
        step.kind = a_step::leave;
        break;
      default:
        step.node = prepare_tree(root, code);
        break;
    }
    code->steps.push_back(step);
  }
  code->frame_size = (code->frame_size + 7) & ~7u;
  auto step_of_label = [&](std::uint32_t label) {
    auto found = labels.find(label);
    if (found == labels.end())
      bad_file("a jump to label " + std::to_string(label) + " that " + code->name + " lacks");
    return found->second;
  };
  for (a_step &step : code->steps) {
    if (step.kind == a_step::evaluate || step.kind == a_step::leave) continue;
    step.target = step_of_label(step.target);
    if (step.cases == nullptr) continue;
    for (auto &[value, label] : *step.cases)
      label = step_of_label(label);
  }
}
