// Calls: arguments, frames, steps, jumps out of several frames, and the start of the program.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "tools/ifrun_machine.h"

namespace {
constexpr std::uint32_t max_frames = 150000;
}

std::string a_machine::where() const {
  if (!error_place.empty()) return error_place;
  if (frame == nullptr) return "before main";
  std::string text = "in " + frame->code->name;
  const PSN *psn = nullptr;
  if (frame->step < frame->code->steps.size()) psn = frame->code->steps[frame->step].psn;
  if (psn != nullptr) text += ", " + std::string(psn->file) + ", line " + std::to_string(psn->line);
  return text;
}

a_value a_machine::evaluate_call(an_xnode *node) {
  an_xnode *target = node->left;
  while (target->op == op_UAND && target->left->op == op_NAME)
    target = target->left;
  a_callee *callee;
  if (target->op == op_NAME && target->name_kind == an_xnode::routine_name)
    callee = target->callee;
  else
    callee = callee_at(static_cast<std::uint32_t>(evaluate(target).i));
  an_argument_list arguments;
  arguments.reserve(node->arguments.size());
  for (an_xnode *argument : node->arguments) {
    a_shape shape = argument->shape;
    a_value value = evaluate(argument);
    if (shape.vclass == vc_function) {
      shape = a_shape{vc_int, 4, false, false, true, 4, 4};
    }
    arguments.push_back({shape, value});
  }
  std::uint32_t result_place = 0;
  if (node->shape.vclass == vc_class)
    result_place = frame != nullptr ? frame->base + node->temp_offset : 0;
  return call(callee, arguments, node->shape, result_place);
}

a_value a_machine::call(a_callee *callee, const an_argument_list &arguments, const a_shape &result,
                        std::uint32_t result_place) {
  if (trace)
    std::fprintf(stderr, "%*scall %s\n", static_cast<int>(frame_depth % 64), "",
                 callee->name.c_str());
  if (callee->code != nullptr) {
    a_routine_code *code = callee->code;
    a_value value = run(code, arguments, result_place);
    if (result.vclass == vc_void) return value;
    if (code->result.vclass == vc_void) return int_value(0);
    if ((code->result.vclass == vc_class) != (result.vclass == vc_class))
      bad_file("a call of " + code->name + " expects another kind of result");
    return code->result.vclass == vc_class ? value : convert(value, code->result, result);
  }
  if (callee->host == nullptr) fault("call of " + callee->name + ", which no file defines");
  return callee->host(*this, arguments, result);
}

a_value a_machine::call_address(std::uint32_t address, const an_argument_list &arguments,
                                const a_shape &result) {
  return call(callee_at(address), arguments, result, 0);
}

// Named parameters take the arguments in order; those behind the last one follow it in memory, each
// in slots of 4 bytes, 8-aligned where the type is under the EABI.
void a_machine::place_arguments(a_routine_code *code, const an_argument_list &arguments) {
  std::size_t named = code->parameters.size();
  bool prototyped = code->function->symbol->type->stripped->is_prototyped;
  if (arguments.size() < named || (arguments.size() > named && !code->has_varargs && prototyped))
    fault("call of " + code->name + " with " + std::to_string(arguments.size()) +
          " arguments in place of " + std::to_string(named));
  for (std::size_t i = 0; i < named; i++) {
    const a_parameter &parameter = code->parameters[i];
    std::uint32_t address = frame->arguments + static_cast<std::uint32_t>(parameter.offset);
    bool is_class = parameter.shape.vclass == vc_class;
    if (is_class != (arguments[i].shape.vclass == vc_class))
      fault("call of " + code->name + " with an argument of another kind");
    memory.store_value(address, parameter.shape,
                       convert(arguments[i].value, arguments[i].shape, parameter.shape));
  }
  if (!code->has_varargs) return;
  std::uint32_t address = frame->arguments + ((code->parameter_size + 3) & ~3u);
  for (std::size_t i = named; i < arguments.size(); i++) {
    const a_shape &shape = arguments[i].shape;
    if (eabi && shape.align >= 8) address = (address + 7) & ~7u;
    std::uint32_t size = shape.vclass == vc_class ? shape.size : shape.bytes;
    if (shape.vclass == vc_int && size < 4) {
      memory.store(address, 4, arguments[i].value.i);
    } else {
      memory.store_value(address, shape, arguments[i].value);
    }
    address += (size + 3) & ~3u;
  }
}

// Bytes of all arguments of a call, named and further ones.
static std::uint32_t room_for_arguments(const a_routine_code *code,
                                        const an_argument_list &arguments) {
  std::uint32_t bytes = code->parameter_size + 16;
  if (code->has_varargs)
    for (std::size_t i = code->parameters.size(); i < arguments.size(); i++)
      bytes += arguments[i].shape.size + 12;
  return (bytes + 7) & ~7u;
}

a_value a_machine::run(a_routine_code *code, const an_argument_list &arguments,
                       std::uint32_t result_place) {
  if (!code->is_prepared) prepare(code);
  std::uint32_t unaligned = code->frame_align - 8;  // the stack itself is aligned to 8
  std::uint32_t size = code->frame_size + unaligned + room_for_arguments(code, arguments);
  if (size > stack_pointer - stack_low || ++frame_depth > max_frames)
    fault("the stack is exhausted");
  std::uint32_t old_pointer = stack_pointer;
  a_frame *caller = frame;
  stack_pointer = (stack_pointer - size + unaligned) & ~(code->frame_align - 1);
  a_frame activation{code,         caller, stack_pointer,  stack_pointer + code->frame_size,
                     result_place, 0,      next_frame_id++};
  memory.map(stack_pointer, old_pointer - stack_pointer, a_memory::writable);
  frame = &activation;
  place_arguments(code, arguments);
  for (;;) {
    try {
      run_steps();
      break;
    } catch (const a_long_jump &jump) {
      if (jump.frame_id != activation.id) {
        memory.map(activation.base, old_pointer - activation.base, a_memory::unmapped);
        stack_pointer = old_pointer;
        frame = caller;
        frame_depth--;
        throw;
      }
      frame = &activation;
      activation.step = jump.step;
      returned_jumps[jump.buffer] = jump.value;
    } catch (const a_run_error &) {
      // The innermost frame is the first to see it.
      if (error_place.empty()) error_place = where();
      throw;
    }
  }
  memory.map(activation.base, old_pointer - activation.base, a_memory::unmapped);
  stack_pointer = old_pointer;
  frame = caller;
  frame_depth--;
  return result_value;
}

void a_machine::run_steps() {
  a_routine_code *code = frame->code;
  while (frame->step < code->steps.size()) {
    const a_step &step = code->steps[frame->step];
    count_step();
    switch (step.kind) {
      case a_step::evaluate:
        evaluate(step.node);
        frame->step++;
        break;
      case a_step::branch:
        frame->step = step.target;
        break;
      case a_step::branch_if_zero: {
        a_value value = evaluate(step.node);
        const a_shape &shape = step.node->shape;
        bool zero = shape.vclass == vc_int ? value.i == 0 : value.f == 0;
        frame->step = zero ? step.target : frame->step + 1;
        break;
      }
      case a_step::choose: {
        auto found = step.cases->find(evaluate(step.node).i);
        frame->step = found != step.cases->end() ? found->second : step.target;
        break;
      }
      case a_step::leave:
        result_value = step.node == nullptr ? int_value(0) : finish(step.node);
        return;
    }
  }
  result_value = int_value(0);
}

// The value of a return: a class is copied to where the caller wants it.
a_value a_machine::finish(an_xnode *node) {
  a_value value = evaluate(node);
  const a_shape &result = frame->code->result;
  if (result.vclass != vc_class) return convert(value, node->shape, result);
  std::uint32_t target = frame->result_place;
  if (target == 0) return int_value(0);
  memory.store_value(target, result, value);
  return int_value(target);
}

a_value a_machine::intrinsic(an_xnode *node) {
  an_argument_list arguments;
  for (an_xnode *argument : node->arguments)
    arguments.push_back({argument->shape, evaluate(argument)});
  auto need = [&](std::size_t count) {
    if (arguments.size() != count) bad_file("an operator with another number of arguments");
  };
  switch (node->op) {
    case op_MEMCPY: {
      need(3);
      std::uint32_t to = static_cast<std::uint32_t>(arguments[0].value.i);
      std::uint32_t from = static_cast<std::uint32_t>(arguments[1].value.i);
      std::uint32_t size = static_cast<std::uint32_t>(arguments[2].value.i);
      memory.readable_range(from, size);
      std::memmove(memory.writable_range(to, size), memory.raw(from), size);
      return arguments[0].value;
    }
    case op_ABS: {
      need(1);
      a_value v = arguments[0].value;
      if (node->shape.vclass != vc_int) return float_value(std::fabs(v.f));
      return int_value(static_cast<std::int64_t>(v.i) < 0 ? fit_integer(0 - v.i, node->shape)
                                                          : v.i);
    }
    case op_SQRT:
      need(1);
      return convert(float_value(std::sqrt(arguments[0].value.f)), arguments[0].shape, node->shape);
    default:
      break;
  }
  std::string name = node->text;
  a_host_routine host = find_host_routine(name);
  if (host == nullptr && name.starts_with("_")) host = find_host_routine(name.substr(1));
  if (host == nullptr) bad_file("intrinsic " + name + " cannot be run");
  return host(*this, arguments, node->shape);
}

int a_machine::run_main(const std::vector<std::string> &arguments) {
  a_callee *main_routine = find_routine(eabi ? "main" : "_main");
  if (main_routine == nullptr || main_routine->code == nullptr) bad_file("no definition of main");
  std::uint32_t count = static_cast<std::uint32_t>(arguments.size());
  std::uint32_t vector = memory.heap_alloc(4 * (count + 1));
  for (std::uint32_t i = 0; i < count; i++) {
    std::uint32_t size = static_cast<std::uint32_t>(arguments[i].size() + 1);
    std::uint32_t text = memory.heap_alloc(size);
    memory.put_bytes(text, arguments[i].c_str(), size);
    memory.store(vector + 4 * i, 4, text);
  }
  memory.store(vector + 4 * count, 4, 0);
  a_shape integer{vc_int, 4, true, false, false, 4, 4};
  a_shape pointer{vc_int, 4, false, false, true, 4, 4};
  int status;
  auto call_plain = [&](a_callee *callee) { call(callee, {}, a_shape(), 0); };
  try {
    for (a_callee *callee : initializers)
      call_plain(callee);
    prepare(main_routine->code);
    an_argument_list list = {{integer, int_value(count)}, {pointer, int_value(vector)}};
    list.resize(std::min(list.size(), main_routine->code->parameters.size()));
    status = static_cast<int>(call(main_routine, list, integer, 0).i);
  } catch (const a_program_exit &exit) {
    status = exit.status;
    if (status < 0) return -status;  // at once, without the routines of atexit
  }
  while (!exit_routines.empty()) {
    std::uint32_t routine = exit_routines.back();
    exit_routines.pop_back();
    try {
      call_address(routine, {}, a_shape());
    } catch (const a_program_exit &exit) {
      status = exit.status;
    }
  }
  return status;
}
