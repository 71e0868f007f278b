// Front-end types as types of the file. The result of a translation is remembered by a number in
// the type's record; a class is remembered before its members are translated, so that it may
// contain pointers to itself.
#include <cstring>

#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "driver/switches.h"
#include "il/il.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

std::vector<TYPE *> translations;  // by lowered_number of the type

// Null: none was made yet. A class that was incomplete when it was met may be complete now only in
// a later unit; within the generator the types no longer change.
TYPE *known_translation(const a_type *type) {
  return type->lowered_number >= 0 ? translations[static_cast<std::size_t>(type->lowered_number)]
                                   : nullptr;
}

TYPE *remember(a_type *type, TYPE *translation) {
  if (type->lowered_number < 0) {
    type->lowered_number = static_cast<std::int32_t>(translations.size());
    translations.push_back(translation);
  } else {
    translations[static_cast<std::size_t>(type->lowered_number)] = translation;
  }
  return translation;
}

TYPE::IKIND ikind_of(an_integer_kind kind) {
  switch (kind) {
    case ik_char:
      return targ_has_signed_chars ? TYPE::SCHAR : TYPE::UCHAR;
    case ik_signed_char:
      return TYPE::SCHAR;
    case ik_unsigned_char:
      return TYPE::UCHAR;
    case ik_short:
      return TYPE::SHORT;
    case ik_unsigned_short:
      return TYPE::USHORT;
    case ik_int:
      return TYPE::INT;
    case ik_unsigned_int:
      return TYPE::UINT;
    case ik_long:
      return TYPE::LONG;
    case ik_unsigned_long:
      return TYPE::ULONG;
    case ik_long_long:
      return TYPE::LLONG;
    case ik_unsigned_long_long:
      return TYPE::ULLONG;
    default:
      unexpected_state("an integer kind that the file does not know");
  }
}

TYPE *translate_enum(a_type *type) {
  TYPE *underlying = type_pkg->mk_int(ikind_of(type->int_kind), false);
  if (type->int_kind != ik_char) underlying = type_pkg->basic_types[ikind_of(type->int_kind)];
  const char *name = type->name == nullptr ? nullptr : sym_name(type);
  TYPE *result =
      type_pkg->mk_enum(name, underlying, type->size * 8, type->alignment * 8, in_cplusplus());
  result->psn = make_psn(type->decl_position);
  result->enum_is_complete = !type->is_incomplete;
  if (!type->is_incomplete && type->enum_supplement != nullptr) {
    for (a_constant *c = type->enum_supplement->first_enumerator; c != nullptr;
         c = c->next_in_list) {
      fkETOR *enumerator = type_pkg->alloc_record<fkETOR>();
      enumerator->name = c->name != nullptr ? c->name : "";
      enumerator->value = static_cast<std::int64_t>(c->integer_value);
      enumerator->psn = make_psn(c->decl_position);
      result->enumerators.append(enumerator);
    }
  }
  type_pkg->type_frozen(&result);
  return result;
}

TYPE *translate_integer(a_type *type) {
  if (type->is_enum) return translate_enum(type);
  TYPE *result = type->int_kind == ik_char ? type_pkg->mk_int(ikind_of(ik_char), false)
                                           : type_pkg->basic_types[ikind_of(type->int_kind)];
  return type->is_bool ? type_pkg->mk_boolean_int(result) : result;
}

TYPE *translate_routine(a_type *type) {
  a_routine_type_supplement *supplement = type->routine_supplement;
  TYPE *result =
      type_pkg->mk_func(tp_type(type->return_type), in_cplusplus(), supplement->prototyped,
                        supplement->has_ellipsis, TYPE::CC_DEFAULT);
  for (a_param_type *p = supplement->param_types; p != nullptr; p = p->next) {
    fkPARAM *param = type_pkg->alloc_record<fkPARAM>();
    a_type *param_type = supplement->prototyped ? p->type : default_argument_promotion(p->type);
    param->type = tp_type(param_type);
    param->text = "";
    result->params.append(param);
  }
  type_pkg->type_frozen(&result);
  return result;
}

TYPE *translate_array(a_type *type) {
  std::uint64_t count = type->is_incomplete ? 0 : type->number_of_elements;
  return type_pkg->mk_array(tp_type(type->element_type), in_cplusplus(),
                            static_cast<std::int64_t>(count), type->size * 8, type->alignment * 8,
                            count != 0);
}

void add_member(TYPE *result, a_field *field) {
  if (field->name == nullptr && field->is_bit_field) return;
  fkMDATA *member = type_pkg->alloc_record<fkMDATA>();
  member->type = tp_type(bit_field_container_type(field, field->type));
  member->name = field->name != nullptr ? field->name : "";
  member->bit_offset = static_cast<std::int64_t>(field->offset * 8 + field->bit_offset);
  member->is_bit_field = field->is_bit_field;
  if (field->is_bit_field) {
    member->bit_width = field->bit_size;
    member->storage_byte = static_cast<std::uint8_t>(member->type->size_in_bytes());
    TYPE_PKG::seen_bitfield = true;
  }
  member->psn = make_psn(field->decl_position);
  // The number is what expressions use; it is the same that registration gives.
  member->id =
      result->csu->data_members.tail == nullptr ? 1 : result->csu->data_members.tail->id + 1;
  field->lowered_number = member->id;
  result->csu->data_members.append(member);
}

TYPE *translate_class(a_type *type) {
  TYPE::KIND kind = type->kind == tk_class    ? TYPE::CLASS
                    : type->kind == tk_struct ? TYPE::STRUCT
                                              : TYPE::UNION;
  bool has_name = type->name != nullptr && !type->class_flags.is_unnamed;
  TYPE *result =
      type_pkg->mk_csu(kind, has_name ? sym_name(type) : nullptr, type->size * 8,
                       type->alignment * 8, !type->is_incomplete, 0, false, false, in_cplusplus());
  result->psn = make_psn(type->decl_position);
  remember(type, result);
  if (!type->is_incomplete)
    for (a_field *field = type->fields; field != nullptr; field = field->next)
      add_member(result, field);
  type_pkg->type_frozen(&result);
  return result;
}

TYPE *translate_typeref(a_type *type) {
  TYPE *target = tp_type(type->referenced_type);
  unsigned bits = 0;
  if ((type->qualifiers & tq_const) != 0) bits |= TYPE::CONST_QUAL;
  if ((type->qualifiers & tq_volatile) != 0) bits |= TYPE::VOLATILE_QUAL;
  if ((type->qualifiers & tq_restrict) != 0) bits |= TYPE::RESTRICT_QUAL;
  if (bits != 0) target = type_pkg->mk_qual(target, bits);
  if (type->name == nullptr) return target;
  // The class may have met this typedef of itself among its members.
  if (TYPE *known = known_translation(type)) return known;
  std::uint32_t alignment = type->explicit_alignment ? type->alignment * 8 : target->alignment;
  return type_pkg->mk_typedef(sym_name(type), in_cplusplus(), target, target->size, alignment,
                              false, make_psn(type->decl_position));
}

TYPE *translate(a_type *type) {
  switch (type->kind) {
    case tk_void:
      return type_pkg->mk_void();
    case tk_integer:
      return translate_integer(type);
    case tk_float:
      return type_pkg->mk_fltpt(static_cast<TYPE::FKIND>(type->float_kind));
    case tk_pointer:
      return type_pkg->mk_ptr(tp_type(type->pointed_to), 32, type->alignment * 8);
    case tk_routine:
      return translate_routine(type);
    case tk_array:
      return translate_array(type);
    case tk_class:
    case tk_struct:
    case tk_union:
      if (a_type *scalar = scalar_csu(type)) return tp_type(scalar);
      return translate_class(type);
    case tk_typeref:
      return translate_typeref(type);
    case tk_nullptr:
      return type_pkg->void_pointer_type;
    default:
      unexpected_state(type_kind_names[type->kind]);
  }
}

}  // namespace

TYPE *tp_type(a_type *type) {
  if (TYPE *known = known_translation(type)) return known;
  TYPE *translation = translate(type);
  // That of a typedef may have been made meanwhile.
  if (TYPE *known = known_translation(type)) return known;
  return remember(type, translation);
}

const PSN *make_psn(const a_source_position &position) {
  if (position.seq == 0) return nullptr;
  const char *name, *full_name;
  a_line_number line;
  bool at_end;
  conv_seq_to_file_and_line(position.seq, &name, &full_name, &line, &at_end);
  PSN *psn = type_pkg->alloc_record<PSN>();
  psn->file = name != nullptr && *name != '\0' ? name : nullptr;
  psn->line = line;
  psn->column = position.column;
  return psn;
}

void set_current_psn(const a_source_position &position) {
  if (position.seq == 0) return;
  const char *name, *full_name;
  a_line_number line;
  bool at_end;
  conv_seq_to_file_and_line(position.seq, &name, &full_name, &line, &at_end);
  current_psn.file = name != nullptr && *name != '\0' ? name : nullptr;
  current_psn.line = line;
  current_psn.column = position.column;
}

void reset_type_cache() {
  translations.clear();
}
