// Which words are keywords in which dialect: a list written from the standards and the manuals,
// held against the table that the front end enters after a real command line.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "lexical_fixture.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"

namespace {

struct a_dialect {
  char letter;
  const char *options;
};
const a_dialect dialects[] = {
    {'k', "--old_c"},
    {'a', "--c89 --strict"},
    {'A', "--c89 --gcc"},
    {'b', "--c99 --strict"},
    {'n', "--c99"},
    {'B', "--c99 --gcc"},
    {'c', "--c11 --strict"},
    {'C', "--c11 --gcc"},
    {'L', "--c11 --clang"},
    {'p', "--c++03 --strict"},
    {'P', "--c++03 --g++"},
    {'q', "--c++11 --strict"},
    {'Q', "--c++11 --g++"},
    {'r', "--c++14 --strict"},
    {'R', "--c++14 --g++"},
    {'l', "--c++14 --clang"},
    {'s', "--c++17 --strict"},
    {'S', "--c++17 --g++"},
};
#define C_DIALECTS "kaAbnBcCL"
#define CPP11_DIALECTS "qQrRlsS"
#define CPP_DIALECTS "pP" CPP11_DIALECTS
#define GNU_CPP_DIALECTS "PQRlS"
#define GNU_DIALECTS "AnBCL" GNU_CPP_DIALECTS
#define ALL_DIALECTS C_DIALECTS CPP_DIALECTS

struct a_group {
  const char *dialects;  // where the words are keywords; identifiers everywhere else
  const char *words;
};
const a_group groups[] = {
    {ALL_DIALECTS,
     "auto break case char continue default do double else enum extern float for goto if int long "
     "register return short sizeof static struct switch typedef union unsigned void while"},
    {"aAbnBcCL" CPP_DIALECTS, "const signed volatile"},
    {"bnBcCL", "restrict"},
    {"AbnBcCL", "_Bool"},
    {"kAbnBcCL" CPP_DIALECTS, "inline"},
    {"kAnBCL" CPP_DIALECTS, "asm"},
    {"kAnBCLPQRlS", "interrupt"},
    {ALL_DIALECTS, "_Complex _Imaginary __I__"},
    {"AnBcCL", "_Alignas _Alignof _Noreturn"},
    {"cCL", "_Generic _Thread_local"},
    {"cCl", "_Static_assert"},
    {"kAnBcCL", "_Atomic __auto_type"},
    {"bnBcCL", "__generic"},
    {"AbnBcCL" CPP11_DIALECTS "P", "__func__"},
    {"AbnBcCL" GNU_CPP_DIALECTS, "__builtin_complex"},

    // C++ in every version.
    {CPP_DIALECTS,
     "bool catch class const_cast delete dynamic_cast explicit false friend mutable namespace new "
     "operator private protected public reinterpret_cast static_cast template this throw true try "
     "typename using virtual wchar_t"},
    {CPP_DIALECTS, "and and_eq bitand bitor compl not not_eq or or_eq xor xor_eq"},
    {CPP11_DIALECTS,
     "alignas alignof char16_t char32_t constexpr decltype noexcept nullptr static_assert "
     "thread_local"},
    {"",
     "override final export overload co_await co_return co_yield concept requires import module"},

    // Of this tool.
    {ALL_DIALECTS,
     "__NAN__ __INFINITY__ __va_argref __va_parmadr __va_argcsu __ALIGNOF__ __alignof__ "
     "__INTADDR__ "
     "__intaddr__ __FUNCTION__ __PRETTY_FUNCTION__ __declspec _declspec __asm __inline __interrupt "
     "__builtin_addressof __zvn_size_type__ __zvn_ptrdiff_type__ __zvn_bool_type__ __restrict "
     "__attribute __attribute__"},
    {"",
     "__data16 __data20 __memory_of __segment_begin __segment_end __segment_size shared sharedpp "
     "trap reentrant cregister global _Fract _Accum _Sat va_start va_arg va_end va_copy "
     "__genericfx __FUNCDNAME__ __internal_alias_decl _Nullable _Nonnull _Null_unspecified"},

    // GNU.
    {GNU_DIALECTS,
     "typeof __alignof __asm__ __builtin_offsetof __builtin_types_compatible_p __complex "
     "__complex__ "
     "__const __const__ __imag __imag__ __inline__ __real __real__ __restrict__ __signed "
     "__signed__ "
     "__thread __volatile __volatile__ __bases __direct_bases __zvn_vector_type__"},
    {"kAnBcCL" GNU_CPP_DIALECTS, "__extension__ __typeof __typeof__"},
    {GNU_CPP_DIALECTS, "__decltype __final __null __offsetof __offsetof__"},
    {GNU_CPP_DIALECTS,
     "__has_nothrow_assign __has_nothrow_constructor __has_nothrow_copy __has_nothrow_move_assign "
     "__has_trivial_assign __has_trivial_constructor __has_trivial_copy __has_trivial_destructor "
     "__has_trivial_move_assign __has_trivial_move_constructor __has_virtual_destructor "
     "__is_abstract "
     "__is_base_of __is_class __is_constructible __is_convertible_to __is_destructible __is_empty "
     "__is_enum __is_final __is_literal_type __is_nothrow_assignable __is_nothrow_constructible "
     "__is_nothrow_destructible __is_pod __is_polymorphic __is_standard_layout __is_trivial "
     "__is_trivially_assignable __is_trivially_constructible __is_trivially_copyable "
     "__is_trivially_destructible __is_union __underlying_type"},
    {"l", "__char16_t __char32_t __is_literal"},
    {"", "__has_assign __has_copy __has_user_destructor __is_valid_winrt_type"},
};

// Words that single options decide.
struct an_option_row {
  const char *options;
  const char *word;
  char state;  // k: keyword, i: identifier, d: reported where it is used
};
const an_option_row option_rows[] = {
    {"--c++14 --g++", "typeid", 'd'},
    {"--c++14 --g++ --rtti", "typeid", 'k'},
    {"--c++14 --no_namespaces", "namespace", 'd'},
    {"--c++14 --no_namespaces", "using", 'd'},
    {"--c++14 --no_typename", "typename", 'd'},
    {"--c++14 --no_wchar_t_keyword", "wchar_t", 'i'},
    {"--c++03 --no_bool", "bool", 'i'},
    {"--c++03 --no_bool", "true", 'i'},
    {"--c++14 --no_alternative_tokens", "and", 'i'},
    {"--c++14 --no_explicit", "explicit", 'i'},
    {"--c++03 --anachronisms", "overload", 'k'},
    {"--c++03 --g++ --nullptr", "nullptr", 'k'},
    {"--c++03 --g++ --gnu_version=30300", "__offsetof", 'i'},
    {"--c++11 --g++ --gnu_version=40500", "__final", 'i'},
    {"--c89 --no_restrict", "restrict", 'i'},
    {"--c89 --restrict", "restrict", 'k'},
    {"--c89 --gcc --gnu_version=30300", "__builtin_offsetof", 'i'},
    {"--c89 --gcc --gnu_version=40900", "_Generic", 'k'},
    {"--c89 --gcc --gnu_version=40800", "_Generic", 'i'},
    {"--c89 --gcc --gnu_version=40600", "_Noreturn", 'i'},
    {"--c11 --clang --clang_version=30700", "_Nonnull", 'k'},
    {"--c11 --clang --clang_version=30700", "_Nullable", 'k'},
    {"--c11 --clang --clang_version=30700", "_Null_unspecified", 'k'},
};

char state_of(const std::string &word) {
  for (const a_symbol *symbol = find_symbol_header(word.data(), word.size())->active_symbols;
       symbol != nullptr; symbol = symbol->next_active)
    if (symbol->kind == syk_keyword)
      return symbol->variant.keyword == tok_unimplemented ? 'd' : 'k';
  return 'i';
}

}  // namespace

TEST(Keywords, OfEachDialect) {
  for (const a_dialect &dialect : dialects) {
    start_front_end_with_options(dialect.options);
    for (const a_group &group : groups) {
      char expected = std::strchr(group.dialects, dialect.letter) != nullptr ? 'k' : 'i';
      std::istringstream words(group.words);
      for (std::string word; words >> word;)
        EXPECT_EQ(state_of(word), expected) << word << " with " << dialect.options;
    }
    end_front_end();
  }
}

TEST(Keywords, OfSingleOptions) {
  for (const an_option_row &row : option_rows) {
    start_front_end_with_options(row.options);
    EXPECT_EQ(state_of(row.word), row.state) << row.word << " with " << row.options;
    end_front_end();
  }
}

// Every word of the table stands in the list above.
TEST(Keywords, AllAreListed) {
  std::set<std::string> listed;
  for (const a_group &group : groups) {
    std::istringstream words(group.words);
    for (std::string word; words >> word;)
      EXPECT_TRUE(listed.insert(word).second) << word << " stands twice";
  }
  for (const an_option_row &row : option_rows)
    listed.insert(row.word);
  for (const char *word : {
#define KEYWORD(token, spelling, when) spelling,
#define GNU_KEYWORD(token, spelling, when) spelling,
#define DISABLED_KEYWORD(spelling, when) spelling,
#include "source/token_kinds.def"
       })
    EXPECT_TRUE(listed.count(word) != 0) << word;
}

// Words that share a token, and what each of them means.
TEST(Keywords, SpellingsOfOneToken) {
  start_front_end_with_options("--c++14 --g++ --rtti");
  const std::map<const char *, a_token_kind> tokens = {
      {"and", tok_and_and},
      {"and_eq", tok_and_assign},
      {"bitand", tok_ampersand},
      {"bitor", tok_or},
      {"compl", tok_compl},
      {"not", tok_not},
      {"not_eq", tok_ne},
      {"or", tok_or_or},
      {"or_eq", tok_or_assign},
      {"xor", tok_excl_or},
      {"xor_eq", tok_excl_or_assign},
      {"__final", tok_final},
      {"__inline__", tok_inline},
      {"__const", tok_const},
      {"__asm__", tok_asm_gnu},
      {"asm", tok_asm},
      {"__offsetof", tok_intaddr},
      {"__alignof", tok_alignof_gnu},
      {"__restrict", tok_restrict_gnu},
      {"__interrupt", tok_interrupt_gnu},
      {"interrupt", tok_interrupt},
      {"__decltype", tok_decltype},
      {"__typeof", tok_typeof},
  };
  for (const auto &[word, token] : tokens) {
    const a_symbol *symbol = find_symbol_header(word, std::strlen(word))->active_symbols;
    ASSERT_NE(symbol, nullptr) << word;
    EXPECT_EQ(symbol->variant.keyword, token) << word;
  }
  end_front_end();
}
