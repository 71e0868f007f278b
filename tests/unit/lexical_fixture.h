// Text put into the input, and what the tokenizer makes of it, in the dialect of a command line.
#ifndef UNIT_LEXICAL_FIXTURE_H
#define UNIT_LEXICAL_FIXTURE_H

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "front_end_start.h"
#include "il/il_expr.h"
#include "options/cmd_line.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack.h"
#include "source/lexical.h"

using kinds = std::vector<a_token_kind>;

class a_lexical_test : public ::testing::Test {
 protected:
  // Another front end; the one before is dead.
  void start(const std::string &options) {
    close();
    start_front_end_with_options(options);
  }
  void TearDown() override { close(); }

  // Reads what is left of the open text.
  void close() {
    if (!text_is_open_) return;
    while (curr_token != tok_end_of_source)
      get_token();
    end_inserted_text(&place_);
    text_is_open_ = false;
  }

  // Makes text the input; the first token is current.
  void open(const std::string &text) {
    close();
    text_is_open_ = true;
    text_ = text;
    text_ += std::string("\0\2\0\1", 4);
    a_source_position pos = {1, 1, 0};
    begin_inserted_text(text_.c_str(), &pos, &place_);
    get_token();
  }
  std::vector<a_token_kind> kinds_of(const std::string &text) {
    open(text);
    std::vector<a_token_kind> kinds;
    for (; curr_token != tok_end_of_source; get_token())
      kinds.push_back(curr_token);
    return kinds;
  }
  std::string string_of(const std::string &text) {
    open(text);
    EXPECT_EQ(curr_token, tok_string_literal) << text;
    if (const_for_curr_token.kind != ck_string) return "<error>";
    return std::string(const_for_curr_token.string_text, const_for_curr_token.string_length);
  }

 private:
  std::string text_;
  a_saved_text_place place_;
  bool text_is_open_ = false;
};

#endif
