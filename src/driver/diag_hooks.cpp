// Connects the messages with the modules above them: how a type and a symbol are written, where a
// position lies, what the source line looks like.
#include "driver/diag_hooks.h"

#include "DIAG/error.h"
#include "driver/diag_hooks_internal.h"
#include "driver/host_envir.h"
#include "driver/signal_place.h"
#include "il/il_entity.h"
#include "il/src_seq.h"
#include "options/cmd_line.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack.h"
#include "source/lexical.h"
#include "source/pp_output.h"

namespace {

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
  diag_hooks.instantiation_context_of = instantiation_context_of;
  diag_hooks.scope_stack_depth = get_scope_stack_depth;
  diag_hooks.template_scope = template_scope_of_messages;
  diag_hooks.source_line = get_physical_source_line;
  diag_hooks.flush_tokens = flush_tokens;
  diag_hooks.file_and_line = get_file_and_line;
  diag_hooks.in_system_header = seq_is_in_system_header;
  diag_hooks.gnu_cpp11_warning_is_inhibited = cmd_line_option_inhibits_gnu_cpp11_extension_warning;
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
