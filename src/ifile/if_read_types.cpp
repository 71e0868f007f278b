// Building types from their records. An id may be used before its record comes, so that a type is
// made empty at its first use and filled by its record; whatever is still empty at the end of the
// section is a damage.
#include "ifile/if_read.h"
#include "ifile/if_read_internal.h"

namespace {
constexpr std::uint64_t max_type_id = 100'000'000;

TYPE::IKIND integral_kind(unsigned code) {
  if (code == 50) return TYPE::LLONG;
  if (code == 51) return TYPE::ULLONG;
  if (code == 8) return TYPE::LONG;
  if (code == 9) return TYPE::ULONG;
  return static_cast<TYPE::IKIND>(code);
}
}  // namespace

TYPE *IF_READER::type_for_id(a_cursor &record, std::uint64_t id) {
  if (id > max_type_id || id > bytes.size()) record.fail("a type with an impossible number");
  if (id >= types_by_id.size()) {
    types_by_id.resize(id + 1);
    type_is_read.resize(id + 1);
    first_use.resize(id + 1);
  }
  if (types_by_id[id] == nullptr) {
    TYPE *type = new (types.alloc(sizeof(TYPE))) TYPE;
    type->uid = static_cast<std::int32_t>(id);
    type->pkg = &types;
    type->stripped = type;
    types_by_id[id] = type;
    first_use[id] = record.start;
  }
  return types_by_id[id];
}

TYPE *IF_READER::find_typeref(a_cursor &record) {
  std::uint64_t id = record.uint();
  return id == 0 ? nullptr : type_for_id(record, id);
}

TYPE *IF_READER::enter_type(a_cursor &record, std::uint64_t id, TYPE::KIND kind) {
  TYPE *type = type_for_id(record, id);
  if (type_is_read[id]) record.fail("read type twice");
  type_is_read[id] = true;
  type->kind = kind;
  type->frozen = true;
  type_list.push_back(type);
  return type;
}

void IF_READER::read_types(std::uint64_t position) {
  a_cursor section{bytes.data(), position, bytes.size()};
  while (!section.at_end_mark()) {
    an_if_record kind;
    a_cursor record = section.next_record(&kind);
    if (kind != ifr_type) record.fail("a record of another kind among the types");
    read_type_record(record);
    record.expect_end();
  }
  check_types_complete();
}

static bool is_name_of_type(const TYPE *type) {
  return type->kind == TYPE::TYPEDEF || type->kind == TYPE::QUALIFIED;
}

// Every id that was used has its record, and the forms without typedefs and qualifiers are known.
void IF_READER::check_types_complete() {
  for (std::size_t id = 1; id < types_by_id.size(); id++)
    if (types_by_id[id] != nullptr && !type_is_read[id])
      throw an_if_damage(first_use[id], "invalid forward reference");
  for (TYPE *type : type_list)
    type->stripped = nullptr;
  for (TYPE *type : type_list) {
    TYPE *target = type;
    std::size_t steps = 0;
    while (target != nullptr && target->stripped == nullptr && is_name_of_type(target)) {
      target = target->component;
      if (++steps > type_list.size())
        throw an_if_damage(first_use[static_cast<std::size_t>(type->uid)],
                           "a typedef leads back to itself");
    }
    if (target == nullptr)
      throw an_if_damage(first_use[static_cast<std::size_t>(type->uid)], "a type without a target");
    if (target->stripped != nullptr) target = target->stripped;
    // The whole way is known now: a long chain is walked once.
    for (TYPE *step = type; step->stripped == nullptr && is_name_of_type(step);
         step = step->component)
      step->stripped = target;
    target->stripped = target;
  }
}

void IF_READER::read_type_record(a_cursor &record) {
  std::uint64_t id = record.uint();
  if (id == 0) record.fail("a type record without a number");
  unsigned code = record.byte();
  auto read_size = [&record](TYPE *type) {
    type->size = record.uint();
    type->alignment = static_cast<std::uint32_t>(record.uint());
  };
  auto need_component = [&](TYPE *type) {
    type->component = find_typeref(record);
    if (type->component == nullptr) record.fail("a type without its component");
  };
  if (code <= 9 || code == 50 || code == 51) {
    tp_make_integral_type(record, enter_type(record, id, TYPE::INTEGRAL), code);
    return;
  }
  switch (code) {
    case 10:
    case 11:
    case 12: {
      TYPE *type = enter_type(record, id, TYPE::FLOATING);
      type->fkind = static_cast<TYPE::FKIND>(code - 10);
      read_size(type);
      return;
    }
    case 13: {
      TYPE *type = enter_type(record, id, TYPE::FIXED_POINT);
      type->binary_point = record.byte();
      type->explicit_sign = record.flag();
      need_component(type);
      read_size(type);
      return;
    }
    case 14: {
      TYPE *type = enter_type(record, id, TYPE::TYPEDEF);
      type->name_text = record.text();
      need_component(type);
      read_size(type);
      type->is_cpp = record.flag();
      type->typedef_is_lowered = record.flag();
      type->psn = read_psn(record);
      return;
    }
    case 15:
    case 16: {
      TYPE *type = enter_type(record, id, code == 15 ? TYPE::POINTER : TYPE::REFERENCE);
      need_component(type);
      read_size(type);
      return;
    }
    case 17: {
      TYPE *type = enter_type(record, id, TYPE::QUALIFIED);
      need_component(type);
      type->qualifiers = static_cast<std::uint8_t>(record.uint());
      read_size(type);
      return;
    }
    case 18: {
      TYPE *type = enter_type(record, id, TYPE::ARRAY);
      need_component(type);
      type->element_count = static_cast<std::int64_t>(record.uint());
      read_size(type);
      type->is_cpp = record.flag();
      type->array_is_complete = record.flag();
      type->is_vector = record.flag();
      return;
    }
    case 19: {
      TYPE *type = enter_type(record, id, TYPE::PTR_TO_MEMBER);
      need_component(type);
      type->member_class = find_typeref(record);
      read_size(type);
      return;
    }
    case 20: {
      TYPE *type = enter_type(record, id, TYPE::FUNCTION);
      need_component(type);
      type->is_vararg = record.flag();
      type->is_prototyped = record.flag();
      type->cc_kind = static_cast<TYPE::CC_KIND>(record.byte());
      type->is_cpp = record.flag();
      return;
    }
    case 22: {
      TYPE *type = enter_type(record, id, TYPE::ENUM);
      type->name_text = record.text();
      read_size(type);
      need_component(type);
      type->is_cpp = record.flag();
      type->psn = read_psn(record);
      type->enum_is_complete = true;
      return;
    }
    case 24:
    case 25:
      tp_make_csu(record, enter_type(record, id, TYPE::STRUCT), code == 25);
      return;
    case 36: {
      TYPE *type = enter_type(record, id, TYPE::COMPLEX);
      read_size(type);
      need_component(type);
      return;
    }
    case 49:
      enter_type(record, id, TYPE::VOID_KIND);
      return;
    default:
      tp_make_list_item(record, type_for_id(record, id), code);
      return;
  }
}

void IF_READER::tp_make_integral_type(a_cursor &record, TYPE *type, unsigned code) {
  type->ikind = integral_kind(code);
  type->explicit_sign = record.flag();
  type->size = record.uint();
  type->alignment = static_cast<std::uint32_t>(record.uint());
  record.flag();  // says again whether the type stands for a truth value
  type->is_boolean_int = record.flag();
}

void IF_READER::tp_make_csu(a_cursor &record, TYPE *type, bool is_long) {
  unsigned key = record.byte();
  if (key > 2) record.fail("a class with an unknown key");
  type->kind = key == 0 ? TYPE::STRUCT : key == 1 ? TYPE::UNION : TYPE::CLASS;
  type->csu = new (types.alloc(sizeof(a_class_subpart))) a_class_subpart;
  type->name_text = record.text();
  type->csu->is_complete = record.flag();
  type->csu->is_lowered = record.flag();
  type->size = record.uint();
  type->alignment = static_cast<std::uint32_t>(record.uint());
  if (is_long) {
    type->csu->vtable_count = static_cast<std::int32_t>(record.uint());
    for (int i = 0; i < 9; i++)
      record.flag();  // which lists follow: their frames tell
  } else {
    record.flag();
  }
  type->csu->is_struct_vector = record.flag();
  type->is_cpp = record.flag();
  type->psn = read_psn(record);
}

// The frame and the items of a list: header 254, trailer 255, items between.
void IF_READER::tp_make_list_item(a_cursor &record, TYPE *owner, unsigned code) {
  if (code == 254 || code == 255) {
    unsigned kind = record.byte();
    if (kind > 9) record.fail("a list of an unknown kind");
    bool opens = code == 254;
    if (opens ? open_list_owner != nullptr : open_list_owner != owner || open_list_kind != kind)
      record.fail("the frame of a list does not match");
    open_list_owner = opens ? owner : nullptr;
    open_list_kind = kind;
    return;
  }
  if (open_list_owner != owner) record.fail("an item outside the list of its type");
  bool of_class = code != 21 && code != 23;
  if (of_class && !owner->is_class_kind()) record.fail("a class member of another type");
  a_class_subpart *csu = owner->csu;
  switch (code) {
    case 21: {
      auto *e = types.alloc_record<fkPARAM>();
      e->type = find_typeref(record);
      record.flag();
      e->param_kind = static_cast<std::int32_t>(record.uint());
      e->text = record.text();
      (owner->is_class_kind() ? csu->template_params : owner->params).append(e);
      return;
    }
    case 23: {
      auto *e = types.alloc_record<fkETOR>();
      e->name = record.text();
      e->value = owner->component != nullptr && owner->component->is_signed()
                     ? record.sint()
                     : static_cast<std::int64_t>(record.uint());
      e->psn = read_psn(record);
      owner->enumerators.append(e);
      return;
    }
    case 28: {
      auto *e = types.alloc_record<fkMDATA>();
      e->id = static_cast<std::int32_t>(record.uint());
      e->name = record.text();
      e->type = find_typeref(record);
      e->access = record.byte();
      e->bit_offset = record.sint();
      e->storage_byte = record.byte();
      e->bit_width = static_cast<std::int32_t>(record.uint());
      e->is_bit_field = record.flag();
      e->is_flag_a = record.flag();
      e->is_flag_b = record.flag();
      e->psn = read_psn(record);
      csu->data_members.append(e);
      return;
    }
    case 29: {
      auto *e = types.alloc_record<fkBCLASS>();
      e->type = find_typeref(record);
      e->offset = static_cast<std::int32_t>(record.sint());
      e->access = record.byte();
      e->is_virtual = record.flag();
      csu->base_classes.append(e);
      return;
    }
    case 30: {
      auto *e = types.alloc_record<fkADECL>();
      record.uint();
      e->value = record.byte();
      csu->access_decls.append(e);
      return;
    }
    case 31: {
      auto *e = types.alloc_record<fkFFRIEND>();
      e->name = record.text();
      e->type = find_typeref(record);
      csu->friend_functions.append(e);
      return;
    }
    case 32:
    case 33: {
      auto *e = types.alloc_record<fkTYPE_ELEM>();
      e->type = find_typeref(record);
      (code == 32 ? csu->friend_classes : csu->nested_types).append(e);
      return;
    }
    case 34: {
      auto *e = types.alloc_record<fkSDATA>();
      e->name = record.text();
      e->type = find_typeref(record);
      e->access = record.byte();
      csu->static_members.append(e);
      return;
    }
    case 35: {
      auto *e = types.alloc_record<fkMFUNC>();
      e->name = record.text();
      e->type = find_typeref(record);
      e->access = record.byte();
      e->virtual_index = static_cast<std::int32_t>(record.sint());
      for (bool &flag : e->flags)
        flag = record.flag();
      csu->member_functions.append(e);
      return;
    }
    default:
      record.fail("unknown type code " + std::to_string(code));
  }
}
