// The makers of types and the memory of a package.
//
// Every maker fills a probe and registers it: if an equal type hangs below the same base, the probe
// is taken back and the older type is the result. Only functions, enums and classes are handed out
// unfinished, because the caller still adds lists to them.
#include "TYPES/type_pkg.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

bool TYPE_PKG::abi = false;
std::uint32_t TYPE_PKG::wchar_t_size_in_bits = 16;
bool TYPE_PKG::seen_enum_type = false;
bool TYPE_PKG::seen_small_enums = false;
bool TYPE_PKG::seen_bitfield = false;

void tp_die(const char *text) {
  std::fprintf(stderr, "TP>> internal error: %s\n", text);
  std::exit(1);
}

fkMDATA *TYPE_PKG::member_with_id(a_class_subpart *csu, std::int32_t id) {
  const fkMDATA *tail = csu->data_members.tail;
  if (tail == nullptr || id < 1 || id > tail->id) return nullptr;
  if (csu->num_members != tail->id) {
    csu->num_members = tail->id;
    const std::size_t bytes = static_cast<std::size_t>(tail->id) * sizeof(fkMDATA *);
    csu->members_by_id = static_cast<fkMDATA **>(alloc(bytes));
    for (fkMDATA *member = csu->data_members.head; member != nullptr; member = member->next)
      csu->members_by_id[member->id - 1] = member;
  }
  return csu->members_by_id[id - 1];
}

namespace {

constexpr std::size_t block_size = 64 * 1024;
constexpr char fake_prefix[] = "$$fake";

struct a_basic_size {
  std::uint32_t size, alignment;
};

a_basic_size basic_integer_size(TYPE::IKIND ikind) {
  switch (ikind) {
    case TYPE::BOOL:
    case TYPE::SCHAR:
    case TYPE::UCHAR:
      return {8, 8};
    case TYPE::SHORT:
    case TYPE::USHORT:
      return {16, 16};
    case TYPE::WCHAR_T: {
      std::uint32_t bits = TYPE_PKG::wchar_t_size_in_bits;
      return {bits, bits == 16 ? 16u : 32u};
    }
    case TYPE::LLONG:
    case TYPE::ULLONG:
      return {64, TYPE_PKG::abi ? 64u : 32u};
    default:
      return {32, 32};
  }
}

a_basic_size basic_float_size(TYPE::FKIND fkind) {
  if (fkind == TYPE::FLOAT) return {32, 32};
  return {64, TYPE_PKG::abi ? 64u : 32u};
}

// The place of an integer kind among the basic types: the aliases of long stand in two slots.
unsigned basic_slot(TYPE::IKIND ikind) {
  return ikind;
}

}  // namespace

bool is_fake_name(const char *name) {
  return std::strncmp(name, fake_prefix, sizeof fake_prefix - 1) == 0;
}

TYPE_PKG::TYPE_PKG() {
  root_type = new_type(TYPE::VOID_KIND, 0, 8);
  root_type->stripped = root_type;
  make_basic_types();
}

TYPE_PKG::~TYPE_PKG() {
  for (TYPE *type : types_with_based)
    delete type->based;
  for (char *block : blocks)
    std::free(block);
}

void *TYPE_PKG::alloc(std::size_t size) {
  size = (size + 15) & ~std::size_t{15};
  if (static_cast<std::size_t>(block_end - block_next) < size) {
    std::size_t wanted = size > block_size ? size : block_size;
    char *block = static_cast<char *>(std::calloc(1, wanted));
    if (block == nullptr) tp_die("Out of memory: tp_alloc()");
    blocks.push_back(block);
    block_next = block;
    block_end = block + wanted;
  }
  void *result = block_next;
  block_next += size;
  return result;
}

const char *TYPE_PKG::keep_text(std::string_view text) {
  char *copy = static_cast<char *>(alloc(text.size() + 1));
  if (!text.empty()) std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

TYPE *TYPE_PKG::new_type(TYPE::KIND kind, std::uint64_t size, std::uint32_t align) {
  void *memory;
  if (free_types.empty()) {
    memory = alloc(sizeof(TYPE));
  } else {
    memory = free_types.back();
    free_types.pop_back();
  }
  TYPE *type = new (memory) TYPE;
  type->kind = kind;
  type->size = size;
  type->alignment = align;
  type->pkg = this;
  return type;
}

TYPE *TYPE_PKG::freeze_below(TYPE *type, TYPE *base) {
  type->frozen = true;
  return register_type(type, base);
}

void TYPE_PKG::make_basic_types() {
  void_type = new_type(TYPE::VOID_KIND, 0, 8);
  void_type->stripped = void_type;
  void_type = freeze_below(void_type, root_type);
  for (unsigned i = 0; i < 14; i++) {
    TYPE::IKIND ikind = static_cast<TYPE::IKIND>(i);
    if (ikind == TYPE::INT_ALIAS || ikind == TYPE::UINT_ALIAS) continue;
    bool explicit_sign = ikind == TYPE::SCHAR || ikind == TYPE::UCHAR;
    basic_types[basic_slot(ikind)] = mk_int(ikind, explicit_sign);
  }
  basic_types[TYPE::INT_ALIAS] = basic_types[TYPE::LONG];
  basic_types[TYPE::UINT_ALIAS] = basic_types[TYPE::ULONG];
  for (unsigned i = 0; i < 3; i++) {
    a_basic_size size = basic_float_size(static_cast<TYPE::FKIND>(i));
    basic_types[14 + i] = mk_fltpt(static_cast<TYPE::FKIND>(i), size.size, size.alignment);
  }
  void_pointer_type = mk_ptr(void_type);
}

void TYPE_PKG::update_basic_types() {
  for (unsigned i = 0; i < 14; i++) {
    a_basic_size size = basic_integer_size(static_cast<TYPE::IKIND>(basic_types[i]->ikind));
    basic_types[i]->size = size.size;
    basic_types[i]->alignment = size.alignment;
  }
  for (unsigned i = 0; i < 3; i++) {
    a_basic_size size = basic_float_size(static_cast<TYPE::FKIND>(i));
    basic_types[14 + i]->size = size.size;
    basic_types[14 + i]->alignment = size.alignment;
  }
}

TYPE *TYPE_PKG::mk_int(TYPE::IKIND ikind, bool explicit_sign, std::uint64_t size,
                       std::uint32_t align, bool is_boolean, bool is_ptm) {
  if (ikind > TYPE::ULLONG) tp_die("Bad kind: TYPE_PKG::mk_int");
  TYPE *type = new_type(TYPE::INTEGRAL, size, align);
  type->ikind = ikind;
  type->explicit_sign = explicit_sign;
  type->is_boolean_int = is_boolean;
  type->is_ptm_int = is_ptm;
  type->stripped = type;
  return freeze_below(type, root_type);
}

TYPE *TYPE_PKG::mk_int(TYPE::IKIND ikind, bool explicit_sign) {
  if (ikind > TYPE::ULLONG) tp_die("Bad kind: TYPE_PKG::mk_int");
  a_basic_size size = basic_integer_size(ikind);
  return mk_int(ikind, explicit_sign, size.size, size.alignment, false, false);
}

TYPE *TYPE_PKG::mk_boolean_int(TYPE *type) {
  return mk_int(type->ikind, type->explicit_sign, type->size, type->alignment, true,
                type->is_ptm_int);
}

TYPE *TYPE_PKG::mk_ptm_int(TYPE *type) {
  return mk_int(type->ikind, type->explicit_sign, type->size, type->alignment, type->is_boolean_int,
                true);
}

TYPE *TYPE_PKG::mk_fltpt(TYPE::FKIND fkind, std::uint64_t size, std::uint32_t align) {
  TYPE *type = new_type(TYPE::FLOATING, size, align);
  type->fkind = fkind;
  type->stripped = type;
  return freeze_below(type, root_type);
}

TYPE *TYPE_PKG::mk_fxtpt(TYPE *underlying, std::uint8_t binary_point, std::uint64_t size,
                         std::uint32_t align) {
  TYPE *type = new_type(TYPE::FIXED_POINT, size, align);
  type->component = underlying;
  type->binary_point = binary_point;
  type->stripped = type;
  return freeze_below(type, root_type);
}

TYPE *TYPE_PKG::mk_complex(TYPE *part) {
  if (!part->is_signed() && part->stripped->kind != TYPE::FLOATING)
    tp_die("Bad complex part_type: TYPE::TYPE(TYPE *i_part_type)");
  TYPE *type = new_type(TYPE::COMPLEX, 2 * part->size, part->alignment);
  type->component = part;
  type->stripped = type;
  return freeze_below(type, root_type);
}

TYPE *TYPE_PKG::mk_ptr(TYPE *pointed_to) {
  if (pointed_to->pointer_to == nullptr) pointed_to->pointer_to = mk_ptr(pointed_to, 32, 32);
  return pointed_to->pointer_to;
}

TYPE *TYPE_PKG::mk_ptr(TYPE *pointed_to, std::uint64_t size, std::uint32_t align) {
  TYPE *type = new_type(TYPE::POINTER, size, align);
  type->component = pointed_to;
  type->stripped = type;
  return freeze_below(type, pointed_to);
}

TYPE *TYPE_PKG::mk_ref(TYPE *referred_to, std::uint64_t size, std::uint32_t align) {
  TYPE *type = new_type(TYPE::REFERENCE, size, align);
  type->component = referred_to;
  type->stripped = type;
  return freeze_below(type, referred_to);
}

TYPE *TYPE_PKG::mk_qual(TYPE *type, unsigned bits) {
  return mk_qual(type, bits, type->size, type->alignment);
}

// A qualified type always hangs below an unqualified one: const of volatile T is one type below T
// with both bits.
TYPE *TYPE_PKG::mk_qual(TYPE *type, unsigned bits, std::uint64_t size, std::uint32_t align) {
  unsigned all_bits = bits;
  TYPE *unqualified = type;
  while (unqualified->kind == TYPE::QUALIFIED) {
    all_bits |= unqualified->qualifiers;
    unqualified = unqualified->component;
  }
  unsigned present = type->kind == TYPE::QUALIFIED ? type->qualifiers : 0;
  if (all_bits == present && size == type->size && align == type->alignment) return type;
  if ((all_bits & TYPE::PACKED_QUAL) != 0) align = 8;
  TYPE *result = new_type(TYPE::QUALIFIED, size, align);
  result->component = unqualified;
  result->qualifiers = static_cast<std::uint8_t>(all_bits);
  result->stripped = unqualified->stripped;
  return freeze_below(result, unqualified);
}

TYPE *TYPE_PKG::mk_ptm(TYPE *member, TYPE *member_class, std::uint64_t size, std::uint32_t align) {
  TYPE *type = new_type(TYPE::PTR_TO_MEMBER, size, align);
  type->component = member;
  type->member_class = member_class;
  type->stripped = type;
  return freeze_below(type, member);
}

TYPE *TYPE_PKG::mk_array(TYPE *element, bool is_cpp, std::int64_t count, std::uint64_t size,
                         std::uint32_t align, bool complete, bool is_vector) {
  TYPE *type = new_type(TYPE::ARRAY, size, align);
  type->component = element;
  type->is_cpp = is_cpp;
  type->element_count = count;
  type->array_is_complete = complete;
  type->is_vector = is_vector;
  type->stripped = type;
  return freeze_below(type, element);
}

TYPE *TYPE_PKG::mk_func(TYPE *ret, bool is_cpp, bool prototyped, bool vararg,
                        TYPE::CC_KIND cc_kind) {
  TYPE *type = new_type(TYPE::FUNCTION, 0, 8);
  type->component = ret;
  type->is_cpp = is_cpp;
  type->is_prototyped = prototyped;
  type->is_vararg = vararg;
  type->cc_kind = cc_kind;
  type->stripped = type;
  return type;
}

// A tagless type gets a name that no program can write, so that every such type has one.
static const char *name_or_fake(TYPE_PKG *pkg, const char *name, std::uint32_t *counter) {
  if (name != nullptr && !is_fake_name(name)) return name;
  char text[32];
  std::snprintf(text, sizeof text, "%s%u", fake_prefix, (*counter)++);
  return pkg->keep_text(text);
}

TYPE *TYPE_PKG::mk_enum(const char *name, TYPE *underlying, std::uint64_t size, std::uint32_t align,
                        bool is_cpp) {
  TYPE *type = new_type(TYPE::ENUM, size, align);
  type->component = underlying;
  type->name_text = name_or_fake(this, name, &fake_counter);
  type->is_cpp = is_cpp;
  type->stripped = type;
  seen_enum_type = true;
  if (size < 32) seen_small_enums = true;
  return type;
}

TYPE *TYPE_PKG::mk_csu(TYPE::KIND kind, const char *name, std::uint64_t size, std::uint32_t align,
                       bool complete, std::int32_t vtable_count, bool lowered, bool struct_vector,
                       bool is_cpp) {
  TYPE *type = new_type(kind, size, align);
  type->name_text = name_or_fake(this, name, &fake_counter);
  type->is_cpp = is_cpp;
  type->csu = new (alloc(sizeof(a_class_subpart))) a_class_subpart;
  type->csu->is_complete = complete;
  type->csu->is_lowered = lowered;
  type->csu->is_struct_vector = struct_vector;
  type->csu->vtable_count = vtable_count;
  type->stripped = type;
  return type;
}

TYPE *TYPE_PKG::mk_typedef(const char *name, bool is_cpp, TYPE *named, std::uint64_t size,
                           std::uint32_t align, bool lowered, const PSN *psn) {
  TYPE *type = new_type(TYPE::TYPEDEF, size, align);
  type->component = named;
  type->name_text = name;
  type->is_cpp = is_cpp;
  type->typedef_is_lowered = lowered;
  type->psn = psn;
  type->stripped = named->stripped;
  return freeze_below(type, named);
}
