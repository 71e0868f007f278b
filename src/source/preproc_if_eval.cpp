// The expressions of #if and #elif, in 64 bits, read from the text of the line. Numbers in plain
// form are read here; character constants and everything odd go to the tokenizer, which knows their
// values and their messages.
//
//   conditional: logical-or [? conditional : conditional]
//   binary operators by precedence, unary ! ~ + -, ( conditional ), number, character, name (0)

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il_expr.h"
#include "semantics/const_ints.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/preproc_internal.h"

namespace {

struct a_pp_value {
  std::uint64_t bits;
  bool is_unsigned;
};

enum a_pp_operator : std::uint8_t {
  ppo_none,
  ppo_lor,
  ppo_land,
  ppo_or,
  ppo_xor,
  ppo_and,
  ppo_eq,
  ppo_ne,
  ppo_lt,
  ppo_gt,
  ppo_le,
  ppo_ge,
  ppo_shl,
  ppo_shr,
  ppo_add,
  ppo_sub,
  ppo_mul,
  ppo_div,
  ppo_rem,
};
constexpr std::uint8_t precedences[] = {0, 1, 2, 3, 4, 5, 6, 6, 7, 7, 7, 7, 8, 8, 9, 9, 10, 10, 10};

constexpr int max_nesting = 2000;

bool failed;      // an error was reported: the rest is not looked at
bool evaluating;  // the operand counts: its value may be complained about
int nesting;

void fail_at(const char *loc, an_error_code code) {
  if (failed) return;
  failed = true;
  if (some_error_in_curr_directive) return;
  a_source_position pos;
  source_position_at(loc, &pos);
  pos_syntax_error(code, &pos);
}

a_pp_value scan_conditional();
a_pp_value scan_comma();
a_pp_value scan_unary();

// ---- Primaries ---------------------------------------------------------------------------------

// A number whose form is plain: digits and a suffix of u and l.
bool plain_number(const char *p, const char *end, a_pp_value *value) {
  unsigned radix = 10;
  if (*p == '0' && end - p > 1) {
    radix = 8;
    ++p;
    if (*p == 'x' || *p == 'X') {
      radix = 16;
      if (++p == end) return false;
    }
  }
  std::uint64_t bits = 0;
  const char *digits = p;
  for (; p != end; ++p) {
    unsigned digit;
    if (*p >= '0' && *p <= '9')
      digit = static_cast<unsigned>(*p - '0');
    else if (radix == 16 && (*p | 0x20) >= 'a' && (*p | 0x20) <= 'f')
      digit = static_cast<unsigned>((*p | 0x20) - 'a' + 10);
    else
      break;
    if (digit >= radix || bits > (UINT64_MAX - digit) / radix) return false;
    bits = bits * radix + digit;
  }
  if (p == digits && radix == 16) return false;
  bool is_unsigned = false;
  unsigned longs = 0;
  for (; p != end; ++p) {
    if ((*p == 'u' || *p == 'U') && !is_unsigned)
      is_unsigned = true;
    else if ((*p == 'l' || *p == 'L') && (longs == 0 || p[-1] == *p))
      ++longs;
    else
      return false;
  }
  if (longs > 2 || (radix == 8 && check_misra_c_2004) ||
      (radix == 10 && !is_unsigned && bits > INT64_MAX))
    return false;
  *value = {bits, is_unsigned || bits > INT64_MAX};
  return true;
}

// A literal that the tokenizer converts.
a_pp_value scan_literal_token() {
  const char *start = curr_char_loc;
  a_pp_value value = {};
  a_directive_token_scan scan;
  begin_directive_tokens(&scan);
  fetch_pp_tokens = false;
  a_token_kind token = get_token();
  bool is_ud_literal_with_message =
      token == tok_ud_literal && ud_lit_error_for_curr_token == ec_no_error;
  bool is_literal =
      token == tok_int_constant || token == tok_char_constant || token == tok_float_constant;
  if ((is_literal || is_ud_literal_with_message) && const_for_curr_token.kind == ck_error) {
    failed = true;  // what was wrong with it has been said
  } else if (token == tok_int_constant || token == tok_char_constant) {
    value = {const_for_curr_token.integer_value, !int_constant_is_signed(&const_for_curr_token)};
    // 'a' is an int; L'a', u'a' and U'a' have unsigned types.
    bool is_plain = *start == '\'' || (*start == 'u' && start[1] == '8');
    if (token == tok_char_constant && is_plain) value.is_unsigned = false;
  } else if (token == tok_error) {
    failed = true;
    a_source_position pos;
    source_position_at(start, &pos);
    pos_error(err_code_for_error_token, &pos);
  } else {
    fail_at(start, ec_expr_not_integral);
  }
  end_directive_tokens(&scan);
  return value;
}

a_pp_value scan_number(const char *end) {
  a_pp_value value;
  if (!plain_number(curr_char_loc, end, &value)) return scan_literal_token();
  curr_char_loc = end;
  return value;
}

// An identifier that is no macro is 0; true and false have their values in C++.
a_pp_value value_of_name(const char *name, const char *end) {
  std::size_t length = static_cast<std::size_t>(end - name);
  curr_char_loc = end;
  if (in_cplusplus() && bool_is_keyword) {
    if (length == 4 && std::memcmp(name, "true", 4) == 0) return {1, false};
    if (length == 5 && std::memcmp(name, "false", 5) == 0) return {0, false};
  }
  if (failed) return {};
  a_symbol_header *header = header_of_identifier(name, length);
  if (is_operator_word(header)) {
    fail_at(name, ec_exp_primary_expr);
  } else if (variadic_macros_allowed && std::strcmp(header->name, "__VA_ARGS__") == 0) {
    fail_at(name, ec_VA_ARGS_not_allowed);
  } else if (evaluating) {
    a_source_position pos;
    source_position_at(name, &pos);
    pos_st_remark(ec_undefined_preproc_id, &pos, header->name);
    report_misra(ec_misra_c_2004_19_11, &pos);
  }
  return {0, false};
}

// True when the name was a macro and the text changed.
bool expand_name(const char *name, const char *end) {
  a_symbol *macro_symbol =
      find_macro_symbol(header_of_identifier(name, static_cast<std::size_t>(end - name)));
  if (macro_symbol == nullptr) return false;
  bool inert;
  curr_char_loc = end;
  return expand_macro_at(macro_symbol, name, &inert);
}

// The message for what begins no operand.
an_error_code code_for_wrong_start(char c) {
  if (c == '"' || c == '\'') return ec_unclosed_string;
  bool starts_no_token = c != '\0' && (c < ' ' || c == 0x7f || std::strchr("$@`\\", c) != nullptr);
  return starts_no_token ? ec_bad_token : ec_exp_primary_expr;
}

a_pp_value scan_primary() {
  skip_white_space();
  const char *start = curr_char_loc;
  if (*start == '\0' && (start[1] == tm_inert || start[1] == tm_temporarily_inert)) {
    a_pp_text_kind kind;
    const char *end = end_of_pp_token(start + 2, &kind, nullptr);
    return value_of_name(start + 2, end);
  }
  a_pp_text_kind kind;
  const char *end = end_of_pp_token(start, &kind, nullptr);
  switch (kind) {
    case ptk_identifier:
      if (expand_name(start, end))
        return scan_unary();  // what it stands for may begin with an operator
      return value_of_name(start, end);
    case ptk_number:
      return scan_number(end);
    case ptk_literal:
      return scan_literal_token();
    default:
      break;
  }
  if (*start == '(') {
    ++curr_char_loc;
    a_pp_value value = scan_comma();
    skip_white_space();
    if (*curr_char_loc == ')')
      ++curr_char_loc;
    else
      fail_at(curr_char_loc, ec_exp_rparen);
    return value;
  }
  fail_at(start, code_for_wrong_start(*start));
  return {};
}

// Is the operator at loc written with this many characters? += and ++ are not + and something.
bool operator_has_length(const char *loc, int length) {
  a_pp_text_kind kind;
  return end_of_pp_token(loc, &kind, nullptr) - loc == length;
}

void warn_of_overflow(const char *loc) {
  if (!evaluating) return;
  a_source_position pos;
  source_position_at(loc, &pos);
  pos_warning(ec_integer_overflow, &pos);
}

a_pp_value negate(a_pp_value a, const char *loc) {
  if (!a.is_unsigned && a.bits == std::uint64_t{1} << 63) warn_of_overflow(loc);
  return {-a.bits, a.is_unsigned};
}

// The unary operator at p, where not and compl are words for ! and ~ in C++; 0: none. Its length.
char unary_operator_at(const char *p, int *length) {
  char c = *p;
  *length = 1;
  if (c == '!' || c == '-' || c == '~' || c == '+') return operator_has_length(p, 1) ? c : '\0';
  if ((c != 'n' && c != 'c') || !in_cplusplus() || !alternative_tokens_allowed) return '\0';
  *length = c == 'n' ? 3 : 5;
  if (std::strncmp(p, c == 'n' ? "not" : "compl", static_cast<std::size_t>(*length)) != 0 ||
      !operator_has_length(p, *length))
    return '\0';
  return c == 'n' ? '!' : '~';
}

a_pp_value scan_unary() {
  skip_white_space();
  const char *start = curr_char_loc;
  int length;
  char c = unary_operator_at(start, &length);
  if (c == '\0') return scan_primary();
  if (++nesting > max_nesting) {
    fail_at(curr_char_loc, ec_program_too_large);
    return {};
  }
  curr_char_loc += length;
  a_pp_value value = scan_unary();
  --nesting;
  switch (c) {
    case '!':
      return {value.bits == 0, false};
    case '-':
      return negate(value, start);
    case '~':
      return {~value.bits, value.is_unsigned};
    default:
      return value;
  }
}

// ---- Binary operators --------------------------------------------------------------------------

a_pp_operator punctuator_here(const char *p, int *length) {
  *length = 1;
  switch (*p) {
    case '|':
      if (p[1] == '|') return *length = 2, ppo_lor;
      return ppo_or;
    case '&':
      if (p[1] == '&') return *length = 2, ppo_land;
      return ppo_and;
    case '^':
      return ppo_xor;
    case '=':
      if (p[1] == '=') return *length = 2, ppo_eq;
      return ppo_none;
    case '!':
      if (p[1] == '=') return *length = 2, ppo_ne;
      return ppo_none;
    case '<':
      if (p[1] == '<') return *length = 2, ppo_shl;
      if (p[1] == '=') return *length = 2, ppo_le;
      return ppo_lt;
    case '>':
      if (p[1] == '>') return *length = 2, ppo_shr;
      if (p[1] == '=') return *length = 2, ppo_ge;
      return ppo_gt;
    case '+':
      return ppo_add;
    case '-':
      return ppo_sub;
    case '*':
      return ppo_mul;
    case '/':
      return ppo_div;
    case '%':
      return ppo_rem;
    default:
      return ppo_none;
  }
}

// and, bitor and their like.
a_pp_operator word_operator(const char *word, int length) {
  if (!in_cplusplus() || !alternative_tokens_allowed) return ppo_none;
  static const struct {
    const char *word;
    a_pp_operator op;
  } words[] = {{"and", ppo_land}, {"or", ppo_lor},  {"bitand", ppo_and},
               {"bitor", ppo_or}, {"xor", ppo_xor}, {"not_eq", ppo_ne}};
  std::size_t size = static_cast<std::size_t>(length);
  for (const auto &row : words)
    if (std::strlen(row.word) == size && std::memcmp(row.word, word, size) == 0) return row.op;
  return ppo_none;
}

// The operator at curr_char_loc, after white space, and its length.
a_pp_operator operator_here(int *length) {
  for (;;) {
    skip_white_space();
    const char *p = curr_char_loc;
    if (!starts_identifier(p)) {
      a_pp_operator op = punctuator_here(p, length);
      return op != ppo_none && operator_has_length(p, *length) ? op : ppo_none;
    }
    // A macro may stand for an operator, and in C++ a word may.
    a_pp_text_kind kind;
    const char *end = end_of_pp_token(p, &kind, nullptr);
    if (kind != ptk_identifier) return ppo_none;
    if (expand_name(p, end)) continue;
    curr_char_loc = p;
    *length = static_cast<int>(end - p);
    return word_operator(p, *length);
  }
}

bool less_than(a_pp_value a, a_pp_value b) {
  if (a.is_unsigned || b.is_unsigned) return a.bits < b.bits;
  return static_cast<std::int64_t>(a.bits) < static_cast<std::int64_t>(b.bits);
}

a_pp_value shift(a_pp_value a, a_pp_value b, bool left) {
  std::uint64_t count = b.bits;
  if (!b.is_unsigned && static_cast<std::int64_t>(count) < 0) {
    left = !left;
    count = -count;
  }
  bool negative = !a.is_unsigned && static_cast<std::int64_t>(a.bits) < 0;
  if (count >= 64) return {left || !negative ? 0 : ~std::uint64_t{0}, a.is_unsigned};
  if (left) return {a.bits << count, a.is_unsigned};
  if (!negative) return {a.bits >> count, a.is_unsigned};
  return {static_cast<std::uint64_t>(static_cast<std::int64_t>(a.bits) >> count), false};
}

a_pp_value divide(a_pp_value a, a_pp_value b, bool want_remainder, const char *loc) {
  bool is_unsigned = a.is_unsigned || b.is_unsigned;
  if (b.bits == 0) {
    if (evaluating) fail_at(loc, ec_divide_by_zero);
    return {0, is_unsigned};
  }
  if (is_unsigned) return {want_remainder ? a.bits % b.bits : a.bits / b.bits, true};
  if (b.bits == ~std::uint64_t{0}) return {want_remainder ? 0 : -a.bits, false};  // by -1
  std::int64_t x = static_cast<std::int64_t>(a.bits);
  std::int64_t y = static_cast<std::int64_t>(b.bits);
  return {static_cast<std::uint64_t>(want_remainder ? x % y : x / y), false};
}

a_pp_value add_or_multiply(a_pp_operator op, a_pp_value a, a_pp_value b, const char *loc) {
  bool is_unsigned = a.is_unsigned || b.is_unsigned;
  std::int64_t x = static_cast<std::int64_t>(a.bits), y = static_cast<std::int64_t>(b.bits), result;
  bool overflow = op == ppo_add   ? __builtin_add_overflow(x, y, &result)
                  : op == ppo_sub ? __builtin_sub_overflow(x, y, &result)
                                  : __builtin_mul_overflow(x, y, &result);
  if (overflow && !is_unsigned) warn_of_overflow(loc);
  return {static_cast<std::uint64_t>(result), is_unsigned};
}

a_pp_value apply(a_pp_operator op, a_pp_value a, a_pp_value b, const char *loc) {
  bool is_unsigned = a.is_unsigned || b.is_unsigned;
  switch (op) {
    case ppo_lor:
      return {a.bits != 0 || b.bits != 0, false};
    case ppo_land:
      return {a.bits != 0 && b.bits != 0, false};
    case ppo_or:
      return {a.bits | b.bits, is_unsigned};
    case ppo_xor:
      return {a.bits ^ b.bits, is_unsigned};
    case ppo_and:
      return {a.bits & b.bits, is_unsigned};
    case ppo_eq:
      return {a.bits == b.bits, false};
    case ppo_ne:
      return {a.bits != b.bits, false};
    case ppo_lt:
      return {less_than(a, b), false};
    case ppo_gt:
      return {less_than(b, a), false};
    case ppo_le:
      return {!less_than(b, a), false};
    case ppo_ge:
      return {!less_than(a, b), false};
    case ppo_shl:
      return shift(a, b, true);
    case ppo_shr:
      return shift(a, b, false);
    case ppo_add:
    case ppo_sub:
    case ppo_mul:
      return add_or_multiply(op, a, b, loc);
    case ppo_div:
      return divide(a, b, false, loc);
    case ppo_rem:
      return divide(a, b, true, loc);
    case ppo_none:
      break;
  }
  return a;
}

// Operators of at least the given precedence.
a_pp_value scan_binary(unsigned lowest) {
  a_pp_value left = scan_unary();
  for (;;) {
    if (failed) return left;
    int length;
    a_pp_operator op = operator_here(&length);
    if (op == ppo_none || precedences[op] < lowest) return left;
    const char *loc = curr_char_loc;
    curr_char_loc += length;
    bool saved = evaluating;
    if ((op == ppo_lor && left.bits != 0) || (op == ppo_land && left.bits == 0)) evaluating = false;
    a_pp_value right = scan_binary(precedences[op] + 1u);
    evaluating = saved;
    left = apply(op, left, right, loc);
  }
}

a_pp_value scan_conditional() {
  if (++nesting > max_nesting) {
    fail_at(curr_char_loc, ec_program_too_large);
    return {};
  }
  a_pp_value condition = scan_binary(1);
  skip_white_space();
  if (!failed && *curr_char_loc == '?') {
    ++curr_char_loc;
    bool saved = evaluating;
    evaluating = saved && condition.bits != 0;
    a_pp_value first = scan_comma();
    evaluating = saved && condition.bits == 0;
    skip_white_space();
    if (*curr_char_loc == ':')
      ++curr_char_loc;
    else
      fail_at(curr_char_loc, ec_exp_colon);
    a_pp_value second = failed ? a_pp_value{} : scan_conditional();
    evaluating = saved;
    bool is_unsigned = first.is_unsigned || second.is_unsigned;
    condition = {condition.bits != 0 ? first.bits : second.bits, is_unsigned};
  }
  --nesting;
  return condition;
}

// conditional {, conditional}
a_pp_value scan_comma() {
  a_pp_value value = scan_conditional();
  while (!failed && *curr_char_loc == ',' && !strict_ansi_mode) {
    ++curr_char_loc;
    value = scan_conditional();
  }
  return value;
}

}  // namespace

bool scan_pp_if_expression(bool *value) {
  bool saved_in_if = in_pp_if_expression;
  in_pp_if_expression = true;
  failed = false;
  evaluating = true;
  nesting = 0;
  a_pp_value result = scan_comma();
  in_pp_if_expression = saved_in_if;
  *value = !failed && result.bits != 0;
  return !failed && !some_error_in_curr_directive;
}
