// The tree of types: where a type hangs, how equal types become one, and the walks.
//
// A type is looked for among those that hang below its base under the same key. Buckets can grow
// with the program (every function type that returns int shares one), so each keeps an index by a
// hash of the shape beside the order of insertion, which alone decides the order of the file.
#include <cstring>

#include "TYPES/type_pkg.h"

namespace {

std::size_t mix(std::size_t hash, std::size_t value) {
  return (hash ^ value) * 0x9E3779B97F4A7C15u + (hash >> 29);
}

std::size_t mix_pointer(std::size_t hash, const TYPE *type) {
  return mix(hash, reinterpret_cast<std::uintptr_t>(type) >> 4);
}

// A hash of what exact_types compares. Components enter by their addresses: the hash only speeds up
// the search, and no order depends on it.
std::size_t shape_hash(const TYPE *type) {
  std::size_t hash = mix(type->kind, type->size);
  hash = mix(hash, type->alignment);
  hash = mix_pointer(hash, type->component);
  switch (type->kind) {
    case TYPE::INTEGRAL:
      return mix(hash, type->ikind * 8u + type->explicit_sign * 4u + type->is_boolean_int * 2u +
                           type->is_ptm_int);
    case TYPE::FLOATING:
      return mix(hash, type->fkind);
    case TYPE::QUALIFIED:
      return mix(hash, type->qualifiers);
    case TYPE::ARRAY:
      return mix(hash, static_cast<std::size_t>(type->element_count));
    case TYPE::PTR_TO_MEMBER:
      return mix_pointer(hash, type->member_class);
    case TYPE::FUNCTION:
      for (const fkPARAM *param = type->params.head; param != nullptr; param = param->next)
        hash = mix_pointer(hash, param->type);
      return mix(hash, type->is_prototyped * 2u + type->is_vararg);
    default:
      return hash;
  }
}

bool equal_param_lists(const fkPARAM *a, const fkPARAM *b) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next) {
    if (a->param_kind != b->param_kind || !exact_types(a->type, b->type)) return false;
    if (std::strcmp(a->text != nullptr ? a->text : "", b->text != nullptr ? b->text : "") != 0)
      return false;
  }
  return a == b;
}

bool equal_enumerator_lists(const fkETOR *a, const fkETOR *b) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next)
    if (a->value != b->value || std::strcmp(a->name, b->name) != 0) return false;
  return a == b;
}

}  // namespace

bool exact_types(const TYPE *a, const TYPE *b) {
  if (a == b) return true;
  if (a == nullptr || b == nullptr) return false;
  if (a->frozen != b->frozen || a->kind != b->kind || a->size != b->size ||
      a->alignment != b->alignment || a->is_cpp != b->is_cpp)
    return false;
  switch (a->kind) {
    case TYPE::VOID_KIND:
      return true;
    case TYPE::INTEGRAL:
      return a->ikind == b->ikind && a->explicit_sign == b->explicit_sign &&
             a->is_boolean_int == b->is_boolean_int && a->is_ptm_int == b->is_ptm_int;
    case TYPE::FLOATING:
      return a->fkind == b->fkind;
    case TYPE::FIXED_POINT:
      return a->binary_point == b->binary_point && exact_types(a->component, b->component);
    case TYPE::COMPLEX:
    case TYPE::POINTER:
    case TYPE::REFERENCE:
      return exact_types(a->component, b->component);
    case TYPE::QUALIFIED:
      return a->qualifiers == b->qualifiers && exact_types(a->stqs(), b->stqs());
    case TYPE::TYPEDEF:
      return a->typedef_is_lowered == b->typedef_is_lowered &&
             std::strcmp(a->name(), b->name()) == 0 && exact_types(a->component, b->component);
    case TYPE::ARRAY:
      return a->array_is_complete == b->array_is_complete && a->is_vector == b->is_vector &&
             a->element_count == b->element_count && exact_types(a->component, b->component);
    case TYPE::PTR_TO_MEMBER:
      return exact_types(a->component, b->component) &&
             exact_types(a->member_class, b->member_class);
    case TYPE::FUNCTION:
      return a->cc_kind == b->cc_kind && a->is_vararg == b->is_vararg &&
             a->is_prototyped == b->is_prototyped && exact_types(a->component, b->component) &&
             equal_param_lists(a->params.head, b->params.head);
    case TYPE::ENUM:
      return std::strcmp(a->name(), b->name()) == 0 && exact_types(a->component, b->component) &&
             equal_enumerator_lists(a->enumerators.head, b->enumerators.head);
    case TYPE::CLASS:
    case TYPE::STRUCT:
    case TYPE::UNION:
      return false;
  }
  tp_die("unhandled type kind: exact_types()");
}

TYPE *TYPE_PKG::base_type(const TYPE *type) const {
  switch (type->kind) {
    case TYPE::POINTER:
    case TYPE::PTR_TO_MEMBER:
    case TYPE::REFERENCE:
    case TYPE::QUALIFIED:
    case TYPE::TYPEDEF:
    case TYPE::FUNCTION:
      return type->component;
    case TYPE::ARRAY:
      return type->elem_type();
    default:
      return root_type;
  }
}

std::string_view TYPE_PKG::demangle_type_name(std::string_view name) {
  // A mangled name starts with _Z, outside the EABI behind one more underscore; the last source
  // name in it is the key. Any other name is its own key.
  std::string_view rest = name;
  if (!abi && !rest.empty()) rest.remove_prefix(1);
  if (!rest.starts_with("_Z")) return name;
  std::string_view last = name;
  for (std::size_t i = 2; i < rest.size();) {
    if (rest[i] < '0' || rest[i] > '9') {
      i++;
      continue;
    }
    std::size_t length = 0;
    for (; i < rest.size() && rest[i] >= '0' && rest[i] <= '9' && length < rest.size(); i++)
      length = length * 10 + static_cast<std::size_t>(rest[i] - '0');
    if (length == 0 || length > rest.size() - i) break;
    last = rest.substr(i, length);
    i += length;
  }
  return last;
}

std::string_view TYPE::map_name() {
  if (!map_key.empty()) return map_key;
  const TYPE *unqualified = this;
  while (unqualified->kind == QUALIFIED)
    unqualified = unqualified->component;
  if (unqualified->kind != TYPEDEF && !unqualified->is_udt()) {
    map_key = "__builtin_type";
  } else if (unqualified->is_udt() && is_fake_name(unqualified->name())) {
    map_key = unqualified->kind == ENUM    ? "$$fakeenum"
              : unqualified->kind == UNION ? "$$fakeunion"
                                           : "$$fakestruct";
  } else {
    map_key = pkg->demangle_type_name(unqualified->name());
    if (map_key.empty()) map_key = "__builtin_type";
  }
  return map_key;
}

void TYPE_PKG::assign_uid(TYPE *type) {
  type->uid = next_uid++;
  if (!type->is_class_kind()) return;
  std::int32_t id = 1;
  for (fkMDATA *member = type->csu->data_members.head; member != nullptr; member = member->next)
    member->id = id++;
}

TYPE *TYPE_PKG::register_type(TYPE *type, TYPE *base) {
  type->unit = unit;
  if (!type->frozen || type->uid != 0) return type;
  if (type->pkg == nullptr) type->pkg = this;
  if (base->based == nullptr) {
    base->based = new TYPE::BASED_TYPE_CONTAINER;
    types_with_based.push_back(base);
  }
  TYPE::BASED_TYPE_CONTAINER::a_bucket &bucket = base->based->buckets[type->map_name()];
  if (!type->stripped->is_udt()) {
    std::size_t hash = shape_hash(type);
    if (type->based == nullptr) {
      auto [first, last] = bucket.by_shape.equal_range(hash);
      for (; first != last; ++first) {
        if (!exact_types(first->second, type)) continue;
        free_types.push_back(type);
        return first->second;
      }
    }
    bucket.by_shape.emplace(hash, type);
  }
  assign_uid(type);
  bucket.types.push_back(type);
  return type;
}

void TYPE_PKG::type_frozen(TYPE **type) {
  TYPE *t = *type;
  if (t->frozen && t->uid != 0) return;
  t->frozen = true;
  switch (t->kind) {
    case TYPE::ARRAY:
    case TYPE::FUNCTION:
    case TYPE::ENUM:
    case TYPE::CLASS:
    case TYPE::STRUCT:
    case TYPE::UNION:
      *type = register_type(t, base_type(t));
      break;
    default:
      break;
  }
}

std::uint64_t TYPE::storage_size() const {
  switch (kind) {
    case INTEGRAL:
    case FLOATING:
    case FIXED_POINT:
    case COMPLEX:
    case POINTER:
    case REFERENCE:
    case PTR_TO_MEMBER:
    case ENUM: {
      std::uint64_t power = 1;
      while (power < size)
        power *= 2;
      return power;
    }
    default:
      return size;
  }
}

TYPE *TYPE::stds() const {
  const TYPE *type = this;
  while (type->kind == TYPEDEF)
    type = type->component;
  return const_cast<TYPE *>(type);
}

TYPE *TYPE::stqs() const {
  const TYPE *type = this;
  while (type->kind == QUALIFIED)
    type = type->component;
  return const_cast<TYPE *>(type);
}

TYPE *TYPE::elem_type() const {
  if (kind != ARRAY) tp_die("Bad kind:  TYPE::elem_type");
  return component;
}

bool TYPE::is_complete() const {
  const TYPE *type = stripped;
  if (type->is_class_kind()) return type->csu->is_complete;
  if (type->kind == ARRAY) return type->array_is_complete;
  if (type->kind == ENUM) return type->enum_is_complete;
  return type->kind != VOID_KIND;
}

bool TYPE::is_lowered() const {
  const TYPE *type = this;
  for (;;) {
    switch (type->kind) {
      case TYPEDEF:
        if (type->typedef_is_lowered) return true;
        type = type->component;
        break;
      case POINTER:
      case REFERENCE:
      case ARRAY:
      case QUALIFIED:
      case FUNCTION:
      case ENUM:
        type = type->component;
        break;
      case CLASS:
      case STRUCT:
      case UNION:
        return type->csu->is_lowered;
      default:
        return false;
    }
  }
}

static const TYPE *integral_behind(const TYPE *type) {
  type = type->stripped;
  while (type->kind == TYPE::ENUM)
    type = type->component->stripped;
  return type;
}

bool TYPE::is_signed() const {
  const TYPE *type = integral_behind(this);
  if (type->kind != INTEGRAL) return false;
  switch (type->ikind) {
    case SCHAR:
    case SHORT:
    case INT:
    case INT_ALIAS:
    case LONG:
    case LLONG:
      return true;
    default:
      return false;
  }
}

bool TYPE::is_unsigned() const {
  const TYPE *type = integral_behind(this);
  return type->kind == INTEGRAL && !is_signed();
}

bool TYPE::is_bool() const {
  return stripped->kind == INTEGRAL && (stripped->ikind == BOOL || stripped->is_boolean_int);
}

bool TYPE::is_arithmetic() const {
  return stripped->kind >= INTEGRAL && stripped->kind <= COMPLEX;
}

bool TYPE::is_scalar() const {
  return is_arithmetic() || stripped->kind == POINTER || stripped->kind == ENUM ||
         stripped->kind == PTR_TO_MEMBER;
}

unsigned TYPE::ekind() const {
  const TYPE *type = stripped;
  switch (type->kind) {
    case INTEGRAL:
      return type->ikind;
    case FLOATING:
      return 14u + type->fkind;
    case FIXED_POINT:
      return 17;
    case COMPLEX:
      return 18;
    case POINTER:
      return 19;
    case REFERENCE:
      return 20;
    case ARRAY:
      return 21;
    case PTR_TO_MEMBER:
      return 22;
    case FUNCTION:
      return 23;
    case ENUM:
      return 24;
    case CLASS:
      return 25;
    case STRUCT:
      return 26;
    case UNION:
      return 27;
    case VOID_KIND:
      return 28;
    default:
      tp_die("Bad kind: TYPE::ekind()");
  }
}

TYPE::TYPE_TREE_ITERATOR::TYPE_TREE_ITERATOR(TYPE *root) : current(root) {}

TYPE *TYPE::TYPE_TREE_ITERATOR::next() {
  if (current == nullptr) return nullptr;
  if (current->based != nullptr && !current->based->buckets.empty()) {
    places.push_back({current->based, current->based->buckets.begin(), 0});
  } else if (!places.empty()) {
    places.back().index++;
  }
  while (!places.empty()) {
    a_place &place = places.back();
    if (place.index < place.bucket->second.types.size())
      return current = place.bucket->second.types[place.index];
    if (++place.bucket != place.container->buckets.end()) {
      place.index = 0;
      continue;
    }
    places.pop_back();
    if (!places.empty()) places.back().index++;
  }
  return current = nullptr;
}

void TYPE::mark_refed_types() {
  TYPE_TREE_ITERATOR walk(this);
  while (TYPE *type = walk.next()) {
    TYPE *representative = find_type(type);
    if (representative->referenced && representative->mark == 0) representative->mark_refed_recur();
  }
}

// Marks the type as referenced, and what a reader of its record needs. Works from a list of its
// own, since a chain of types can be as long as the program makes it.
void TYPE::mark_refed_recur() {
  std::vector<TYPE *> waiting = {this};
  auto need = [&waiting](TYPE *type) {
    if (type != nullptr) waiting.push_back(type);
  };
  while (!waiting.empty()) {
    TYPE *type = find_type(waiting.back());
    waiting.pop_back();
    if (type->mark != 0) continue;
    type->mark = -1;
    type->referenced = true;
    need(type->component);
    need(type->member_class);
    for (fkPARAM *param = type->params.head; param != nullptr; param = param->next)
      need(param->type);
    if (!type->is_class_kind()) continue;
    a_class_subpart *csu = type->csu;
    for (auto *e = csu->data_members.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->static_members.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->member_functions.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->base_classes.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->friend_functions.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->friend_classes.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->nested_types.head; e != nullptr; e = e->next)
      need(e->type);
    for (auto *e = csu->template_params.head; e != nullptr; e = e->next)
      need(e->type);
  }
}

void TYPE::mark_named_types(bool keep_all) {
  if (!keep_all) return;
  TYPE_TREE_ITERATOR walk(this);
  while (TYPE *type = walk.next())
    if ((type->kind == TYPEDEF || type->is_udt()) && !type->is_lowered())
      find_type(type)->referenced = true;
}
