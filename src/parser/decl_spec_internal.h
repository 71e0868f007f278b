// What the rooms of decl_spec share: the accumulator of one specifier sequence.
#ifndef PARSER_DECL_SPEC_INTERNAL_H
#define PARSER_DECL_SPEC_INTERNAL_H

#include "parser/decl_spec.h"

enum a_base_kind : std::uint8_t {
  base_none,
  base_void,
  base_char,
  base_wchar_t,
  base_char16_t,
  base_char32_t,
  base_bool,
  base_int,
  base_float,
  base_double,
  base_named,  // a type name, typeof, or a keyword that stands for a whole type
  base_class,
  base_enum,
  base_typename,
  base_auto,     // the placeholder of auto or __auto_type
  base_unknown,  // a name that turned out not to be a type: constructor, conversion
  base_error,
  num_base_kinds
};
enum a_sign_kind : std::uint8_t { sign_none, sign_signed, sign_unsigned, num_sign_kinds };
enum a_length_kind : std::uint8_t {
  length_none,
  length_short,
  length_long,
  length_long_long,
  num_length_kinds
};
enum a_complex_kind : std::uint8_t { cplx_none, cplx_complex, cplx_imaginary };

// One sequence of specifiers while it is read.
struct a_specifier_scan {
  a_decl_parse_state *state;
  std::uint32_t flags;          // a_decl_specifiers_flag
  a_decl_pos_block *positions;  // may be null
  a_base_kind base;
  a_sign_kind sign;
  a_length_kind length;
  a_complex_kind complex;
  unsigned qualifiers;         // a_type_qualifier_set
  a_type *named_type;          // of base_named, base_class, base_enum, base_auto
  a_source_position type_pos;  // first type specifier
  bool any_seen;               // a specifier of any kind
  bool storage_class_seen;
  bool done;  // a handler ended the sequence
};

inline bool type_seen(const a_specifier_scan &scan) {
  return scan.base != base_none || scan.sign != sign_none || scan.length != length_none ||
         scan.complex != cplx_none;
}

// decl_spec_storage.cpp: each takes the keyword and notes it in the scan.
void scan_storage_class(a_specifier_scan &scan);
void scan_thread_local(a_specifier_scan &scan);
void scan_inline(a_specifier_scan &scan);
void scan_noreturn(a_specifier_scan &scan);
void scan_cplusplus_specifier(a_specifier_scan &scan);  // not supported yet: says so
void scan_target_keyword(a_specifier_scan &scan);
void skip_memory_keyword();

// decl_spec_types.cpp: the arithmetic keywords, and the type that they make together.
void add_base_keyword(a_specifier_scan &scan, a_base_kind base);
void add_sign_keyword(a_specifier_scan &scan, a_sign_kind sign);
void add_long_keyword(a_specifier_scan &scan);
void add_short_keyword(a_specifier_scan &scan);
void add_complex_keyword(a_specifier_scan &scan, a_complex_kind complex);
void add_qualifier(a_specifier_scan &scan);
// A whole type from a name, tag or operator; with a type seen already it is error 85.
void add_whole_type(a_specifier_scan &scan, a_base_kind base, a_type *type,
                    const a_source_position *position);
bool typedef_modification_is_allowed();
void finish_specified_type(a_specifier_scan &scan);

// decl_spec_tags.cpp
struct a_tag_scan {
  a_symbol_locator *locator;  // cleared: no name
  a_source_position keyword_pos;
  std::uint8_t symbol_kind;  // syk_class, syk_union, syk_enum
  bool named;
  bool is_definition;   // { follows
  bool is_declaration;  // ; follows, and nothing but the tag stands before it
};
// The symbol that the tag names here, or null when a new one is to be made.
a_symbol *find_tag(a_tag_scan &tag);
// The scope stack entry in which a new tag is declared.
int depth_for_new_tag(const a_tag_scan &tag);
// Enters a new tag (or makes the symbol of a nameless one) for type.
a_symbol *enter_tag(a_tag_scan &tag, a_type *type);

#endif
