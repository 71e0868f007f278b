// The life cycle of the tokenizer: tables once, the state of a unit at its start.
#include "driver/trans_unit.h"
#include "il/il_expr.h"
#include "source/lexical_internal.h"

namespace {

void register_token_state() {
  register_trans_unit_variable(&next_token_is_top_level_decl_start);
  register_trans_unit_variable(&curr_stop_token_stack_entry);
  register_trans_unit_variable(&curr_lexical_state_stack_entry);
  register_trans_unit_variable(&curr_token);
  register_trans_unit_variable(&curr_token_pragmas);
  register_trans_unit_variable(&const_for_curr_token);
  register_trans_unit_variable(&pos_curr_token);
  register_trans_unit_variable(&end_pos_curr_token);
  register_trans_unit_variable(&start_of_curr_token);
  register_trans_unit_variable(&end_of_curr_token);
  register_trans_unit_variable(&len_of_curr_token);
  register_trans_unit_variable(&cached_token_rescan_list);
  register_trans_unit_variable(&curr_rescan_stack_entry);
  register_trans_unit_variable(&any_initial_get_token_tests_needed);
  register_trans_unit_variable(&treat_newline_as_token);
  register_trans_unit_variable(&curr_token_asm_string);
  register_trans_unit_variable(&curr_token_sequence_number);
  register_trans_unit_variable(&curr_cached_token_handle);
}

void reset_scanner_state() {
  init_token_caches();
  curr_token = tok_error;
  pos_curr_token = end_pos_curr_token = null_source_position;
  start_of_curr_token = end_of_curr_token = nullptr;
  len_of_curr_token = 0;
  curr_token_asm_string = nullptr;
  curr_cached_token_handle = nullptr;
  caching_tokens = treat_newline_as_token = false;
  suppress_keyword_recognition = in_pp_if_expression = scanning_macro_name = false;
  exp_header_name = exp_system_header_name = exp_digit_sequence = false;
  first_token_on_line_seen = next_token_is_top_level_decl_start = false;
}

}  // namespace

void lexical_early_init() {
  input_stack_early_init();
}

void lexical_one_time_init() {
  init_character_tables();
  register_token_state();
}

void lexical_init() {
  input_stack_init();
  last_token_sequence_number_used = 0;
}

void lexical_trans_unit_init() {
  input_stack_trans_unit_init();
  reset_scanner_state();
  curr_stop_token_stack_entry = nullptr;
  curr_lexical_state_stack_entry = nullptr;
  push_lexical_state_stack();
}

void lexical_reset() {
  reset_scanner_state();
}

// Nothing that was stored may be left behind.
void lexical_trans_unit_wrapup() {
  while (curr_lexical_state_stack_entry != nullptr)
    pop_lexical_state_stack();
  init_token_caches();
}
