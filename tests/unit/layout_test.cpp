// Sizes, alignments and places of members against those of a compiler for the same target.
//
// A row of layout_rows.def is a struct in a short form: members are letters (c char, h unsigned
// char, s short, i int, u unsigned, l long, x long long, f float, d double, p void *), followed by
// an array bound, by ":width" for a bit-field, "@n" for an alignment, "!" for packed; "_" in front
// makes it unnamed. Places are bit positions from the start; -1 for unnamed members.
#include "semantics/layout.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <sstream>
#include <string>
#include <vector>

#include "DIAG/error.h"
#include "front_end_start.h"
#include "il/il.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

struct a_layout_row {
  bool eabi;
  const char *kind, *options, *members;
  std::uint64_t size;
  std::uint32_t alignment;
  std::vector<int> places;
};

class Layout : public ::testing::Test {
 protected:
  void SetUp() override { start(true); }
  void TearDown() override { end_front_end(); }
  static void start(bool eabi) {
    start_front_end([eabi] {
      if (eabi) set_eabi();
      targ_little_endian = true;
    });
  }

  static a_type *type_of_letter(char letter) {
    switch (letter) {
      case 'c':
        return integer_type(ik_char);
      case 'h':
        return integer_type(ik_unsigned_char);
      case 's':
        return integer_type(ik_short);
      case 'i':
        return integer_type(ik_int);
      case 'u':
        return integer_type(ik_unsigned_int);
      case 'l':
        return integer_type(ik_long);
      case 'x':
        return integer_type(ik_long_long);
      case 'f':
        return float_type(fk_float);
      case 'd':
        return float_type(fk_double);
      default:
        return make_pointer_type_full(void_type());
    }
  }

  static a_field *make_member(const std::string &text) {
    a_field *field = alloc_field();
    const char *p = text.c_str();
    if (*p == '_') {
      field->is_unnamed_member = true;
      ++p;
    }
    field->type = type_of_letter(*p++);
    char *end = const_cast<char *>(p);
    if (unsigned long bound = std::strtoul(p, &end, 10); end != p)
      field->type = make_array_type(field->type, bound);
    if (*end == ':') {
      field->is_bit_field = true;
      field->bit_size = static_cast<std::uint8_t>(std::strtoul(end + 1, &end, 10));
      field->declared_bits = static_cast<std::uint16_t>(bits_of_bit_field_type(field->type));
    }
    if (*end == '@')
      field->explicit_alignment = static_cast<std::uint32_t>(std::strtoul(end + 1, &end, 10));
    field->is_packed = *end == '!';
    return field;
  }

  static void apply_option(a_type *type, const std::string &option) {
    auto number_behind = [&](std::size_t length) {
      return static_cast<std::uint32_t>(std::strtoul(option.c_str() + length, nullptr, 10));
    };
    if (option == "packed") {
      type->is_packed = true;
    } else if (option.rfind("aligned", 0) == 0) {
      type->explicit_alignment = true;
      type->alignment = number_behind(7);
    } else if (option.rfind("pack", 0) == 0) {
      type->class_supplement->pragma_pack_alignment = number_behind(4);
    }
  }

  static a_type *make_class(a_type_kind kind, const char *options, const char *members) {
    a_type *type = alloc_type(kind);
    std::istringstream option_words(options), member_words(members);
    std::string word;
    while (option_words >> word)
      apply_option(type, word);
    a_field **link = &type->fields;
    while (member_words >> word) {
      *link = make_member(word);
      link = &(*link)->next;
    }
    do_class_layout(type);
    type->is_incomplete = false;
    return type;
  }

  static void check(const a_layout_row &row) {
    a_type *type = make_class(row.kind[0] == 'u' ? tk_union : tk_struct, row.options, row.members);
    std::string what =
        std::string(row.eabi ? "eabi " : "") + row.kind + " {" + row.members + "} " + row.options;
    EXPECT_EQ(type->size, row.size) << what;
    EXPECT_EQ(type->alignment, row.alignment) << what;
    const a_field *field = type->fields;
    for (int place : row.places) {
      if (place >= 0) {
        EXPECT_EQ(static_cast<int>(field->offset * 8 + field->bit_offset), place) << what;
      }
      field = field->next;
    }
  }
};

const a_layout_row rows[] = {
#include "layout_rows.def"
};

}  // namespace

TEST_F(Layout, AgreesWithTheCompilerOfTheTarget) {
  for (bool eabi : {true, false}) {
    end_front_end();
    start(eabi);
    for (const a_layout_row &row : rows)
      if (row.eabi == eabi) check(row);
  }
}

TEST_F(Layout, SmallContainersShareBytes) {
  targ_bit_field_container_size = 0;
  // A field of 3 bits goes into the rest of the byte; 9 bits take the smallest unit with room.
  check({true, "struct", "", "u:5 u:3 u:9", 4, 4, {0, 5, 8}});
  check({true, "struct", "", "c u:3 u:5", 2, 1, {0, 8, 11}});
  check({true, "struct", "", "u:6 u:9", 2, 2, {0, 6}});
  check({true, "struct", "", "c u:17", 4, 4, {0, 8}});
}

TEST_F(Layout, PackedBitFieldsFollowEachOther) {
  a_type *good = make_class(tk_struct, "packed", "c:7 x:57");
  EXPECT_EQ(good->size, 8u);
  EXPECT_EQ(good->alignment, 1u);
}

TEST_F(Layout, PackValuesArePowersOfTwoWithinLimits) {
  for (int good : {1, 2, 8, 32768})
    EXPECT_TRUE(check_pack_alignment_value(good)) << good;
  for (int bad : {-1, 0, 3, 65536})
    EXPECT_FALSE(check_pack_alignment_value(bad)) << bad;
}

TEST_F(Layout, FlexibleArraysAndEmptyStructsTakeNoRoom) {
  a_type *type = make_class(tk_struct, "", "i c");
  a_type *with_tail = alloc_type(tk_struct);
  with_tail->fields = type->fields;
  a_field *tail = alloc_field();
  tail->type = make_incomplete_array_type(integer_type(ik_short));
  type->fields->next->next = tail;
  do_class_layout(with_tail);
  EXPECT_EQ(with_tail->size, 8u);
  EXPECT_EQ(tail->offset, 6u);
  EXPECT_EQ(make_class(tk_struct, "", "")->size, 0u);
  EXPECT_EQ(make_class(tk_struct, "", "i0")->alignment, 4u);
}

TEST_F(Layout, ATooLargeStructIsReportedOnce) {
  std::uint64_t before = total_errors;
  make_class(tk_struct, "", "i100000000 i100000000 i100000000");
  EXPECT_EQ(total_errors, before + 1);
}

// C++: bases, through the same routine.
class LayoutOfBases : public Layout {
 protected:
  void SetUp() override {
    Layout::SetUp();
    C_dialect = dialect_cplusplus;
    gnu_mode = gcc_mode = false;
  }
  static a_type *derive(std::initializer_list<a_type *> bases, const char *members) {
    a_type *type = alloc_type(tk_class);
    a_base_class **link = &type->class_supplement->base_classes;
    for (a_type *base : bases) {
      *link = alloc_base_class();
      (*link)->base_type = base;
      (*link)->derived_class = type;
      (*link)->is_direct = true;
      link = &(*link)->next;
    }
    std::istringstream words(members);
    std::string word;
    a_field **field = &type->fields;
    while (words >> word) {
      *field = make_member(word);
      field = &(*field)->next;
    }
    do_class_layout(type);
    return type;
  }
};

TEST_F(LayoutOfBases, EmptyBasesOfOneTypeNeverShareAnAddress) {
  a_type *empty = derive({}, "");
  EXPECT_EQ(empty->size, 1u);
  a_type *a = derive({empty}, "");
  a_type *b = derive({empty, a}, "");
  EXPECT_EQ(b->class_supplement->base_classes->offset, 0u);
  EXPECT_EQ(b->class_supplement->base_classes->next->offset, 1u);
  EXPECT_EQ(b->size, 2u);
  EXPECT_EQ(derive({empty}, "i")->size, 4u);
}

TEST_F(LayoutOfBases, TailPaddingOfABaseIsUsed) {
  a_type *base = derive({}, "i c");
  a_type *derived = derive({base}, "c");
  EXPECT_EQ(base->size, 8u);
  EXPECT_EQ(derived->size, 8u);
  EXPECT_EQ(derived->fields->offset, 5u);
}
