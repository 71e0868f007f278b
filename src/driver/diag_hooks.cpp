// Connects the messages with the modules above them: how a type and a symbol are written, where a
// position lies, what the source line looks like.
#include "driver/diag_hooks.h"

#include <cstring>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/signal_place.h"
#include "driver/switches.h"
#include "il/il_entity.h"
#include "il/il_to_str.h"
#include "il/src_seq.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack.h"
#include "source/lexical.h"
#include "source/pp_output.h"

namespace {

a_text_buffer *form_target;  // where the IL printer's pieces go

void add_piece(const char *text, an_il_to_str_output_control_block *) {
  f_add_string_to_text_buffer(form_target, text);
}

void init_block(an_il_to_str_output_control_block *block, a_text_buffer *out) {
  clear_il_to_str_output_control_block(block);
  block->output_text = add_piece;
  form_target = out;
}

void form_type_for_message(a_type *type, a_text_buffer *out) {
  an_il_to_str_output_control_block block;
  init_block(&block, out);
  form_type(type, &block);
}

// The word for a symbol's kind, as number of a text.
int word_for_symbol(const a_symbol *symbol) {
  switch (symbol->kind) {
    case syk_keyword:
      return ect_1735;
    case syk_macro:
      return ect_1736;
    case syk_constant:
      return symbol->is_template_param_symbol ? ect_1750 : ect_1751;
    case syk_type:
      return symbol->is_template_param_symbol ? ect_1738 : ect_1739;
    case syk_class:
      return in_cplusplus() ? ect_1741 : ect_1742;
    case syk_union:
      return ect_1740;
    case syk_enum:
      return ect_1746;
    case syk_parameter:
      return ect_1747;
    case syk_field:
      return in_cplusplus() ? ect_1754 : ect_1755;
    case syk_static_data_member:
      return ect_1754;
    case syk_member_function:
    case syk_routine:
    case syk_extern_routine:
      return ect_1752;
    case syk_overloaded_function:
      return ect_1753;
    case syk_label:
      return ect_1737;
    case syk_class_template:
      return ect_1745;
    case syk_function_template:
      return ect_1759;
    case syk_variable_template:
      return ect_3110;
    case syk_namespace:
      return ect_1756;
    default:
      return ect_1749;
  }
}

a_type *type_shown_for_symbol(const a_symbol *symbol) {
  switch (symbol->kind) {
    case syk_variable:
    case syk_parameter:
    case syk_static_data_member:
    case syk_extern_variable:
      return symbol->variant.variable->type;
    case syk_field:
      return symbol->variant.field->type;
    case syk_routine:
    case syk_member_function:
    case syk_extern_routine:
      return symbol->variant.routine->type;
    default:
      return nullptr;
  }
}

// kind "name", or with its type: variable "int x".
void form_symbol_for_message(a_symbol *symbol, const a_symbol_form *form, a_text_buffer *out) {
  if (!form->omit_kind) {
    f_add_string_to_text_buffer(out, error_text(word_for_symbol(symbol)));
    add_char_to_text_buffer(out, ' ');
  }
  add_char_to_text_buffer(out, '"');
  a_type *type = form->with_type ? type_shown_for_symbol(symbol) : nullptr;
  an_il_to_str_output_control_block block;
  init_block(&block, out);
  if (type != nullptr) form_type_first_part(type, false, true, 0, 0, &block);
  f_add_string_to_text_buffer(out, symbol->header->name);
  if (type != nullptr) form_type_second_part(type, false, true, &block);
  add_char_to_text_buffer(out, '"');
}

const a_source_position *position_of_symbol(a_symbol *symbol) {
  return &symbol->decl_position;
}

int get_scope_stack_depth() {
  return depth_scope_stack;
}

void get_file_and_line(std::uint32_t seq, const char **file, std::uint32_t *line, bool *at_end) {
  const char *full_name;
  conv_seq_to_file_and_line(seq, file, &full_name, line, at_end);
}

// The line as it stands in the file. Files are kept whole in memory once they are read.
bool get_physical_source_line(const a_source_position *pos, a_text_buffer *out) {
  a_source_file *file = nullptr;
  a_line_number line = 0;
  bool at_end = false;
  conv_seq_to_physical_file_and_line(pos->seq, &file, &line, &at_end);
  if (file == nullptr || at_end || line == 0 || std::strcmp(file->path_name, "-") == 0)
    return false;
  an_open_file_result result{};
  const a_file_image *image = image_of_source_file(file->path_name, &result);
  if (image == nullptr) return false;
  const char *start = image->start;
  for (a_line_number left = line - 1; left != 0; --left) {
    const void *newline = std::memchr(start, '\n', static_cast<std::size_t>(image->end - start));
    if (newline == nullptr) return false;
    start = static_cast<const char *>(newline) + 1;
  }
  const void *newline = std::memchr(start, '\n', static_cast<std::size_t>(image->end - start));
  const char *end = newline != nullptr ? static_cast<const char *>(newline) : image->end;
  add_to_text_buffer(out, start, static_cast<std::size_t>(end - start));
  return true;
}

std::FILE *get_raw_listing() {
  return f_raw_listing;
}

bool plausible(const void *pointer) {
  return reinterpret_cast<std::uintptr_t>(pointer) > 100000;
}

}  // namespace

void connect_diagnostics() {
  diag_hooks = {};
  diag_hooks.form_type = form_type_for_message;
  diag_hooks.form_symbol_name = form_symbol_for_message;
  diag_hooks.position_of_symbol = position_of_symbol;
  diag_hooks.scope_stack_depth = get_scope_stack_depth;
  diag_hooks.source_line = get_physical_source_line;
  diag_hooks.flush_tokens = flush_tokens;
  diag_hooks.file_and_line = get_file_and_line;
  diag_hooks.in_system_header = seq_is_in_system_header;
  diag_hooks.raw_listing = get_raw_listing;
  diag_hooks.finish_raw_listing = finish_raw_listing_file;
}

void find_signal_place(a_signal_place *place) {
  *place = {"(unknown or file scope)", "(unknown)", 0};
  if (plausible(curr_ise) && plausible(curr_ise->name)) {
    place->file = curr_ise->name;
    place->line = curr_ise->line_number;
  }
  if (depth_innermost_function_scope < 0 || !plausible(scope_stack.chunks)) return;
  const a_routine *routine = scope_stack[depth_innermost_function_scope].assoc_routine;
  if (plausible(routine) && plausible(routine->name)) {
    place->function = routine->name;
  }
}
