// ifdump: prints an intermediate file as text that people can read and diff.
//
//   ifdump FILE                   everything
//   ifdump --symbols FILE         one external name a line
//   ifdump --function NAME FILE   one function
//   ifdump --check FILE           only reads the file
//
// Exit status 0, 1 for a damaged file or an unknown function, 2 for wrong use. Offsets and type ids
// stay out of the text, so that two files that mean the same print the same.
#include <cstdio>
#include <cstring>
#include <string>

#include "TYPES/type_print.h"
#include "ifile/if_read.h"

namespace {

const char *class_name(unsigned storage_class) {
  switch (storage_class) {
    case isc_none:
      return "none";
    case isc_auto:
      return "auto";
    case isc_global:
      return "global";
    case isc_static:
      return "static";
    case isc_extern:
      return "extern";
    case isc_label:
      return "label";
    case isc_arg:
      return "arg";
    case isc_register:
      return "register";
    case isc_last_arg:
      return "last-arg";
    default:
      return "?";
  }
}

void print_psn(const PSN *psn) {
  if (psn == nullptr) return;
  std::printf("  @%s:%llu:%llu", psn->file, static_cast<unsigned long long>(psn->line),
              static_cast<unsigned long long>(psn->column));
}

// The bytes of a string constant as in a C literal.
void print_quoted(const char *text, std::size_t length) {
  std::putchar('"');
  for (std::size_t i = 0; i < length; i++) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    if (c == '"' || c == '\\')
      std::printf("\\%c", c);
    else if (c >= 0x20 && c < 0x7F)
      std::putchar(c);
    else
      std::printf("\\%03o", c);
  }
  std::putchar('"');
}

void print_pragma(const PRAGMA &pragma, int indent) {
  std::printf("%*spragma %s", indent, "", pragma.name());
  for (const char *text : pragma.texts) {
    std::putchar(' ');
    print_quoted(text, std::strlen(text));
  }
  std::putchar('\n');
}

void print_symbol(const IF_SYMBOL *symbol, int indent) {
  std::printf("%*s%s %s", indent, "", class_name(symbol->storage_class),
              type_as_text(symbol->type, symbol->name).c_str());
  std::printf("  size %llu align %u", static_cast<unsigned long long>(symbol->size), symbol->align);
  if (symbol->value != 0) std::printf(" value %lld", static_cast<long long>(symbol->value));
  if (symbol->cqual != 0) std::printf(" cqual 0x%x", symbol->cqual);
  if (symbol->retention != 0) std::printf(" retention %u", symbol->retention);
  if (symbol->option_set != 0) std::printf(" options %u", symbol->option_set);
  if (symbol->level == 0 && symbol->location != 0) std::printf(" located");
  print_psn(symbol->psn);
  std::putchar('\n');
  for (const PRAGMA &pragma : symbol->pragmas)
    print_pragma(pragma, indent + 4);
}

void print_node(const NODE *node) {
  std::printf("%s", if_node_info[node->op].name);
  switch (node->op) {
    case op_LABEL:
      std::printf(" L%u", node->number);
      break;
    case op_NAME:
      std::printf(" %s", node->symbol->sym_name());
      break;
    case op_SCON:
      std::putchar(' ');
      print_quoted(node->text, node->length);
      break;
    case op_ICON:
    case op_LCON:
      if (node->type != nullptr && node->type->is_signed())
        std::printf(" %lld", static_cast<long long>(node->integer));
      else
        std::printf(" %llu", static_cast<unsigned long long>(node->integer));
      break;
    case op_FCON:
    case op_ICALL:
    case op_UICALL:
    case op_MCALL:
    case op_UMCALL:
      std::printf(" %s", node->text);
      break;
    case op_FIELD:
      std::printf(" %s#%d", node->member->name, node->member->id);
      break;
    case op_CALL:
      std::printf(" vargs %d", node->num_vargs);
      break;
    case op_SKIP:
    case op_SWITCH:
      std::printf(" %u", node->number);
      break;
    default:
      break;
  }
  if ((node->op == op_CALL || node->op == op_UCALL) && node->eh_entry_id != 0)
    std::printf(" eh %u", node->eh_entry_id);
  if (node->type != nullptr) std::printf(" : %s", type_as_text(node->type).c_str());
  std::putchar('\n');
}

// Prints a tree, a node a line, children deeper. A long chain on the right, as lists make, is
// walked without recursion.
void print_tree(const NODE *node, int indent) {
  for (; node != nullptr; node = node->right, indent += 2) {
    std::printf("%*s", indent, "");
    print_node(node);
    if (node->left != nullptr) print_tree(node->left, indent + 2);
  }
}

void print_record(const an_if_record_read &record, int indent) {
  switch (record.kind) {
    case ifr_begin_block:
      std::printf("%*sblock", indent, "");
      break;
    case ifr_end_block:
      std::printf("%*send block", indent, "");
      break;
    case ifr_end_args:
      std::printf("%*send of arguments", indent, "");
      break;
    case ifr_end_locals:
      std::printf("%*send of locals", indent, "");
      break;
    case ifr_symbol:
      print_symbol(record.symbol, indent);
      return;
    case ifr_assembly:
      std::printf("%*sasm ", indent, "");
      print_quoted(record.text, std::strlen(record.text));
      break;
    case ifr_label:
      std::printf("%*slabel L%u\n", indent - 2, "", record.number);
      return;
    case ifr_expr:
      std::printf("%*sexpr", indent, "");
      print_psn(record.psn);
      std::putchar('\n');
      for (const NODE *tree : record.trees)
        print_tree(tree, indent + 2);
      return;
    case ifr_comment:
      std::printf("%*scomment %s", indent, "", record.text);
      break;
    case ifr_source:
      std::printf("%*ssource %s", indent, "", record.text);
      break;
    case ifr_pragma:
      print_pragma(record.pragma, indent);
      return;
    case ifr_eht_header:
      std::printf("%*sexception table of %u", indent, "", record.number);
      break;
    case ifr_eht_entry:
      std::printf("%*sentry %u kind %u %u %u", indent + 2, "", record.eh[0], record.eh[1],
                  record.eh[2], record.eh[3]);
      break;
    case ifr_eht_catch_entry:
      for (const I_CATCH_ENTRY &entry : record.catches)
        std::printf("%*scatch %s L%u%s\n", indent + 4, "", entry.name, entry.value,
                    entry.by_reference ? " by reference" : "");
      return;
    default:
      break;
  }
  print_psn(record.psn);
  std::putchar('\n');
}

void print_function(const an_if_function &function) {
  std::printf("function %s", type_as_text(function.symbol->type, function.symbol->name).c_str());
  print_psn(function.psn);
  std::putchar('\n');
  int indent = 4;
  for (const an_if_record_read &record : function.records) {
    if (record.kind == ifr_end_block) indent -= 2;
    print_record(record, indent);
    if (record.kind == ifr_begin_block) indent += 2;
  }
  std::printf("end function\n\n");
}

void print_everything(const IF_READER &file) {
  std::printf("intermediate file version %d cpu %d source %s extra %u\n", file.version, file.cpu_id,
              file.source_name, file.header_extra);
  for (const OPTION_SET &set : file.option_sets) {
    std::printf("options %u:", set.id);
    for (const char *text : set.texts)
      std::printf(" %s", text);
    std::putchar('\n');
  }
  for (std::size_t i = 0; i < file.files.size(); i++)
    std::printf("file %zu %s\n", i + 1, file.files[i]);
  for (const an_if_record_read &record : file.file_records)
    print_record(record, 0);
  std::printf("\nglobals\n");
  for (const IF_SYMBOL *symbol : file.globals)
    print_symbol(symbol, 2);
  std::printf("\n");
  for (const an_if_function &function : file.functions)
    print_function(function);
  for (const an_if_init &init : file.inits) {
    std::printf("initial value of %s\n",
                type_as_text(init.symbol->type, init.symbol->name).c_str());
    for (const NODE *value : init.values)
      print_tree(value, 4);
  }
  std::printf("\ntypes\n");
  for (const TYPE *type : file.type_list)
    if (type->kind == TYPE::TYPEDEF || type->is_udt())
      std::printf("%s", type_definition_as_text(type).c_str());
}

void print_symbols(const IF_READER &file) {
  for (const IF_SYMBOL *symbol : file.globals)
    std::printf("%s\n", symbol->name);
}

int usage() {
  std::fprintf(stderr, "usage: ifdump [--symbols | --function NAME | --check] FILE\n");
  return 2;
}

}  // namespace

int main(int argc, char **argv) {
  bool symbols = false, check = false;
  const char *function_name = nullptr, *file_name = nullptr;
  for (int i = 1; i < argc; i++) {
    if (std::strcmp(argv[i], "--symbols") == 0)
      symbols = true;
    else if (std::strcmp(argv[i], "--check") == 0)
      check = true;
    else if (std::strcmp(argv[i], "--function") == 0 && i + 1 < argc)
      function_name = argv[++i];
    else if (argv[i][0] != '-' && file_name == nullptr)
      file_name = argv[i];
    else
      return usage();
  }
  if (file_name == nullptr) return usage();
  IF_READER file;
  try {
    file.read(file_name);
  } catch (const an_if_damage &damage) {
    std::fprintf(stderr, "ifdump: %s: offset %llu: %s\n", file_name,
                 static_cast<unsigned long long>(damage.offset), damage.what());
    return 1;
  } catch (const std::runtime_error &error) {
    std::fprintf(stderr, "ifdump: %s: %s\n", file_name, error.what());
    return 1;
  }
  if (check) return 0;
  if (symbols) {
    print_symbols(file);
  } else if (function_name != nullptr) {
    for (const an_if_function &function : file.functions) {
      if (std::strcmp(function.symbol->name, function_name) != 0) continue;
      print_function(function);
      return 0;
    }
    std::fprintf(stderr, "ifdump: %s: no function %s\n", file_name, function_name);
    return 1;
  } else {
    print_everything(file);
  }
  return 0;
}
