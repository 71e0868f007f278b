// Which words are keywords: the rows of token_kinds.def under the switches of the dialect, entered
// at the start of each translation unit.
#include <cstring>

#include "source/lexical_internal.h"

// A keyword of the GNU family: __x also as __x__, and a plain word x as __x and __x__.
void enter_gnu_keyword(a_token_kind kind, const char *name) {
  char text[64];
  if (name[0] == '_') {
    enter_keyword(kind, name);
    std::snprintf(text, sizeof text, "%s__", name);
    enter_keyword(kind, text);
    return;
  }
  std::snprintf(text, sizeof text, "__%s__", name);
  enter_keyword(kind, text);
  text[std::strlen(text) - 2] = '\0';
  enter_keyword(kind, text);
  if (nonstd_gnu_keywords_enabled) enter_keyword(kind, name);
}

void enter_all_keywords() {
  const bool cplusplus = in_cplusplus();
  const bool c_only = !cplusplus;
  const bool c99 = c_only && std_version >= 199901;
  const bool c11 = c_only && std_version >= 201112;
  const bool cpp11 = cplusplus && (std_version >= 201103 || implicit_microsoft_cpp11_mode);
#define KEYWORD(token, spelling, when) \
  if (when) enter_keyword(tok_##token, spelling);
#define GNU_KEYWORD(token, spelling, when) \
  if (when) enter_gnu_keyword(tok_##token, spelling);
#define DISABLED_KEYWORD(spelling, when) \
  if (when) enter_keyword(tok_unimplemented, spelling);
#include "source/token_kinds.def"
}
