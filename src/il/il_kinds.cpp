// The tables of the kinds: names and properties, made from the rows.
#include "il/il_kinds.h"

#include <cstddef>

const char *const il_entry_kind_names[iek_last] = {
    "none",
#define IL_ENTRY_KIND(number, name, record) #name,
#include "il/il_kinds.def"
};
const char *const type_kind_names[tk_last] = {
#define TYPE_KIND(number, name) #name,
#include "il/il_kinds.def"
};
const char *const constant_kind_names[ck_last] = {
#define CONSTANT_KIND(number, name) #name,
#include "il/il_kinds.def"
};
const char *const expr_node_kind_names[enk_last] = {
#define EXPR_NODE_KIND(number, name) #name,
#include "il/il_kinds.def"
};
const char *const expr_operator_names[eok_last] = {
#define EXPR_OPERATOR(number, name, flags, spelling) #name,
#include "il/il_operators.def"
};
const char *const expr_operator_spellings[eok_last] = {
#define EXPR_OPERATOR(number, name, flags, spelling) spelling,
#include "il/il_operators.def"
};
const char *const statement_kind_names[stmk_last] = {
#define STATEMENT_KIND(number, name) #name,
#include "il/il_kinds.def"
};
const char *const dynamic_init_kind_names[dik_last] = {
#define DYNAMIC_INIT_KIND(number, name) #name,
#include "il/il_kinds.def"
};
const char *const scope_kind_names[sck_last] = {
#define SCOPE_KIND(number, name) #name,
#include "il/il_kinds.def"
};
const char *const storage_class_names[sc_last] = {"", "extern", "static", "auto", "", "register"};
const char *const name_linkage_kind_names[4] = {"", "internal", "\"C\"", "\"C++\""};

namespace {
constexpr std::uint8_t R1 = opf_op1_is_rvalue;
constexpr std::uint8_t L1 = opf_op1_is_lvalue;
constexpr std::uint8_t C1 = opf_op1_is_class_or_array;
constexpr std::uint8_t R2 = opf_op2_is_rvalue;
constexpr std::uint8_t L2 = opf_op2_is_lvalue;
constexpr std::uint8_t RULE = opf_by_rule_of_operation;
constexpr std::uint8_t O3 = opf_has_op3;

const char *const int_kind_spellings[ik_last] = {
#define INTEGER_KIND(number, name, is_signed, unsigned_form, spelling) spelling,
#include "il/il_kinds.def"
};
const char *const float_kind_spellings[fk_last] = {
#define FLOAT_KIND(number, name, spelling) spelling,
#include "il/il_kinds.def"
};
}  // namespace

const std::uint8_t operator_flags[eok_last] = {
#define EXPR_OPERATOR(number, name, flags, spelling) flags,
#include "il/il_operators.def"
};

std::uint8_t int_kind_is_signed[ik_last + 1] = {
#define INTEGER_KIND(number, name, is_signed, unsigned_form, spelling) is_signed,
#include "il/il_kinds.def"
    int_kind_sentinel};
const std::uint8_t unsigned_int_kind_of[ik_last + 1] = {
#define INTEGER_KIND(number, name, is_signed, unsigned_form, spelling) unsigned_form,
#include "il/il_kinds.def"
    int_kind_sentinel};

const char *int_kind_name(an_integer_kind kind) {
  return kind < ik_last ? int_kind_spellings[kind] : "**BAD-INT-KIND**";
}

const char *float_kind_name(a_float_kind kind) {
  return kind < fk_last ? float_kind_spellings[kind] : "**BAD-FLOAT-KIND**";
}
