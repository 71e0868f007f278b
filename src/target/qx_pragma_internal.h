// What the rooms of the target's pragmas share: reading the arguments of one pragma.
#ifndef TARGET_QX_PRAGMA_INTERNAL_H
#define TARGET_QX_PRAGMA_INTERNAL_H

#include "target/qx_pragma.h"

// How the handling of a pragma ended.
enum a_pragma_result : std::uint8_t {
  prs_good,
  prs_bad_format,  // nothing was reported yet
  prs_failed,      // a message was given
};

// A handler reads what stands behind the symbol (C) or behind the optional ( , ends the scan of the
// tokens by finish_pragma_tokens, and then checks the symbol and takes effect.
using a_qx_handler = a_pragma_result (*)(a_pending_pragma *pending, a_symbol *symbol,
                                         a_statement *statement);
// Null: the kind has none on this target.
a_qx_handler qx_handler_of(a_pragma_kind kind);

// Goes to the next argument: over the comma where one is needed. False after a message.
bool next_pragma_argument();
// Is there one more?
bool more_pragma_arguments();
bool scan_icon(std::uint64_t *value);
bool scan_string_argument(const char **text);
// [)] [;] and the end of the line; false after a message.
bool finish_pragma_tokens();

inline const char *name_of_pragma(const a_pending_pragma *pending) {
  return pragma_ids[pending->description->kind];
}
const char *text_of_number(std::uint64_t value);  // "%llu"

#define QX_HANDLER(name) \
  a_pragma_result name(a_pending_pragma *pending, a_symbol *symbol, a_statement *statement);
QX_HANDLER(qx_unroll)
QX_HANDLER(qx_must_iterate)
QX_HANDLER(qx_prob_iterate)
QX_HANDLER(qx_loop_mark)
QX_HANDLER(qx_inline_request)
#undef QX_HANDLER

#endif
