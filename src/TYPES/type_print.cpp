// Printing of types as C declarations.
//
// A declaration reads inside out: the printer walks from the type towards its base and builds the
// declarator around the name, "*" in front, "[n]" and "(...)" behind, with parentheses where a
// pointer meets an array or a function.
#include "TYPES/type_print.h"

namespace {

constexpr int max_depth = 200;  // of nested components; deeper types print as "..."

const char *integral_name(const TYPE *type) {
  switch (type->ikind) {
    case TYPE::BOOL:
      return "bool";
    case TYPE::SCHAR:
      return type->explicit_sign ? "signed char" : "char";
    case TYPE::UCHAR:
      return type->explicit_sign ? "unsigned char" : "char";
    case TYPE::WCHAR_T:
      return "wchar_t";
    case TYPE::SHORT:
      return "short";
    case TYPE::USHORT:
      return "unsigned short";
    case TYPE::INT:
      return "int";
    case TYPE::UINT:
      return "unsigned int";
    case TYPE::INT_ALIAS:
    case TYPE::LONG:
      return "long";
    case TYPE::UINT_ALIAS:
    case TYPE::ULONG:
      return "unsigned long";
    case TYPE::LLONG:
      return "long long";
    case TYPE::ULLONG:
      return "unsigned long long";
  }
  return "?";
}

const char *key_of(const TYPE *type) {
  switch (type->kind) {
    case TYPE::ENUM:
      return "enum ";
    case TYPE::CLASS:
      return "class ";
    case TYPE::STRUCT:
      return "struct ";
    case TYPE::UNION:
      return "union ";
    default:
      return "";
  }
}

std::string qualifier_words(unsigned bits) {
  static const char *const words[] = {"const", "volatile", "packed",   "near",
                                      "far",   "ioport",   "restrict", "onchip"};
  std::string result;
  for (unsigned i = 0; i < 8; i++)
    if ((bits >> i & 1) != 0) result.append(result.empty() ? "" : " ").append(words[i]);
  return result;
}

std::string base_text(const TYPE *type) {
  switch (type->kind) {
    case TYPE::VOID_KIND:
      return "void";
    case TYPE::INTEGRAL:
      return std::string(integral_name(type)) + (type->is_boolean_int ? " /*boolean*/" : "");
    case TYPE::FLOATING:
      return type->fkind == TYPE::FLOAT    ? "float"
             : type->fkind == TYPE::DOUBLE ? "double"
                                           : "long double";
    default:
      return std::string(key_of(type)) + type->name();
  }
}

std::string print(const TYPE *type, std::string declared, int depth);

std::string parameter_list(const TYPE *type, int depth) {
  std::string result = "(";
  for (const fkPARAM *param = type->params.head; param != nullptr; param = param->next) {
    if (param != type->params.head) result += ", ";
    result += param->type != nullptr ? print(param->type, "", depth + 1) : std::string("?");
  }
  if (type->is_vararg) result += type->params.head != nullptr ? ", ..." : "...";
  if (type->params.head == nullptr && !type->is_vararg && type->is_prototyped) result += "void";
  return result + ")";
}

std::string in_parentheses_if_pointer(const std::string &declared) {
  bool pointer = !declared.empty() && (declared[0] == '*' || declared[0] == '&');
  return pointer ? "(" + declared + ")" : declared;
}

std::string with_base(const std::string &base, const std::string &declared) {
  if (declared.empty()) return base;
  return base + (declared[0] == '[' || declared[0] == '(' ? "" : " ") + declared;
}

std::string print(const TYPE *type, std::string declared, int depth) {
  if (type == nullptr) return with_base("<none>", declared);
  if (depth > max_depth) return with_base("...", declared);
  switch (type->kind) {
    case TYPE::POINTER:
    case TYPE::REFERENCE:
      return print(type->component, (type->kind == TYPE::POINTER ? "*" : "&") + declared,
                   depth + 1);
    case TYPE::PTR_TO_MEMBER:
      return print(type->component,
                   std::string(type->member_class != nullptr ? type->member_class->name() : "?") +
                       "::*" + declared,
                   depth + 1);
    case TYPE::QUALIFIED: {
      std::string words = qualifier_words(type->qualifiers);
      if (type->component->kind == TYPE::POINTER)
        return print(type->component->component,
                     "*" + words + (declared.empty() ? "" : " ") + declared, depth + 1);
      return words + " " + print(type->component, declared, depth + 1);
    }
    case TYPE::ARRAY: {
      std::string bound = type->array_is_complete || type->element_count != 0
                              ? std::to_string(type->element_count)
                              : "";
      return print(type->component, in_parentheses_if_pointer(declared) + "[" + bound + "]",
                   depth + 1);
    }
    case TYPE::FUNCTION:
      return print(type->component,
                   in_parentheses_if_pointer(declared) + parameter_list(type, depth), depth + 1);
    case TYPE::COMPLEX:
      return "_Complex " + print(type->component, declared, depth + 1);
    default:
      return with_base(base_text(type), declared);
  }
}

std::string size_comment(const TYPE *type) {
  return "/* size " + std::to_string(type->size) + " align " + std::to_string(type->alignment) +
         " */";
}

std::string member_line(const fkMDATA *member) {
  std::string line = "  " + type_as_text(member->type, member->name);
  if (member->is_bit_field) line += " : " + std::to_string(member->bit_width);
  line += ";  /* #" + std::to_string(member->id) + " at " + std::to_string(member->bit_offset);
  if (member->is_bit_field) line += " container " + std::to_string(member->storage_byte);
  if (member->is_flag_b) line += " base";
  return line + " */\n";
}

}  // namespace

std::string type_as_text(const TYPE *type, const std::string &declared) {
  return print(type, declared, 0);
}

std::string type_definition_as_text(const TYPE *type) {
  if (type->kind == TYPE::TYPEDEF)
    return "typedef " + type_as_text(type->component, type->name()) + ";  " + size_comment(type) +
           "\n";
  if (type->kind == TYPE::ENUM) {
    std::string text = std::string("enum ") + type->name() + " : " + type_as_text(type->component) +
                       " {  " + size_comment(type) + "\n";
    for (const fkETOR *e = type->enumerators.head; e != nullptr; e = e->next)
      text += std::string("  ") + e->name + " = " + std::to_string(e->value) + ",\n";
    return text + "};\n";
  }
  if (!type->is_class_kind()) return type_as_text(type) + ";  " + size_comment(type) + "\n";
  std::string text = std::string(key_of(type)) + type->name();
  if (!type->csu->is_complete) return text + ";\n";
  text += " {  " + size_comment(type) + "\n";
  for (const fkBCLASS *base = type->csu->base_classes.head; base != nullptr; base = base->next)
    text += std::string("  /* base ") + (base->is_virtual ? "virtual " : "") +
            type_as_text(base->type) + " at " + std::to_string(base->offset) + " */\n";
  for (const fkMDATA *m = type->csu->data_members.head; m != nullptr; m = m->next)
    text += member_line(m);
  for (const fkSDATA *m = type->csu->static_members.head; m != nullptr; m = m->next)
    text += "  static " + type_as_text(m->type, m->name) + ";\n";
  for (const fkMFUNC *m = type->csu->member_functions.head; m != nullptr; m = m->next)
    text += "  " + type_as_text(m->type, m->name) + ";\n";
  return text + "};\n";
}
