// Attributes of the target: they act like the pragmas of the same name, and share their checks.
#include "driver/switches.h"
#include "parser/attribute_internal.h"
#include "semantics/const_ints.h"
#include "semantics/types.h"
#include "target/qx_pragma.h"

namespace {

constexpr int max_called_names = 64;

// The kind of pragma that an attribute stands for.
a_pending_pragma *pending_for(const an_attribute *attribute, a_pragma_kind kind) {
  return make_pending_pragma_for_attribute(kind, &attribute->position);
}

char *entity_if(bool good, char *entity) {
  return good ? entity : nullptr;
}

// The values of the arguments; those that are missing keep theirs. -1 after a message.
int loop_values(an_attribute *attribute, std::uint64_t *values, int most) {
  int count = 0;
  for (const an_attribute_arg *arg = attribute->args; arg != nullptr && count < most;
       arg = arg->next, ++count) {
    if (arg->kind == aak_raw_tokens) continue;
    if (arg->constant->kind != ck_integer) {
      pos_error(ec_exp_int_constant, &arg->position);
      return -1;
    }
    bool negative = false;
    values[count] = unsigned_value_of_integer_constant(arg->constant, &negative);
    if (negative) {
      pos_error(ec_integer_too_large, &arg->position);
      return -1;
    }
  }
  return count;
}

}  // namespace

char *apply_location(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  bool negative = false;
  if (attribute->args->constant->kind != ck_integer) return nullptr;
  std::uint64_t address = unsigned_value_of_integer_constant(attribute->args->constant, &negative);
  if (negative) {
    report_invalid_argument(attribute, attribute->args);
    return entity;
  }
  return entity_if(pragma_location_backend(pending_for(attribute, prk_LOCATION),
                                           symbol_of_attributed(entity, kind), address, true),
                   entity);
}

char *apply_calls(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  const char *names[max_called_names];
  int count = 0;
  for (const an_attribute_arg *arg = attribute->args; arg != nullptr; arg = arg->next) {
    if (count == max_called_names) {
      report_invalid_argument(attribute, arg);
      return entity;
    }
    names[count++] = string_argument(arg);
  }
  alloc_gnu_supplement_for_routine(reinterpret_cast<a_routine *>(entity))->calls = attribute;
  create_pragma_calls(pending_for(attribute, prk_CALLS), symbol_of_attributed(entity, kind), names,
                      count);
  return entity;
}

char *apply_noinit_persistent(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_pragma_kind pragma = attribute->kind == atk_noinit ? prk_NOINIT : prk_PERSISTENT;
  return entity_if(pragma_noinit_persistent_backend(pending_for(attribute, pragma),
                                                    symbol_of_attributed(entity, kind), true),
                   entity);
}

char *apply_retain(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  return entity_if(pragma_for_sym_def_backend(pending_for(attribute, prk_RETAIN),
                                              symbol_of_attributed(entity, kind), true),
                   entity);
}

char *apply_interrupt(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  const char *type = string_argument(attribute->args);
  return entity_if(pragma_interrupt_backend(pending_for(attribute, prk_INTERRUPT),
                                            symbol_of_attributed(entity, kind), type, true),
                   entity);
}

// unroll(n), must_iterate(min, max, multiple), prob_iterate(min, max) in front of a loop
char *apply_loop(an_attribute *attribute, char *entity, an_il_entry_kind) {
  auto *statement = reinterpret_cast<a_statement *>(entity);
  std::uint64_t values[3] = {};
  int count = loop_values(attribute, values,
                          attribute->kind == atk_must_iterate   ? 3
                          : attribute->kind == atk_prob_iterate ? 2
                                                                : 1);
  if (count < 0) return nullptr;
  switch (attribute->kind) {
    case atk_unroll:
      return entity_if(pragma_unroll_backend(pending_for(attribute, prk_UNROLL), statement,
                                             values[0], true, attribute->name),
                       entity);
    case atk_must_iterate:
      return entity_if(pragma_must_iterate_backend(pending_for(attribute, prk_MUST_ITERATE),
                                                   statement, values, count, true, attribute->name),
                       entity);
    default:
      return entity_if(pragma_prob_iterate_backend(pending_for(attribute, prk_PROB_ITERATE),
                                                   statement, values, count, true, attribute->name),
                       entity);
  }
}

// constrange(low, high): calls must give a constant of that range.
char *apply_constrange(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_type *type = type_of_attributed(entity, kind);
  if (!is_integral_or_enum_type(type)) {
    pos_ty_warning(ec_attribute_does_not_apply_to_type, &attribute->position, type);
    return nullptr;
  }
  an_integer_kind int_kind = skip_typerefs(type)->int_kind;
  for (const an_attribute_arg *arg = attribute->args; arg != nullptr; arg = arg->next) {
    if (arg->constant->kind == ck_integer &&
        in_range_for_integer_kind(arg->constant, nullptr, int_kind))
      continue;
    report_invalid_argument(attribute, arg);
    return entity;
  }
  if (kind == iek_param_type) reinterpret_cast<a_param_type *>(entity)->is_const_range = true;
  return entity;
}

// memread, memwrite: what a pointer parameter is used for
char *apply_memory_access(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_type *type = type_of_attributed(entity, kind);
  if (is_pointer_type(type)) return entity;
  pos_ty_warning(ec_attribute_does_not_apply_to_type, &attribute->position, type);
  return nullptr;
}
