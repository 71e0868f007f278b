// Decoding of records, symbols, code and initial values. The types are read in if_read_types.cpp.
#include "ifile/if_read.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "ifile/if_read_internal.h"

IF_READER::IF_READER() = default;
IF_READER::~IF_READER() = default;

bool IF_SYMBOL::has_pragma(unsigned kind) const {
  for (const PRAGMA &pragma : pragmas)
    if (pragma.kind == kind) return true;
  return false;
}

static std::string whole_file(const char *file_name) {
  std::FILE *file = std::fopen(file_name, "rb");
  if (file == nullptr)
    throw std::runtime_error(std::string("cannot open the file: ") + std::strerror(errno));
  std::string bytes;
  char block[65536];
  std::size_t count;
  while ((count = std::fread(block, 1, sizeof block, file)) != 0)
    bytes.append(block, count);
  bool failed = std::ferror(file) != 0;
  std::fclose(file);
  if (failed) throw std::runtime_error("cannot read the file");
  return bytes;
}

void IF_READER::read(const char *file_name) {
  bytes = whole_file(file_name);
  a_cursor all{bytes.data(), 0, bytes.size()};
  read_header(all);
  std::uint64_t code_start = all.position;
  if (positions[3] != 0) read_files(positions[3]);
  if (positions[2] != 0) read_types(positions[2]);
  if (positions[4] == 0) all.fail("the header names no section of globals");
  read_globals(positions[4]);
  if (positions[0] != 0) read_options(positions[0]);
  read_code(code_start);
  if (positions[1] != 0) read_inits(positions[1]);
}

void IF_READER::read_header(a_cursor &all) {
  an_if_record kind;
  a_cursor record = all.next_record(&kind);
  if (kind != ifr_header) all.fail("the file does not begin with a header record");
  if (std::strcmp(record.text(), icode_magic) != 0) all.fail("not an intermediate file");
  version = static_cast<std::int16_t>(record.fixed(2));
  cpu_id = static_cast<std::int32_t>(record.fixed(2));
  if (version != icode_version) all.fail("unknown version of the format");
  for (std::uint32_t &position : positions) {
    position = static_cast<std::uint32_t>(record.fixed(4));
    if (position > bytes.size()) record.fail("a section lies behind the end of the file");
  }
  source_name = record.text();
  header_extra = static_cast<std::uint32_t>(record.fixed(4));
  record.expect_end();
}

// Calls action(record, kind, section) for each record of a section, up to its end mark.
template <typename ACTION>
static void for_each_record(const std::string &bytes, std::uint64_t position, ACTION action) {
  IF_READER::a_cursor section{bytes.data(), position, bytes.size()};
  while (!section.at_end_mark()) {
    an_if_record kind;
    IF_READER::a_cursor record = section.next_record(&kind);
    action(record, kind, section);
  }
}

void IF_READER::read_files(std::uint64_t position) {
  for_each_record(bytes, position, [&](a_cursor &record, an_if_record kind, a_cursor &) {
    if (kind != ifr_source) record.fail("a record of another kind among the files");
    files.push_back(record.text());
    record.expect_end();
  });
}

void IF_READER::read_options(std::uint64_t position) {
  for_each_record(bytes, position, [&](a_cursor &record, an_if_record kind, a_cursor &) {
    if (kind != ifr_option_set) record.fail("a record of another kind among the options");
    OPTION_SET set;
    set.id = static_cast<std::uint32_t>(record.uint());
    std::uint64_t count = record.uint();
    while (count-- > 0)
      set.texts.push_back(record.text());
    record.expect_end();
    option_sets.push_back(set);
  });
}

void IF_READER::read_globals(std::uint64_t position) {
  for_each_record(bytes, position, [&](a_cursor &record, an_if_record kind, a_cursor &section) {
    if (kind != ifr_symbol) record.fail("a record of another kind among the globals");
    IF_SYMBOL *symbol = read_symbol(record, section);
    symbol->index = static_cast<std::uint32_t>(globals.size());
    globals.push_back(symbol);
  });
}

void IF_READER::read_pragma(a_cursor &record, PRAGMA *pragma) {
  pragma->kind = static_cast<std::uint8_t>(record.uint());
  std::uint64_t count = record.uint();
  while (count-- > 0)
    pragma->texts.push_back(record.text());
  record.expect_end();
}

IF_SYMBOL *IF_READER::read_symbol(a_cursor &record, a_cursor &section) {
  IF_SYMBOL &symbol = symbols.emplace_back();
  symbol.name = record.text();
  symbol.size = record.uint();
  symbol.value = static_cast<std::int64_t>(record.uint());
  symbol.storage_class = record.byte();
  symbol.cqual = static_cast<std::uint16_t>(record.fixed(2));
  symbol.type = find_typeref(record);
  symbol.cpp_type = find_typeref(record);
  symbol.align = static_cast<std::uint32_t>(record.uint());
  symbol.pragma_count = record.byte();
  symbol.location = record.uint();
  symbol.option_set = static_cast<std::uint32_t>(record.uint());
  symbol.psn = read_psn(record);
  symbol.retention = record.byte();
  record.expect_end();
  for (unsigned i = 0; i < symbol.pragma_count; i++) {
    an_if_record kind;
    a_cursor pragma = section.next_record(&kind);
    if (kind != ifr_pragma) pragma.fail("a pragma of the symbol is missing");
    read_pragma(pragma, &symbol.pragmas.emplace_back());
  }
  for (unsigned i = 0; i + 1 < symbol.pragmas.size(); i++)
    symbol.pragmas[i].next = &symbol.pragmas[i + 1];
  return &symbol;
}

const PSN *IF_READER::read_psn(a_cursor &record) {
  std::uint64_t file = record.uint();
  if (file == 0) return nullptr;
  if (file > files.size()) record.fail("a position names a file that is not in the file table");
  PSN *psn = types.alloc_record<PSN>();
  psn->file = files[file - 1];
  psn->line = record.uint();
  psn->column = record.uint();
  return psn;
}

void IF_READER::read_code(std::uint64_t position) {
  std::vector<IF_SYMBOL *> no_locals;
  std::uint32_t level = 0;
  for_each_record(bytes, position, [&](a_cursor &record, an_if_record kind, a_cursor &section) {
    if (kind == ifr_begin_func) {
      if (level != 0) record.fail("a function begins inside another");
      an_if_function &function = functions.emplace_back();
      function.offset = record.start;
      function.psn = read_psn(record);
      std::uint64_t index = record.uint();
      if (index >= globals.size()) record.fail("a function names no global symbol");
      function.symbol = globals[index];
      record.expect_end();
      level = 1;
      return;
    }
    if (level == 0) {
      read_record(record, kind, section, no_locals, &file_records.emplace_back());
      return;
    }
    an_if_function &function = functions.back();
    if (kind == ifr_end_func) {
      read_psn(record);
      record.expect_end();
      level = 0;
      return;
    }
    an_if_record_read &result = function.records.emplace_back();
    read_record(record, kind, section, function.locals, &result);
    if (kind == ifr_symbol) {
      result.symbol->index = static_cast<std::uint32_t>(function.locals.size());
      result.symbol->level = level;
      function.locals.push_back(result.symbol);
    } else if (kind == ifr_end_args) {
      level = 2;
    } else if (kind == ifr_begin_block) {
      level++;
    } else if (kind == ifr_end_block) {
      if (--level < 2) record.fail("a block ends that was not begun");
    }
  });
  if (level != 0) throw an_if_damage(bytes.size(), "a function has no end");
}

void IF_READER::read_record(a_cursor &record, an_if_record kind, a_cursor &section,
                            std::vector<IF_SYMBOL *> &locals, an_if_record_read *result) {
  result->kind = kind;
  result->offset = record.start;
  switch (kind) {
    case ifr_begin_block:
    case ifr_end_block:
    case ifr_end_args:
    case ifr_end_locals:
      result->psn = read_psn(record);
      break;
    case ifr_symbol:
      result->symbol = read_symbol(record, section);
      return;
    case ifr_assembly:
      result->text = record.text();
      result->psn = read_psn(record);
      break;
    case ifr_label:
    case ifr_eht_header:
      result->number = static_cast<std::uint32_t>(record.uint());
      break;
    case ifr_expr:
      result->psn = read_psn(record);
      record.expect_end();
      while (section.next_kind() == ifr_expr_node)
        result->trees.push_back(read_tree(section, locals));
      return;
    case ifr_comment:
    case ifr_source:
      result->text = record.text();
      break;
    case ifr_pragma:
      read_pragma(record, &result->pragma);
      return;
    case ifr_eht_entry:
      for (std::uint32_t &item : result->eh)
        item = static_cast<std::uint32_t>(record.uint());
      break;
    case ifr_eht_catch_entry:
      while (!record.at_end()) {
        I_CATCH_ENTRY &entry = result->catches.emplace_back();
        entry.name = record.text();
        entry.value = static_cast<std::uint32_t>(record.uint());
        entry.by_reference = record.flag();
      }
      break;
    default:
      record.fail("a record of kind " + std::to_string(kind) + " has no place here");
  }
  record.expect_end();
}

void IF_READER::read_inits(std::uint64_t position) {
  std::vector<IF_SYMBOL *> no_locals;
  for_each_record(bytes, position, [&](a_cursor &record, an_if_record kind, a_cursor &section) {
    if (kind != ifr_init) record.fail("a record of another kind among the initial values");
    an_if_init &init = inits.emplace_back();
    init.offset = record.start;
    std::uint64_t index = record.uint();
    if (index >= globals.size()) record.fail("an initial value names no global symbol");
    init.symbol = globals[index];
    record.expect_end();
    for (;;) {
      if (section.next_kind() != ifr_expr_node) section.fail("an initial value has no end");
      NODE *node = read_tree(section, no_locals);
      if (node->op == op_ENDINIT) break;
      init.values.push_back(node);
    }
  });
}

// Reads a node and the trees below it. The stack is explicit, since a chain of operators can be as
// long as the program makes it. A SKIP is a leaf, whatever the table says.
NODE *IF_READER::read_tree(a_cursor &section, std::vector<IF_SYMBOL *> &locals) {
  struct an_open_node {
    NODE *node;
    unsigned missing;
  };
  std::vector<an_open_node> open;
  NODE *root = nullptr;
  do {
    if (section.next_kind() != ifr_expr_node) section.fail("a tree ends before its last child");
    NODE *node = read_node(section, locals);
    if (root == nullptr) {
      root = node;
    } else {
      an_open_node &parent = open.back();
      (parent.node->left == nullptr ? parent.node->left : parent.node->right) = node;
      parent.missing--;
    }
    unsigned arity = node->op == op_SKIP ? 0 : if_node_info[node->op].arity;
    if (arity != 0) open.push_back({node, arity});
    while (!open.empty() && open.back().missing == 0)
      open.pop_back();
  } while (!open.empty());
  return root;
}

NODE *IF_READER::read_node(a_cursor &section, std::vector<IF_SYMBOL *> &locals) {
  an_if_record kind;
  a_cursor record = section.next_record(&kind);
  unsigned op = record.byte();
  if (op >= num_node_ops || if_node_info[op].name == nullptr) record.fail("unknown opcode");
  NODE *node = types.alloc_record<NODE>();
  node->op = static_cast<a_node_op>(op);
  node->type = find_typeref(record);
  read_node_items(record, node, locals);
  record.expect_end();
  return node;
}

void IF_READER::read_node_items(a_cursor &record, NODE *node, std::vector<IF_SYMBOL *> &locals) {
  switch (node->op) {
    case op_LABEL:
    case op_SKIP:
    case op_SWITCH:
      node->number = static_cast<std::uint32_t>(record.uint());
      break;
    case op_NAME: {
      std::uint64_t level = record.uint();
      std::uint64_t index = record.uint();
      std::vector<IF_SYMBOL *> &table = level == 0 ? globals : locals;
      if (index >= table.size()) record.fail("a name refers to no symbol");
      node->symbol = table[index];
      break;
    }
    case op_SCON:
      node->length = static_cast<std::uint32_t>(record.uint());
      node->text = record.raw(node->length);
      break;
    case op_ICON:
      if (node->type == nullptr) record.fail("a constant without a type");
      node->integer =
          node->type->is_signed() ? static_cast<std::uint64_t>(record.sint()) : record.uint();
      break;
    case op_LCON: {
      const char *text = record.text();
      bool negative = *text == '-';
      node->integer = 0;
      if (text[negative] == '\0') record.fail("an integer constant without digits");
      for (const char *digit = text + negative; *digit != '\0'; digit++) {
        if (*digit < '0' || *digit > '9') record.fail("an integer constant with other characters");
        node->integer = node->integer * 10 + static_cast<unsigned>(*digit - '0');
      }
      if (negative) node->integer = 0 - node->integer;
      break;
    }
    case op_FCON:
    case op_ICALL:
    case op_UICALL:
    case op_MCALL:
    case op_UMCALL:
      node->text = record.text();
      break;
    case op_FIELD: {
      if (record.byte() != 1) record.fail("a field of another kind");
      std::uint64_t id = record.uint();
      node->csu = find_typeref(record);
      if (node->csu == nullptr || !node->csu->is_class_kind())
        record.fail("a field of something that is no class");
      node->member = nullptr;
      for (fkMDATA *m = node->csu->csu->data_members.head; m != nullptr; m = m->next)
        if (static_cast<std::uint64_t>(m->id) == id) node->member = m;
      if (node->member == nullptr) record.fail("a field that its class does not have");
      break;
    }
    case op_CALL:
      node->num_vargs = static_cast<std::int32_t>(record.uint());
      node->eh_entry_id = static_cast<std::uint32_t>(record.uint());
      break;
    case op_UCALL:
      node->eh_entry_id = static_cast<std::uint32_t>(record.uint());
      break;
    case op_EPVAL:
      record.uint();
      break;
    case op_VREG:
      record.sint();
      break;
    case op_DDNODE:
      record.uint();
      record.uint();
      record.byte();
      break;
    default:
      break;
  }
}
