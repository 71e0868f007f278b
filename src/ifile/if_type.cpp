// The type section of the intermediate file.
//
// All class records come first, so that a member list can refer to any class; then the lists; then
// every other referenced type, each behind its components except where a cycle through a pointer
// makes a reference to a later record unavoidable.
#include "ifile/if_write.h"

namespace {

// Type codes of the file.
enum a_type_code : std::uint8_t {
  tc_float = 10,
  tc_fixed_point = 13,
  tc_typedef = 14,
  tc_pointer = 15,
  tc_reference = 16,
  tc_qualified = 17,
  tc_array = 18,
  tc_ptr_to_member = 19,
  tc_function = 20,
  tc_enum = 22,
  tc_csu_short = 24,
  tc_csu_long = 25,
  tc_complex = 36,
  tc_void = 49
};
constexpr std::uint8_t integral_codes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 8, 9, 50, 51};

// Codes of list items, and the numbers of the lists.
enum an_item_code : std::uint8_t {
  item_param = 21,
  item_enumerator = 23,
  item_data_member = 28,
  item_base_class = 29,
  item_access_decl = 30,
  item_friend_function = 31,
  item_friend_class = 32,
  item_nested_type = 33,
  item_static_member = 34,
  item_member_function = 35
};
enum a_list_kind : std::uint8_t {
  list_params,
  list_enumerators,
  list_base_classes,
  list_access_decls,
  list_friend_functions,
  list_friend_classes,
  list_nested_types,
  list_data_members,
  list_static_members,
  list_member_functions
};
constexpr unsigned list_header = 254, list_trailer = 255;

bool needs_long_form(const a_class_subpart *csu) {
  return csu->vtable_count != 0 || csu->base_classes.head != nullptr ||
         csu->access_decls.head != nullptr || csu->friend_functions.head != nullptr ||
         csu->friend_classes.head != nullptr || csu->nested_types.head != nullptr ||
         csu->static_members.head != nullptr || csu->member_functions.head != nullptr ||
         csu->template_params.head != nullptr;
}

}  // namespace

void I_FILE::if_write_all_types(bool keep_types) {
  std::uint64_t start = if_tell();
  for (I_SYMTAB *symbol : globals) {
    if_reference_type(symbol->sym_type());
    if_reference_type(symbol->sym_cpp_type());
  }
  type_pkg->root_type->mark_named_types(keep_types);
  type_pkg->root_type->mark_refed_types();
  write_all_csu_types();
  write_type_tree();
  if (if_tell() == start) return;
  i_write_eof();
  types_position = start;
}

void I_FILE::write_all_csu_types() {
  TYPE::BASED_TYPE_CONTAINER *container = type_pkg->root_type->based;
  if (container == nullptr) return;
  for (auto &[key, bucket] : container->buckets)
    for (TYPE *type : bucket.types)
      if (type->is_class_kind() && find_type(type)->referenced) if_write_type(type);
  for (auto &[key, bucket] : container->buckets)
    for (std::size_t i = 0; i < bucket.types.size(); i++)
      if (bucket.types[i]->is_class_kind() && bucket.types[i]->written)
        write_csu_type_lists(bucket.types[i]);
}

void I_FILE::write_type_tree() {
  TYPE::TYPE_TREE_ITERATOR walk(type_pkg->root_type);
  while (TYPE *type = walk.next())
    if (!type->written && find_type(type)->referenced) if_write_type(type);
}

// The flag is set before the components are written, so that a cycle ends here.
void I_FILE::if_write_type(TYPE *type) {
  type = find_type(type);
  if (type->written) return;
  type->written = true;
  if (!type->is_class_kind()) {
    if (type->component != nullptr) if_write_type(type->component);
    if (type->member_class != nullptr) if_write_type(type->member_class);
  }
  write_type_record(type);
}

void I_FILE::write_type_start(TYPE *type, unsigned code) {
  i_write_typeref(type);
  i_write_i8(code);
}

void I_FILE::write_type_record(TYPE *type) {
  switch (type->kind) {
    case TYPE::VOID_KIND:
      write_type_start(type, tc_void);
      break;
    case TYPE::INTEGRAL:
      write_integral_type(type);
      break;
    case TYPE::FLOATING:
      write_type_start(type, unsigned{tc_float} + type->fkind);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      break;
    case TYPE::FIXED_POINT:
      write_type_start(type, tc_fixed_point);
      i_write_i8(type->binary_point);
      i_write_bool(type->component->explicit_sign);
      i_write_typeref(type->component);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      break;
    case TYPE::COMPLEX:
      write_type_start(type, tc_complex);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      i_write_typeref(type->component);
      break;
    case TYPE::TYPEDEF:
      write_type_start(type, tc_typedef);
      i_write_string(type->name());
      i_write_typeref(type->component);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      i_write_bool(type->is_cpp);
      i_write_bool(type->typedef_is_lowered);
      i_write_psn(type->psn);
      break;
    case TYPE::POINTER:
    case TYPE::REFERENCE:
      write_type_start(type, type->kind == TYPE::POINTER ? tc_pointer : tc_reference);
      i_write_typeref(type->component);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      break;
    case TYPE::QUALIFIED:
      write_type_start(type, tc_qualified);
      i_write_typeref(type->component);
      i_write_uint(type->qualifiers);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      break;
    case TYPE::ARRAY:
      write_type_start(type, tc_array);
      i_write_typeref(type->component);
      i_write_uint_signed(type->element_count);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      i_write_bool(type->is_cpp);
      i_write_bool(type->array_is_complete);
      i_write_bool(type->is_vector);
      break;
    case TYPE::PTR_TO_MEMBER:
      write_type_start(type, tc_ptr_to_member);
      i_write_typeref(type->component);
      i_write_typeref(type->member_class);
      i_write_uint(type->size);
      i_write_uint(type->alignment);
      break;
    case TYPE::FUNCTION:
      write_function_type(type);
      return;
    case TYPE::ENUM:
      write_enum_type(type);
      return;
    case TYPE::CLASS:
    case TYPE::STRUCT:
    case TYPE::UNION:
      write_csu_type(type);
      return;
  }
  i_flush(ifr_type);
}

void I_FILE::write_integral_type(TYPE *type) {
  write_type_start(type, integral_codes[type->ikind]);
  i_write_bool(type->explicit_sign);
  i_write_uint(type->size);
  i_write_uint(type->alignment);
  i_write_bool(type->is_bool());
  i_write_bool(type->is_boolean_int);
}

void I_FILE::write_function_type(TYPE *type) {
  write_type_start(type, tc_function);
  i_write_typeref(type->component);
  i_write_bool(type->is_vararg);
  i_write_bool(type->is_prototyped);
  i_write_i8(type->cc_kind);
  i_write_bool(type->is_cpp);
  i_flush(ifr_type);
  write_listof_params(type, type->params.head);
}

void I_FILE::write_enum_type(TYPE *type) {
  write_type_start(type, tc_enum);
  i_write_string(type->name());
  i_write_uint(type->size);
  i_write_uint(type->alignment);
  i_write_typeref(type->component);
  i_write_bool(type->is_cpp);
  i_write_psn(type->psn);
  i_flush(ifr_type);
  bool is_signed = type->component->is_signed();
  write_list_frame(type, list_header, list_enumerators);
  for (const fkETOR *e = type->enumerators.head; e != nullptr; e = e->next) {
    write_item_start(type, item_enumerator);
    i_write_string(e->name);
    if (is_signed)
      i_write_sint(e->value);
    else
      i_write_uint_signed(e->value);
    i_write_psn(e->psn);
    i_flush(ifr_type);
  }
  write_list_frame(type, list_trailer, list_enumerators);
}

void I_FILE::write_csu_type(TYPE *type) {
  const a_class_subpart *csu = type->csu;
  bool is_long = needs_long_form(csu);
  write_type_start(type, is_long ? tc_csu_long : tc_csu_short);
  i_write_i8(type->kind == TYPE::STRUCT ? 0 : type->kind == TYPE::UNION ? 1 : 2);
  i_write_string(type->name());
  i_write_bool(csu->is_complete);
  i_write_bool(csu->is_lowered);
  i_write_uint(type->size);
  i_write_uint(type->alignment);
  if (is_long) {
    i_write_uint_signed(csu->vtable_count);
    i_write_bool(csu->base_classes.head != nullptr);
    i_write_bool(csu->access_decls.head != nullptr);
    i_write_bool(csu->friend_functions.head != nullptr);
    i_write_bool(csu->friend_classes.head != nullptr);
    i_write_bool(csu->nested_types.head != nullptr);
  }
  i_write_bool(csu->data_members.head != nullptr);
  if (is_long) {
    i_write_bool(csu->static_members.head != nullptr);
    i_write_bool(csu->member_functions.head != nullptr);
    i_write_bool(csu->template_params.head != nullptr);
  }
  i_write_bool(csu->is_struct_vector);
  i_write_bool(type->is_cpp);
  i_write_psn(type->psn);
  i_flush(ifr_type);
}

void I_FILE::write_list_frame(TYPE *owner, unsigned frame, unsigned list_kind) {
  i_write_typeref(owner);
  i_write_i8(frame);
  i_write_i8(list_kind);
  i_flush(ifr_type);
}

void I_FILE::write_item_start(TYPE *owner, unsigned code) {
  i_write_typeref(owner);
  i_write_i8(code);
}

template <typename ELEMENT>
void I_FILE::write_types_of_list(const ELEMENT *list) {
  for (; list != nullptr; list = list->next)
    if (list->type != nullptr) if_write_type(list->type);
}

void I_FILE::write_listof_params(TYPE *owner, const fkPARAM *list) {
  write_types_of_list(list);
  write_list_frame(owner, list_header, list_params);
  for (const fkPARAM *param = list; param != nullptr; param = param->next) {
    write_item_start(owner, item_param);
    i_write_typeref(param->type);
    i_write_bool(false);
    i_write_uint_signed(param->param_kind);
    i_write_string(param->text != nullptr ? param->text : "");
    i_flush(ifr_type);
  }
  write_list_frame(owner, list_trailer, list_params);
}

void I_FILE::write_listof_data_members(TYPE *owner, const fkMDATA *list) {
  write_types_of_list(list);
  write_list_frame(owner, list_header, list_data_members);
  for (const fkMDATA *member = list; member != nullptr; member = member->next) {
    write_item_start(owner, item_data_member);
    i_write_uint_signed(member->id);
    i_write_string(member->name);
    i_write_typeref(member->type);
    i_write_i8(static_cast<unsigned>(member->access));
    i_write_sint(member->bit_offset);
    i_write_i8(member->storage_byte);
    i_write_uint_signed(member->bit_width);
    i_write_bool(member->is_bit_field);
    i_write_bool(member->is_flag_a);
    i_write_bool(member->is_flag_b);
    i_write_psn(member->psn);
    i_flush(ifr_type);
  }
  write_list_frame(owner, list_trailer, list_data_members);
}

// The lists of a class, in their fixed order. The types of the items come in front of each list.
void I_FILE::write_csu_type_lists(TYPE *type) {
  const a_class_subpart *csu = type->csu;
  // One list: its element types if it has any, the header, a record for each item, the trailer.
  auto write_list = [&](auto *head, unsigned code, unsigned list_kind, auto write_item) {
    if (head == nullptr) return;
    write_list_frame(type, list_header, list_kind);
    for (auto *e = head; e != nullptr; e = e->next) {
      write_item_start(type, code);
      write_item(e);
      i_flush(ifr_type);
    }
    write_list_frame(type, list_trailer, list_kind);
  };
  write_types_of_list(csu->base_classes.head);
  write_list(csu->base_classes.head, item_base_class, list_base_classes, [this](fkBCLASS *e) {
    i_write_typeref(e->type);
    i_write_sint(e->offset);
    i_write_i8(static_cast<unsigned>(e->access));
    i_write_bool(e->is_virtual);
  });
  write_list(csu->access_decls.head, item_access_decl, list_access_decls, [this](fkADECL *e) {
    i_write_uint(0);
    i_write_i8(static_cast<unsigned>(e->value));
  });
  write_types_of_list(csu->friend_functions.head);
  write_list(csu->friend_functions.head, item_friend_function, list_friend_functions,
             [this](fkFFRIEND *e) {
               i_write_string(e->name);
               i_write_typeref(e->type);
             });
  auto write_type_item = [this](fkTYPE_ELEM *e) { i_write_typeref(e->type); };
  write_types_of_list(csu->friend_classes.head);
  write_list(csu->friend_classes.head, item_friend_class, list_friend_classes, write_type_item);
  write_list(csu->nested_types.head, item_nested_type, list_nested_types, write_type_item);
  if (csu->data_members.head != nullptr) write_listof_data_members(type, csu->data_members.head);
  write_types_of_list(csu->static_members.head);
  write_list(csu->static_members.head, item_static_member, list_static_members, [this](fkSDATA *e) {
    i_write_string(e->name);
    i_write_typeref(e->type);
    i_write_i8(static_cast<unsigned>(e->access));
  });
  write_types_of_list(csu->member_functions.head);
  write_list(csu->member_functions.head, item_member_function, list_member_functions,
             [this](fkMFUNC *e) {
               i_write_string(e->name);
               i_write_typeref(e->type);
               i_write_i8(static_cast<unsigned>(e->access));
               i_write_sint(e->virtual_index);
               for (bool flag : e->flags)
                 i_write_bool(flag);
             });
  if (csu->template_params.head != nullptr) write_listof_params(type, csu->template_params.head);
}
