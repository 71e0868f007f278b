// Macro definitions as text, and the listings of them.

#include <cstdlib>
#include <cstring>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "source/macro_internal.h"
#include "source/pp_output.h"

namespace {

// What the listing of definitions and undefinitions remembers, in order.
struct a_listed_macro {
  a_listed_macro *next;
  const char *text;
  a_source_position position;
  bool predefined;
};
a_listed_macro *listed_macros;
a_listed_macro *last_listed_macro;

a_text_buffer *form_buffer;

void list_macro(const char *text, const a_source_position *pos) {
  a_listed_macro *listed =
      static_cast<a_listed_macro *>(alloc_in_region(0, sizeof(a_listed_macro)));
  *listed = {nullptr, copy_string_to_region(0, text, std::strlen(text)), *pos,
             processing_predefined_macro};
  if (listed_macros == nullptr)
    listed_macros = listed;
  else
    last_listed_macro->next = listed;
  last_listed_macro = listed;
}

const char *name_of_param(const a_macro_def *def, std::uint32_t number) {
  const a_macro_param *param = def->params;
  while (--number != 0)
    param = param->next;
  return param->name;
}

void form_params(const a_macro_def *def) {
  add_char_to_text_buffer(form_buffer, '(');
  for (const a_macro_param *p = def->params; p != nullptr; p = p->next) {
    bool is_rest = p->next == nullptr && (def->flags & mf_variadic) != 0;
    if (p != def->params) add_char_to_text_buffer(form_buffer, ',');
    if (!is_rest || std::strcmp(p->name, "__VA_ARGS__") != 0)
      f_add_string_to_text_buffer(form_buffer, p->name);
    if (is_rest) f_add_string_to_text_buffer(form_buffer, "...");
  }
  add_char_to_text_buffer(form_buffer, ')');
}

void form_chunks(const a_macro_def *def) {
  for (const unsigned char *chunk = def->body; *chunk != chk_end;) {
    std::uint32_t number = chunk_number(chunk);
    switch (*chunk) {
      case chk_text: {
        const char *text = reinterpret_cast<const char *>(chunk) + chunk_head_size;
        for (std::uint32_t i = 0; i < number; ++i) {
          if (text[i] == '\0')
            ++i;
          else
            add_char_to_text_buffer(form_buffer, text[i]);
        }
        chunk += number;
        break;
      }
      case chk_paste:
        f_add_string_to_text_buffer(form_buffer, " ## ");
        break;
      case chk_charize:
        f_add_string_to_text_buffer(form_buffer, "#@");
        f_add_string_to_text_buffer(form_buffer, name_of_param(def, number));
        break;
      case chk_stringize:
        add_char_to_text_buffer(form_buffer, '#');
        [[fallthrough]];
      default:
        f_add_string_to_text_buffer(form_buffer, name_of_param(def, number));
        break;
    }
    chunk += chunk_head_size;
  }
}

}  // namespace

const char *form_macro_definition(const a_symbol_header *header, const a_macro_def *def) {
  if (form_buffer == nullptr) form_buffer = alloc_text_buffer(256);
  reset_text_buffer(form_buffer);
  f_add_string_to_text_buffer(form_buffer, "#define ");
  f_add_string_to_text_buffer(form_buffer, header->name);
  if ((def->flags & mf_object_like) == 0) form_params(def);
  add_char_to_text_buffer(form_buffer, ' ');
  form_chunks(def);
  return text_of_buffer(form_buffer);
}

void init_macro_listing() {
  listed_macros = last_listed_macro = nullptr;
}

void note_macro_definition(a_symbol *macro_symbol, const a_source_position *pos) {
  if (!list_macros) return;
  list_macro(form_macro_definition(macro_symbol->header, macro_def_of(macro_symbol)), pos);
}

void note_macro_undefinition(a_symbol *macro_symbol, const a_source_position *pos) {
  if (!list_macros) return;
  a_text_buffer *text = alloc_text_buffer(64);
  f_add_string_to_text_buffer(text, "#undef ");
  f_add_string_to_text_buffer(text, macro_symbol->header->name);
  list_macro(text_of_buffer(text), pos);
}

void note_macro_reference(a_symbol *macro_symbol, const a_source_position *pos) {
  if (f_xref_info != nullptr && macro_def_of(macro_symbol)->magic != mm_defined)
    record_symbol_reference(ref_other, macro_symbol, pos, true);
}

void gen_listing_of_macros() {
  for (const a_listed_macro *m = listed_macros; m != nullptr; m = m->next) {
    const char *name;
    const char *full_name;
    std::uint32_t line;
    bool at_end;
    conv_seq_to_file_and_line(m->position.seq, &name, &full_name, &line, &at_end);
    if (m->predefined)
      std::fprintf(f_pp_output, "%s\t/* Predefined */\n", m->text);
    else if (*name != '\0')
      std::fprintf(f_pp_output, "%s\t/* %s */\n", m->text, name);
    else
      std::fprintf(f_pp_output, "%s\n", m->text);
  }
}

// In the order of the names, which does not depend on where symbols lie.
void gen_pp_output_for_macro_definitions() {
  std::size_t count = 0;
  std::size_t capacity = 0;
  a_symbol **macros = nullptr;
  for (std::size_t i = 0; i < symbol_table.num_slots; ++i) {
    if (symbol_table.hashes[i] == 0) continue;
    a_symbol *macro_symbol = find_macro_symbol(symbol_table.headers[i]);
    if (macro_symbol == nullptr) continue;
    const a_macro_def *def = macro_def_of(macro_symbol);
    if (def->body == nullptr || (def->flags & mf_not_for_listing) != 0) continue;
    if (count == capacity) {
      std::size_t new_capacity = capacity == 0 ? 1024 : capacity * 2;
      macros = static_cast<a_symbol **>(realloc_buffer(macros, capacity * sizeof(a_symbol *),
                                                       new_capacity * sizeof(a_symbol *)));
      capacity = new_capacity;
    }
    macros[count++] = macro_symbol;
  }
  std::qsort(macros, count, sizeof(a_symbol *), [](const void *a, const void *b) {
    return std::strcmp((*static_cast<a_symbol *const *>(a))->header->name,
                       (*static_cast<a_symbol *const *>(b))->header->name);
  });
  for (std::size_t i = 0; i < count; ++i)
    std::fprintf(f_pp_output, "%s\n",
                 form_macro_definition(macros[i]->header, macro_def_of(macros[i])));
}
