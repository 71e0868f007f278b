// Positions to files and lines, through includes, line directives and ends of files.
#include "il/src_seq.h"

#include "il_fixture.h"

namespace {

class source_positions : public an_il_fixture {
 protected:
  a_source_file *open(const char *name, a_source_file *parent, a_seq_number seq,
                      a_line_number line = 1, bool is_clone = false) {
    a_source_file *file;
    record_start_of_source_file(parent, seq, line, name, is_clone ? nullptr : name, name, &file,
                                parent != nullptr && !is_clone, false, false, false, 0, false, 0);
    return file;
  }
  static std::string logical(a_seq_number seq) { return place(seq, false); }
  static std::string physical(a_seq_number seq) { return place(seq, true); }
  static std::string place(a_seq_number seq, bool is_physical) {
    a_line_number line;
    bool at_end;
    a_source_file *file = source_file_for_seq(seq, &line, &at_end, is_physical);
    if (file == nullptr) return "none";
    return std::string(file->file_name) + ":" + std::to_string(line) + (at_end ? " end" : "");
  }
};

// main.c: line 1, #include "h.h" in line 2, h.h of three lines (a part of it after a nested
// include), then lines 3 and 4 of main.c.
TEST_F(source_positions, includes_interrupt_their_file) {
  EXPECT_EQ(logical(1), "none");
  a_source_file *main_file = open("main.c", nullptr, 1);
  a_source_file *header = open("h.h", main_file, 3);
  a_source_file *inner = open("inner.h", header, 4);
  record_end_of_source_file(inner, 4);
  record_resumption_of_source_file(header, 5, 2);
  record_end_of_source_file(header, 6);
  record_resumption_of_source_file(main_file, 7, 3);
  EXPECT_EQ(logical(1), "main.c:1");
  EXPECT_EQ(logical(2), "main.c:2");
  EXPECT_EQ(logical(3), "h.h:1");
  EXPECT_EQ(logical(4), "inner.h:1");
  EXPECT_EQ(logical(6), "h.h:3");
  EXPECT_EQ(logical(7), "main.c:3");
  EXPECT_EQ(logical(2), "main.c:2");
  EXPECT_TRUE(seq_is_in_include_file(5));
  EXPECT_FALSE(seq_is_in_include_file(7));
  EXPECT_TRUE(main_file->is_primary);
  EXPECT_EQ(main_file->children, header);

  record_end_of_source_file(main_file, 8);
  EXPECT_EQ(logical(8), "main.c:4");
  EXPECT_EQ(logical(9), "main.c:5 end");
  EXPECT_EQ(logical(20), "none");
}

TEST_F(source_positions, a_file_that_ends_in_an_include_ends_itself) {
  a_source_file *main_file = open("main.c", nullptr, 1);
  a_source_file *header = open("h.h", main_file, 2);
  record_end_of_source_file(header, 3);
  record_resumption_of_source_file(main_file, 4, 2);
  record_end_of_source_file(main_file, 3);
  EXPECT_EQ(logical(3), "h.h:2");
  EXPECT_EQ(logical(4), "main.c:2 end");
}

// main.c: lines 1 and 2, #line 100 "x.c" in line 3, lines 4 and 5; in line 5 an include of two
// lines, then line 6.
TEST_F(source_positions, line_directives_change_the_logical_view_only) {
  a_source_file *main_file = open("main.c", nullptr, 1);
  a_source_file *clone = open("x.c", main_file, 4, 100, true);
  EXPECT_EQ(logical(3), "main.c:3");
  EXPECT_EQ(logical(4), "x.c:100");
  EXPECT_EQ(physical(4), "main.c:4");
  a_source_file *header = open("h.h", clone, 6);
  EXPECT_EQ(physical(7), "h.h:2");
  record_end_of_source_file(header, 7);
  record_resumption_of_source_file(clone, 8, 102);
  EXPECT_EQ(logical(8), "x.c:102");
  EXPECT_EQ(physical(8), "main.c:6");
  EXPECT_EQ(eff_primary_source_file(), main_file);
  EXPECT_FALSE(seq_is_in_include_file(4));
}

TEST_F(source_positions, a_generated_top_file_gives_way_to_the_name_it_sets) {
  a_source_file *top = open("top.i", nullptr, 1);
  a_source_file *real = open("real.c", top, 2, 1, true);
  EXPECT_EQ(eff_primary_source_file(), real);
}

TEST_F(source_positions, many_stretches_are_found) {
  a_source_file *main_file = open("main.c", nullptr, 1);
  a_seq_number seq = 2;
  for (int i = 0; i < 5000; ++i) {
    a_source_file *header = open("h.h", main_file, seq);
    record_end_of_source_file(header, seq + 1);
    record_resumption_of_source_file(main_file, seq + 2, static_cast<a_line_number>(i) + 2);
    seq += 3;
  }
  EXPECT_EQ(logical(2 + 3 * 1234 + 1), "h.h:2");
  EXPECT_EQ(logical(2 + 3 * 1234 + 2), "main.c:1236");
  EXPECT_EQ(physical(2 + 3 * 1234 + 2), "main.c:1236");
}

TEST_F(source_positions, order_is_by_line_then_column) {
  EXPECT_EQ(compare_source_positions(make_source_position(1, 9), make_source_position(2, 1)), -1);
  EXPECT_EQ(compare_source_positions(make_source_position(2, 40000), make_source_position(2, 1)),
            1);
  EXPECT_EQ(compare_source_positions(make_source_position(2, 3), make_source_position(2, 3)), 0);
}

TEST_F(source_positions, declarations_keep_their_ranges) {
  EXPECT_EQ(make_decl_pos_supplement(true, nullptr), nullptr);
  a_decl_pos_block block = {};
  block.identifier_position = make_source_position(3, 5);
  a_decl_position_supplement *supplement = make_decl_pos_supplement(true, &block);
  EXPECT_TRUE(supplement->identifier_position == block.identifier_position);
  an_element_position *list = nullptr;
  f_add_element_position(1, make_source_position(1, 1), &list);
  f_add_element_position(2, make_source_position(1, 2), &list);
  EXPECT_EQ(list->next->kind, 2);
}

}  // namespace
