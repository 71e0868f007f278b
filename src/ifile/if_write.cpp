// The records of the code section, symbols and the closing sections other than types.
#include "ifile/if_write.h"

#include <charconv>
#include <cstdlib>

void I_FILE::if_enter_global(I_SYMTAB *symbol) {
  const PSN *psn = symbol->sym_psn();
  if (psn != nullptr && psn->file != nullptr) i_enter_file_name(psn->file);
  symbol->index = static_cast<std::uint32_t>(globals.size());
  symbol->set_level(0);
  globals.push_back(symbol);
}

void I_FILE::if_enter_local(I_SYMTAB *symbol) {
  symbol->index = static_cast<std::uint32_t>(locals.size());
  symbol->set_level(block_level);
  locals.push_back(symbol);
}

void I_FILE::if_write_begin_func(I_SYMTAB *symbol, const PSN *psn) {
  symbol->set_location(if_tell());
  i_write_psn(psn);
  i_write_uint(symbol->index);
  i_flush(ifr_begin_func);
  block_level = 1;
  locals.clear();
}

void I_FILE::if_write_control(an_if_record kind, const PSN *psn) {
  i_write_psn(psn);
  i_flush(kind);
  switch (kind) {
    case ifr_end_func:
      block_level = 0;
      break;
    case ifr_begin_block:
      block_level++;
      break;
    case ifr_end_block:
      block_level--;
      break;
    case ifr_end_args:
      block_level = 2;
      break;
    default:
      break;
  }
}

void I_FILE::if_write_symbol(const I_SYMTAB *symbol) {
  i_write_string(symbol->sym_name());
  i_write_uint(symbol->sym_size());
  i_write_uint_signed(symbol->sym_value());
  i_write_i8(symbol->sym_class());
  i_write_i16(symbol->sym_cqual());
  i_write_typeref(symbol->sym_type());
  i_write_typeref(symbol->sym_cpp_type());
  i_write_uint(symbol->sym_align());
  i_write_i8(symbol->sym_prag_num());
  i_write_uint(symbol->sym_location());
  i_write_uint(symbol->sym_option_set());
  i_write_psn(symbol->sym_psn());
  i_write_i8(symbol->retention);
  i_flush(ifr_symbol);
  for (const PRAGMA *pragma = symbol->sym_pragma(); pragma != nullptr; pragma = pragma->next)
    if_write_pragma(pragma);
}

void I_FILE::if_write_assembly(const char *text, const PSN *psn) {
  i_write_string(text);
  i_write_psn(psn);
  i_flush(ifr_assembly);
}

void I_FILE::if_write_label(std::uint32_t id) {
  i_write_uint(id);
  i_flush(ifr_label);
}

void I_FILE::if_write_expr(const BASE_NODE *node, const PSN *psn) {
  i_write_psn(psn);
  i_flush(ifr_expr);
  if (node != nullptr) if_write_expr_node(node);
}

void I_FILE::if_write_expr_node(const BASE_NODE *node) {
  i_write_i8(node->op);
  i_write_typeref(node->type);
  write_node_items(node);
  i_flush(ifr_expr_node);
  if (node->left != nullptr) if_write_expr_node(node->left);
  if (node->right != nullptr) if_write_expr_node(node->right);
}

void I_FILE::write_node_items(const BASE_NODE *node) {
  switch (node->op) {
    case op_LABEL:
    case op_SKIP:
    case op_SWITCH:
      i_write_uint(node->number);
      break;
    case op_NAME:
      if (node->symbol->index == no_symbol_index) {
        std::printf(">> Symbol %s is not in the symbol table\n", node->symbol->sym_name());
        std::exit(1);
      }
      i_write_uint(node->symbol->sym_level());
      i_write_uint(node->symbol->index);
      break;
    case op_SCON:
      i_write_uint(node->length);
      i_write_bytes(node->text, node->length);
      break;
    case op_ICON:
      if (node->type->is_signed())
        i_write_sint(static_cast<std::int32_t>(node->integer));
      else
        i_write_uint(static_cast<std::uint32_t>(node->integer));
      break;
    case op_LCON: {
      char digits[24];
      std::to_chars_result end = node->type->is_signed()
                                     ? std::to_chars(digits, digits + sizeof digits,
                                                     static_cast<std::int64_t>(node->integer))
                                     : std::to_chars(digits, digits + sizeof digits, node->integer);
      i_write_bytes(digits, static_cast<std::size_t>(end.ptr - digits));
      i_write_i8(0);
      break;
    }
    case op_FCON:
    case op_ICALL:
    case op_UICALL:
    case op_MCALL:
    case op_UMCALL:
      i_write_string(node->text);
      break;
    case op_FIELD:
      i_write_i8(1);
      i_write_uint_signed(node->member->id);
      i_write_typeref(node->csu);
      break;
    case op_CALL:
      i_write_uint_signed(node->num_vargs);
      i_write_uint(node->eh_entry_id);
      break;
    case op_UCALL:
      i_write_uint(node->eh_entry_id);
      break;
    default:
      break;
  }
}

void I_FILE::if_write_comment(const char *text) {
  i_write_string(text);
  i_flush(ifr_comment);
}

void I_FILE::if_write_pragma(const PRAGMA *pragma) {
  i_write_uint(pragma->kind);
  i_write_uint(pragma->texts.size());
  for (const char *text : pragma->texts)
    i_write_string(text);
  i_flush(ifr_pragma);
}

void I_FILE::if_write_eht_hdr(std::uint32_t count) {
  i_write_uint(count);
  i_flush(ifr_eht_header);
}

void I_FILE::if_write_eht_entry(std::uint32_t id, std::uint32_t kind, std::uint32_t a,
                                std::uint32_t b) {
  i_write_uint(id);
  i_write_uint(kind);
  i_write_uint(a);
  i_write_uint(b);
  i_flush(ifr_eht_entry);
}

void I_FILE::if_write_eht_catch_entry(std::uint32_t count, const I_CATCH_ENTRY *entries) {
  for (std::uint32_t i = 0; i < count; i++) {
    i_write_string(entries[i].name);
    i_write_uint(entries[i].value);
    i_write_bool(entries[i].by_reference);
  }
  i_flush(ifr_eht_catch_entry);
}

void I_FILE::if_write_init(I_SYMTAB *symbol) {
  if (init_position == 0) {
    i_write_eof();
    init_position = if_tell();
  }
  symbol->set_location(if_tell());
  i_write_uint(symbol->index);
  i_flush(ifr_init);
}

void I_FILE::if_write_all_options() {
  if (option_sets.empty()) return;
  options_position = if_tell();
  for (const OPTION_SET &set : option_sets) {
    i_write_uint(set.id);
    i_write_uint(set.texts.size());
    for (const char *text : set.texts)
      i_write_string(text);
    i_flush(ifr_option_set);
  }
  i_write_eof();
}

void I_FILE::if_write_all_files() {
  if (file_names.empty()) return;
  files_position = if_tell();
  for (const char *name : file_names) {
    i_write_string(name);
    i_flush(ifr_source);
  }
  i_write_eof();
}

void I_FILE::if_write_all_globals() {
  // Positions of symbols may name files that the table does not hold yet; if_enter_global entered
  // them, so that nothing is added behind the file section.
  globals_position = if_tell();
  for (const I_SYMTAB *symbol : globals)
    if_write_symbol(symbol);
  i_write_eof();
}
