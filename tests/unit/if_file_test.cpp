// The intermediate file, written by the writer and read back by the reader.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "TYPES/type_print.h"
#include "ifile/if_read.h"
#include "ifile/if_write.h"

namespace {

std::string bytes_of(const std::string &name) {
  std::ifstream stream(name, std::ios::binary);
  std::stringstream text;
  text << stream.rdbuf();
  return text.str();
}

void write_bytes(const std::string &name, const std::string &bytes) {
  std::ofstream(name, std::ios::binary) << bytes;
}

IF_SYMBOL make_symbol(const char *name, TYPE *type, unsigned storage_class) {
  IF_SYMBOL symbol;
  symbol.name = name;
  symbol.type = type;
  symbol.size = type->size;
  symbol.align = type->alignment;
  symbol.storage_class = static_cast<std::uint8_t>(storage_class);
  return symbol;
}

// int f(struct list *a) { return a->n + -1; }   const char text[4] = "ab";
class a_small_file {
 public:
  explicit a_small_file(const std::string &name) : file_name(name) {
    std::FILE *stream = std::fopen(name.c_str(), "wb");
    file.if_create(stream, &types, "small.c");
    make_list_type();
    write();
    EXPECT_FALSE(file.if_close(false, false));
  }
  std::string file_name;

 private:
  void make_list_type() {
    list = types.mk_csu(TYPE::STRUCT, "list", 64, 32, true, 0, false, false, false);
    add_member("next", types.mk_ptr(list), 0, 0);
    add_member("n", types.basic_types[TYPE::INT], 32, 5);
    types.type_frozen(&list);
  }
  void add_member(const char *name, TYPE *type, std::int64_t offset, std::int32_t width) {
    fkMDATA *member = types.alloc_record<fkMDATA>();
    member->name = name;
    member->type = type;
    member->bit_offset = offset;
    member->bit_width = width;
    member->is_bit_field = width != 0;
    list->csu->data_members.append(member);
  }
  void put(NODE node) { file.if_write_expr_node(&node); }
  void write() {
    TYPE *integer = types.basic_types[TYPE::INT];
    TYPE *function = types.mk_func(integer, false, true, false, TYPE::CC_DEFAULT);
    fkPARAM *param = types.alloc_record<fkPARAM>();
    param->type = types.mk_ptr(list);
    param->text = "";
    function->params.append(param);
    types.type_frozen(&function);
    f = make_symbol("f", function, isc_global);
    TYPE *character = types.mk_int(TYPE::UCHAR, false);
    TYPE *array = types.mk_array(types.mk_qual(character, TYPE::CONST_QUAL), false, 4, 32, 8, true);
    text = make_symbol("text", array, isc_global);
    a = make_symbol("a", param->type, isc_arg);
    PRAGMA pragma;
    pragma.kind = fpk_CODE_SECTION;
    pragma.texts = {".fast"};
    f.pragmas.push_back(pragma);
    f.pragma_count = 1;
    position = {"small.c", 300, 7};
    f.psn = &position;

    file.if_write_comment(";\tqxparse small.c ");
    file.if_enter_global(&f);
    file.if_enter_global(&text);
    file.if_write_begin_func(&f, &position);
    file.if_enter_local(&a);
    file.if_write_symbol(&a);
    file.if_write_control(ifr_end_args, nullptr);
    file.if_write_control(ifr_end_locals, nullptr);
    file.if_write_expr(nullptr, &position);
    put(NODE(op_RETURN, integer));
    NODE name(op_NAME, function);
    name.symbol = &f;
    put(name);
    put(NODE(op_PLUS, integer));
    put(NODE(op_STREF, integer));
    NODE parameter(op_NAME, a.type);
    parameter.symbol = &a;
    put(parameter);
    NODE field(op_FIELD, integer);
    field.member = list->csu->data_members.tail;
    field.csu = list;
    put(field);
    NODE constant(op_LCON, integer);
    constant.integer = static_cast<std::uint64_t>(std::int64_t{-1});
    put(constant);
    file.if_write_control(ifr_end_func, nullptr);
    file.if_write_init(&text);
    for (unsigned c : {'a', 'b'}) {
      NODE element(op_ICON, character);
      element.integer = c;
      put(element);
    }
    NODE skip(op_SKIP, integer);
    skip.number = 2;
    put(skip);
    put(NODE(op_ENDINIT, types.void_type));
  }

  TYPE_PKG types;
  I_FILE file;
  TYPE *list = nullptr;
  IF_SYMBOL f, text, a;
  PSN position;
};

TEST(IfFile, ComesBackAsWritten) {
  a_small_file small("if_file_test_1.if");
  IF_READER file;
  file.read(small.file_name.c_str());
  EXPECT_STREQ(file.source_name, "small.c");
  ASSERT_EQ(file.globals.size(), 2u);
  EXPECT_EQ(type_as_text(file.globals[0]->type, "f"), "int f(struct list *)");
  EXPECT_EQ(type_as_text(file.globals[1]->type, "text"), "const char text[4]");
  EXPECT_TRUE(file.globals[0]->has_pragma(fpk_CODE_SECTION));
  EXPECT_EQ(file.globals[0]->psn->line, 300u);
  ASSERT_EQ(file.functions.size(), 1u);
  const NODE *tree = nullptr;
  for (const an_if_record_read &record : file.functions[0].records)
    if (record.kind == ifr_expr) tree = record.trees.at(0);
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(tree->op, op_RETURN);
  EXPECT_EQ(tree->right->op, op_PLUS);
  EXPECT_STREQ(tree->right->left->right->member->name, "n");
  EXPECT_EQ(static_cast<std::int64_t>(tree->right->right->integer), -1);
  ASSERT_EQ(file.inits.size(), 1u);
  EXPECT_EQ(file.inits[0].values.size(), 3u);
  EXPECT_EQ(file.inits[0].values[2]->number, 2u);
  TYPE *list = tree->right->left->right->csu;
  EXPECT_EQ(type_definition_as_text(list),
            "struct list {  /* size 64 align 32 */\n"
            "  struct list *next;  /* #1 at 0 */\n"
            "  int n : 5;  /* #2 at 32 container 0 */\n"
            "};\n");
  std::remove(small.file_name.c_str());
}

TEST(IfFile, SameInputGivesSameBytes) {
  a_small_file one("if_file_test_2.if"), two("if_file_test_3.if");
  EXPECT_EQ(bytes_of(one.file_name), bytes_of(two.file_name));
  std::remove(one.file_name.c_str());
  std::remove(two.file_name.c_str());
}

// A reader of a cut or changed file says so, or reads something; it never leaves its bytes.
TEST(IfFile, DamagedFilesAreRefused) {
  a_small_file small("if_file_test_4.if");
  std::string whole = bytes_of(small.file_name);
  std::string name = "if_file_test_5.if";
  for (std::size_t length = 0; length < whole.size(); length++) {
    write_bytes(name, whole.substr(0, length));
    IF_READER file;
    EXPECT_THROW(file.read(name.c_str()), an_if_damage) << "cut at " << length;
  }
  for (std::size_t place = 0; place < whole.size(); place++) {
    for (int flip : {0x01, 0x80, 0xFF}) {
      std::string changed = whole;
      changed[place] = static_cast<char>(changed[place] ^ flip);
      write_bytes(name, changed);
      IF_READER file;
      try {
        file.read(name.c_str());
      } catch (const an_if_damage &) {
      }
    }
  }
  std::remove(name.c_str());
  std::remove(small.file_name.c_str());
}

TEST(TypePackage, EqualTypesAreOneObject) {
  TYPE_PKG types;
  TYPE *integer = types.basic_types[TYPE::INT];
  EXPECT_EQ(types.mk_ptr(integer), types.mk_ptr(integer, 32, 32));
  EXPECT_EQ(types.mk_qual(integer, 0), integer);
  TYPE *constant = types.mk_qual(integer, TYPE::CONST_QUAL);
  EXPECT_EQ(types.mk_qual(constant, TYPE::CONST_QUAL), constant);
  TYPE *both = types.mk_qual(constant, TYPE::VOLATILE_QUAL);
  EXPECT_EQ(both->component, integer);
  EXPECT_EQ(both->qualifiers, TYPE::CONST_QUAL | TYPE::VOLATILE_QUAL);
  TYPE *f = types.mk_func(integer, false, true, false, TYPE::CC_DEFAULT);
  TYPE *g = types.mk_func(integer, false, true, false, TYPE::CC_DEFAULT);
  types.type_frozen(&f);
  types.type_frozen(&g);
  EXPECT_EQ(f, g);
  EXPECT_NE(types.basic_types[TYPE::LONG], integer);
  TYPE *s = types.mk_csu(TYPE::STRUCT, "s", 0, 8, true, 0, false, false, false);
  TYPE *t = types.mk_csu(TYPE::STRUCT, "s", 0, 8, true, 0, false, false, false);
  types.type_frozen(&s);
  types.type_frozen(&t);
  EXPECT_NE(s, t);
  TYPE *tagless = types.mk_csu(TYPE::UNION, nullptr, 0, 8, true, 0, false, false, false);
  EXPECT_EQ(tagless->map_name(), "$$fakeunion");
}

TEST(TypePackage, PrintsDeclarators) {
  TYPE_PKG types;
  TYPE *integer = types.basic_types[TYPE::INT];
  TYPE *f = types.mk_func(types.mk_ptr(integer), false, true, true, TYPE::CC_DEFAULT);
  fkPARAM *param = types.alloc_record<fkPARAM>();
  param->type = types.basic_types[TYPE::LONG];
  f->params.append(param);
  types.type_frozen(&f);
  TYPE *array = types.mk_array(types.mk_ptr(f), false, 3, 96, 32, true);
  EXPECT_EQ(type_as_text(array, "table"), "int *(*table[3])(long, ...)");
  EXPECT_EQ(type_as_text(types.mk_qual(types.mk_ptr(integer), TYPE::CONST_QUAL), "p"),
            "int *const p");
}

}  // namespace
