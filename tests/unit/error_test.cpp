// Messages: their text and layout, what the user can change about them, and the limits.
#include "DIAG/error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "UTIL/basics.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"

namespace {

// The source of these tests: sequence numbers 1 to 99 are lines of "file.c", from 100 on of the
// system header "sys.h", 1000 lies behind the end.
void file_and_line(std::uint32_t seq, const char **file, std::uint32_t *line, bool *at_end) {
  *file = seq < 100 || seq == 1000 ? "file.c" : "sys.h";
  *line = seq < 100 ? seq : seq - 99;
  *at_end = seq == 1000;
}
bool in_system_header(std::uint32_t seq) {
  return seq >= 100 && seq < 1000;
}
bool source_line(const a_source_position *, a_text_buffer *out) {
  f_add_string_to_text_buffer(out, "\tint \xC3\xA4 = y;\r");
  return true;
}

a_source_position at(std::uint32_t seq, int column = 1) {
  a_source_position pos{};
  pos.seq = seq;
  pos.column = static_cast<std::uint16_t>(column);
  return pos;
}

class Messages : public ::testing::Test {
 protected:
  void SetUp() override {
    reset_switches();
    error_early_init();
    error_init();
    diag_hooks = {};
    diag_hooks.file_and_line = file_and_line;
    diag_hooks.in_system_header = in_system_header;
    display_error_number = true;
    brief_diagnostics = true;
    primary_source_file_name = "file.c";
    f_error = stream_ = open_memstream(&text_, &size_);
  }
  void TearDown() override {
    std::fclose(stream_);
    std::free(text_);
    f_error = stderr;
  }
  // What was written since the last call.
  std::string output() {
    std::fflush(f_error);
    std::string result(text_ + read_, size_ - read_);
    read_ = size_;
    return result;
  }

 private:
  std::FILE *stream_ = nullptr;
  char *text_ = nullptr;
  std::size_t size_ = 0;
  std::size_t read_ = 0;
};

TEST_F(Messages, HeaderTellsPlaceSeverityAndNumber) {
  const a_source_position pos = at(12, 5);
  pos_st_error(ec_include_recursion, &pos, "a.h");
  EXPECT_EQ(output(), "\"file.c\", line 12: error #3: #include file \"a.h\" includes itself\n");
  pos_warning(ec_comment_unclosed_at_eof, &pos);
  EXPECT_EQ(output(), "\"file.c\", line 12: warning #6-D: comment unclosed at end of file\n");
  display_error_number = false;
  pos_error(ec_bad_token, &pos);
  EXPECT_EQ(output(), "\"file.c\", line 12: error: unrecognized token\n");
  pos_error(ec_bad_token, nullptr);
  EXPECT_EQ(output(), "Error: unrecognized token\n");
  const a_source_position end = at(1000);
  pos_error(ec_missing_endif, &end);
  EXPECT_EQ(output(), "At end of source: error: the #endif for this directive is missing\n");
  EXPECT_EQ(total_errors, 4u);
  EXPECT_EQ(total_warnings, 1u);
}

TEST_F(Messages, ArgumentsAreNumberedWithinTheirKind) {
  // "cannot open %s file %sq2: %s3"
  const a_source_position pos = at(1);
  pos_st3_diagnostic(es_error, ec_cannot_open_file_reason, &pos, "source", "x.c", "no reason");
  EXPECT_EQ(output(), "\"file.c\", line 1: error #" + std::to_string(ec_cannot_open_file_reason) +
                          ": cannot open source file \"x.c\": no reason\n");
}

TEST_F(Messages, BreaksLongLinesAtBlanks) {
  brief_diagnostics = false;
  const a_source_position pos = at(7);
  const std::string words =
      "one two three four five six seven eight nine ten eleven twelve "
      "thirteen fourteen fifteen sixteen seventeen eighteen nineteen";
  pos_st_error(ec_error_directive, &pos, words.c_str());
  const std::string text = output();
  std::string joined;
  std::size_t start = 0;
  int lines = 0;
  ASSERT_TRUE(text.ends_with("\n\n"));
  for (std::size_t end; (end = text.find('\n', start)) + 1 < text.size(); start = end + 1) {
    std::string line = text.substr(start, end - start);
    EXPECT_LE(line.size(), 79u);
    if (lines++ > 0) {
      EXPECT_EQ(line.substr(0, 11).find_first_not_of(' '), 10u);
      line = " " + line.substr(10);
    }
    joined += line;
  }
  EXPECT_EQ(lines, 3);
  // The column is told where the source line cannot be shown.
  EXPECT_EQ(joined, "\"file.c\", line 7 (col. 1): error #35: #error directive: " + words);
}

TEST_F(Messages, CutsAWordThatIsLongerThanTheLine) {
  brief_diagnostics = false;
  display_error_number = false;
  pos_st_error(ec_error_directive, nullptr, std::string(200, 'x').c_str());
  const std::string text = output();
  // "Error: #error directive: " has its last blank at 24; the word follows on lines of its own.
  EXPECT_EQ(text.substr(0, 25), "Error: #error directive:\n");
  EXPECT_EQ(text.substr(25, 80), std::string(10, ' ') + std::string(69, 'x') + "\n");
}

TEST_F(Messages, ShowsTheSourceLineWithACaret) {
  brief_diagnostics = false;
  diag_hooks.source_line = source_line;
  const a_source_position pos = at(3, 6 + 2);
  pos_error(ec_bad_token, &pos);
  // The tab stays a tab, and the two bytes of the letter count once.
  EXPECT_EQ(output(),
            "\"file.c\", line 3: error #7: unrecognized token\n"
            "\tint \xC3\xA4 = y; \n\t      ^\n\n");
}

TEST_F(Messages, SystemHeadersSpeakOnlyOfRealErrors) {
  const a_source_position pos = at(150);
  pos_warning(ec_bad_token, &pos);
  set_severity_for_error_number(ec_nested_comment, es_discretionary_error, nullptr, true);
  pos_warning(ec_nested_comment, &pos);
  EXPECT_EQ(output(), "");
  EXPECT_EQ(total_errors, 0u);
  pos_error(ec_bad_token, &pos);
  EXPECT_EQ(output(), "\"sys.h\", line 51: error #7: unrecognized token\n");
}

TEST_F(Messages, OverridesHoldFromTheirPlaceOn) {
  set_severity_for_error_list("nested_comment, 7", es_none);
  const a_source_position before = at(5), pragma = at(10), after = at(20);
  pos_warning(ec_bad_token, &before);
  EXPECT_EQ(set_severity_for_error_number(7, es_discretionary_error, &pragma, false), 0);
  pos_warning(ec_bad_token, &before);  // reported late about an earlier place
  EXPECT_EQ(output(), "");
  pos_warning(ec_bad_token, &after);
  EXPECT_EQ(output(), "\"file.c\", line 20: error #7-D: unrecognized token\n");
  EXPECT_EQ(total_errors, 1u);

  const a_source_position back = at(30), last = at(31);
  set_severity_for_error_tag("bad_token", es_default, &back, false);
  pos_warning(ec_bad_token, &last);
  EXPECT_EQ(output(), "");
  pos_error(ec_bad_token, &last);  // a plain error cannot be changed
  EXPECT_NE(output(), "");
  EXPECT_EQ(set_severity_for_error_tag("no_such_tag", es_none, nullptr, true), 1);
  EXPECT_EQ(set_severity_for_error_number(3192, es_none, nullptr, true), 1);
}

TEST_F(Messages, PopBringsBackWhatPushSaw) {
  const a_source_position here = at(10), popped = at(20), later = at(30);
  push_diag_severities();
  set_severity_for_error_number(ec_bad_token, es_none, &here, false);
  pos_warning(ec_bad_token, &popped);
  EXPECT_EQ(output(), "");
  EXPECT_TRUE(pop_diag_severities(&popped));
  pos_warning(ec_bad_token, &later);
  EXPECT_NE(output(), "");
  EXPECT_FALSE(pop_diag_severities(&later));
}

TEST_F(Messages, LongHistoriesAreSearchedNotWalked) {
  constexpr std::uint32_t count = 200000;
  for (std::uint32_t i = 0; i < count; ++i) {
    const a_source_position pos = at(2 * i + 1);
    push_diag_severities();
    set_severity_for_error_number(ec_bad_token, i % 2 == 0 ? es_none : es_remark, &pos, false);
    if (i % 4 == 3) {
      ASSERT_TRUE(pop_diag_severities(&pos));
    }
  }
  std::uint32_t shown = 0;
  error_threshold = es_remark;
  for (std::uint32_t i = 0; i < count; ++i) {
    const a_source_position pos = at(2 * i + 2);
    if (is_effective_diagnostic(ec_bad_token, es_warning, &pos)) ++shown;
  }
  EXPECT_EQ(shown, count / 4);
}

TEST_F(Messages, OnceMeansOnce) {
  const a_source_position pos = at(1), pragma = at(2), later = at(3);
  set_severity_for_error_number(ec_bad_token, es_once, &pragma, false);
  pos_warning(ec_bad_token, &later);
  EXPECT_NE(output(), "");
  pos_warning(ec_bad_token, &later);
  pos_warning(ec_bad_token, &pos);
  EXPECT_EQ(output(), "");
  pos_error(ec_bad_token, &later);
  EXPECT_NE(output(), "");
}

TEST_F(Messages, WarningsCanCountAsErrors) {
  warning_as_error_mode = true;
  const a_source_position pos = at(1);
  pos_warning(ec_bad_token, &pos);
  EXPECT_EQ(output(), "\"file.c\", line 1: error #7-D: unrecognized token\n");
  EXPECT_EQ(total_errors, 1u);
  EXPECT_TRUE(is_effective_error(ec_bad_token, es_warning, &pos));
}

TEST_F(Messages, ASyntaxErrorBringsNoOtherAtItsPlace) {
  const a_source_position pos = at(1, 4), same = at(1, 4), next = at(1, 5);
  error_position = pos;
  syntax_error(ec_exp_semicolon);
  EXPECT_NE(output(), "");
  pos_syntax_error(ec_exp_rparen, &same);
  EXPECT_EQ(output(), "");
  pos_error(ec_exp_rparen, &same);  // another mistake
  EXPECT_NE(output(), "");
  pos_syntax_error(ec_exp_rparen, &next);
  pos_syntax_error(ec_exp_rparen, &pos);
  EXPECT_EQ(output(),
            "\"file.c\", line 1: error #18: expected a \")\"\n"
            "\"file.c\", line 1: error #18: expected a \")\"\n");
  forgive_syntax_error_at(&next);
  pos_syntax_error(ec_exp_rparen, &next);
  EXPECT_EQ(output(), "");
  const a_source_position no_place = at(0);
  pos_syntax_error(ec_exp_rparen, &no_place);
  pos_syntax_error(ec_exp_rparen, &no_place);
  EXPECT_EQ(total_errors, 6u);
}

TEST_F(Messages, SupplementsAndNotesStandBelow) {
  const a_source_position pos = at(4), other = at(2), elsewhere = at(100);
  a_diag_list notes{};
  more_info_diagnostic(ec_bad_token, &other, &notes);
  a_diagnostic *d = pos_start_error(ec_missing_endif, &pos);
  add_diag_info_with_pos_insert(d, ect_3010, &other);
  add_diag_info_with_pos_insert(d, ect_3010, &elsewhere);
  add_more_info_list(d, &notes);
  end_diagnostic(d);
  EXPECT_EQ(output(),
            "\"file.c\", line 4: error #38: the #endif for this directive is missing\n"
            "            (see previous declaration at line 2)\n"
            "            (see previous declaration at line 1 of \"sys.h\")\n"
            "\"file.c\", line 2: note #7-D: unrecognized token\n");
  EXPECT_EQ(notes.head, nullptr);
}

// The text and its continuation lines of a message without position or number.
std::string laid_out(const std::string &text) {
  static std::string kept;
  kept = text;
  pos_st_error(ec_error_directive, nullptr, kept.c_str());
  return kept;
}

TEST_F(Messages, ALineEndsAtColumn79) {
  brief_diagnostics = display_error_number = false;
  const std::string header = "Error: #error directive: ";
  // A last word that ends in column 79 stays; one column more takes it below.
  const std::string words(79 - header.size() - 3, 'a');
  laid_out(words + " bc");
  EXPECT_EQ(output(), header + words + " bc\n\n");
  laid_out(words + " bcd");
  EXPECT_EQ(output(), header + words + "\n          bcd\n\n");
  // A blank in column 80 is where the line ends.
  laid_out(words + " bc d");
  EXPECT_EQ(output(), header + words + " bc\n          d\n\n");
  // A character of several bytes takes one column, and is never cut.
  std::string letters;
  for (int i = 0; i < 100; ++i)
    letters += "\xC3\xA4";
  laid_out(letters);
  const std::string text = output();
  EXPECT_EQ(text, "Error: #error directive:\n          " + letters.substr(0, 138) + "\n          " +
                      letters.substr(138) + "\n\n");
  do_not_wrap_diagnostics = true;
  laid_out(letters);
  EXPECT_EQ(output(), header + letters + "\n\n");
}

TEST_F(Messages, PartsAreIndentedAndWrapped) {
  brief_diagnostics = false;
  const a_source_position pos = at(4), far = at(7);
  const std::string word(90, 'w');
  a_diag_list notes{};
  more_info_diagnostic(ec_bad_token, &far, &notes);
  a_diagnostic *d = pos_start_error(ec_missing_endif, &pos);
  str_add_diag_info(d, ect_3016, word.c_str());
  copy_str_add_diag_info(d, ect_3016, "short");
  add_more_info_list(d, &notes);
  end_diagnostic(d);
  EXPECT_EQ(output(),
            "\"file.c\", line 4 (col. 1): error #38: the #endif for this directive is missing\n" +
                std::string(12, ' ') + std::string(67, 'w') + "\n" + std::string(22, ' ') +
                std::string(23, 'w') +
                "\n            short\n"
                "\"file.c\", line 7 (col. 1): note #7-D: unrecognized token\n\n");
}

TEST_F(Messages, TheUserChangesNotesToo) {
  const a_source_position pos = at(4);
  auto report = [&] {
    a_diag_list notes{};
    more_info_diagnostic(ec_bad_token, &pos, &notes);
    more_info_diagnostic(ec_nested_comment, &pos, &notes);
    a_diagnostic *d = pos_start_diagnostic(es_warning, ec_missing_endif, &pos);
    add_more_info_list(d, &notes);
    end_diagnostic(d);
  };
  set_severity_for_error_number(ec_bad_token, es_none, nullptr, true);
  report();
  EXPECT_EQ(output(),
            "\"file.c\", line 4: warning #38-D: the #endif for this directive is missing\n"
            "\"file.c\", line 4: note #9-D: nested comment is not allowed\n");
  set_severity_for_error_number(ec_missing_endif, es_none, nullptr, true);
  report();
  more_info_diagnostic(ec_bad_token, &pos, nullptr);
  EXPECT_EQ(output(), "");
  more_info_diagnostic(ec_nested_comment, nullptr, nullptr);
  EXPECT_EQ(output(), "Note #9-D: nested comment is not allowed\n");
  EXPECT_EQ(total_warnings + total_remarks + total_errors, 1u);
}

TEST_F(Messages, ArgumentsOfEveryKind) {
  diag_hooks.form_type = [](a_type *, a_text_buffer *out) {
    f_add_string_to_text_buffer(out, "int *");
  };
  diag_hooks.form_symbol_name = [](a_symbol *, const a_symbol_form *form, a_text_buffer *out) {
    if (!form->omit_kind) f_add_string_to_text_buffer(out, "variable ");
    f_add_string_to_text_buffer(out, form->full_signature ? "\"f(int)\"" : "\"x\"");
  };
  static a_source_position declared;
  diag_hooks.position_of_symbol = [](a_symbol *) -> const a_source_position * { return &declared; };
  auto *symbol = reinterpret_cast<a_symbol *>(&declared);
  auto *type = reinterpret_cast<a_type *>(&declared);
  const a_source_position pos = at(1);
  auto text_after = [&](std::size_t skipped) { return output().substr(skipped); };
  const std::size_t header = std::strlen("\"file.c\", line 1: error #148: ");
  declared = at(7);
  pos_sy_error(ec_not_compatible_with_previous_decl, &pos, symbol);
  EXPECT_EQ(text_after(header),
            "declaration is incompatible with variable \"f(int)\" (declared at line 7)\n");
  declared = at(150);
  pos_sy_error(ec_not_compatible_with_previous_decl, &pos, symbol);
  EXPECT_EQ(text_after(header),
            "declaration is incompatible with variable \"f(int)\" (declared at line 51 of "
            "\"sys.h\")\n");
  declared = at(1000);
  pos_sy_error(ec_not_compatible_with_previous_decl, &pos, symbol);
  EXPECT_EQ(text_after(header),
            "declaration is incompatible with variable \"f(int)\" (at end of source)\n");
  declared = at(0);
  pos_sy_error(ec_not_compatible_with_previous_decl, &pos, symbol);
  EXPECT_EQ(text_after(header),
            "declaration is incompatible with variable \"f(int)\" (declared implicitly)\n");
  // 145: "a value of type %t1 cannot be used to initialize an entity of type %t2"
  pos_ty2_error(ec_bad_initializer_type, &pos, type, type);
  EXPECT_EQ(text_after(header),
            "a value of type \"int *\" cannot be used to initialize an entity of type \"int *\"\n");
}

// ---- Instances of templates --------------------------------------------------------------------

int open_contexts;
an_instantiation_context_kind context_kind;
void open_contexts_of(int count, an_instantiation_context_kind kind) {
  open_contexts = count;
  context_kind = kind;
  // Every second entry of the stack is an instance; the name of its symbol is the depth.
  diag_hooks.scope_stack_depth = [] { return 2 * open_contexts; };
  diag_hooks.instantiation_context_of = [](int depth, a_symbol **symbol,
                                           const a_source_position **position) {
    static a_source_position places[64];
    places[depth] = at(static_cast<std::uint32_t>(depth));
    *symbol = reinterpret_cast<a_symbol *>(&places[depth]);
    *position = &places[depth];
    return depth % 2 != 0 ? context_kind : ick_none;
  };
  diag_hooks.form_symbol_name = [](a_symbol *symbol, const a_symbol_form *, a_text_buffer *out) {
    const auto depth = reinterpret_cast<a_source_position *>(symbol)->seq;
    f_add_string_to_text_buffer(out, ("f" + std::to_string(depth)).c_str());
  };
}

TEST_F(Messages, TellsOfWhatTheTextIsAnInstance) {
  display_error_number = false;
  const a_source_position pos = at(90);
  const std::string message = "\"file.c\", line 90: error: unrecognized token\n";
  const struct {
    an_instantiation_context_kind kind;
    const char *text;
  } rows[] = {
      {ick_instantiation, "instantiation of f1 at line 1"},
      {ick_member_instantiation, "instantiation of f1 at line 1"},
      {ick_implicit_generation, "implicit generation of f1 at line 1"},
      {ick_implicit_definition, "implicit definition of f1 at line 1"},
      {ick_template_argument_list, "processing of template argument list for f1 at line 1"}};
  for (const auto &row : rows) {
    open_contexts_of(1, row.kind);
    pos_error(ec_bad_token, &pos);
    EXPECT_EQ(output(), message + "          detected during " + row.text + "\n");
  }
  open_contexts_of(2, ick_implicit_generation);
  pos_error(ec_bad_token, &pos);
  EXPECT_EQ(output(), message +
                          "          detected during:\n"
                          "            implicit generation of f3 at line 3\n"
                          "            implicit generation of f1 at line 1\n");
  // Notes tell it once, with their message.
  more_info_diagnostic(ec_bad_token, &pos, nullptr);
  EXPECT_EQ(output(), "\"file.c\", line 90: note: unrecognized token\n");
}

TEST_F(Messages, LeavesOutTheMiddleOfManyContexts) {
  display_error_number = false;
  const a_source_position pos = at(90);
  auto lines_with = [&](int count, int limit) {
    open_contexts_of(count, ick_instantiation);
    context_limit = limit;
    pos_error(ec_bad_token, &pos);
    const std::string text = output();
    return text.substr(text.find("detected"));
  };
  auto line = [](int depth) {
    const std::string number = std::to_string(depth);
    return "            instantiation of f" + number + " at line " + number + "\n";
  };
  EXPECT_EQ(lines_with(12, 4), "detected during:\n" + line(23) + line(21) +
                                   "            [ 8 instantiation contexts not shown ]\n" +
                                   line(3) + line(1));
  // One more than the limit is shown: the line about it would be no shorter.
  EXPECT_EQ(lines_with(5, 4),
            "detected during:\n" + line(9) + line(7) + line(5) + line(3) + line(1));
  const std::string all = lines_with(30, 0);
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 31);
}

TEST_F(Messages, InstancesDoNotRepeatOneAnother) {
  static std::int64_t scope;
  static bool in_template;
  diag_hooks.scope_stack_depth = [] { return 0; };
  diag_hooks.template_scope = [](std::int64_t *id) {
    *id = scope;
    return in_template;
  };
  const a_source_position pos = at(5);
  auto shown = [&](std::int64_t id) {
    scope = id;
    pos_error(ec_bad_token, &pos);
    return !output().empty();
  };
  in_template = true;
  EXPECT_TRUE(shown(1));
  in_template = false;
  EXPECT_FALSE(shown(2));
  EXPECT_FALSE(shown(2));
  EXPECT_FALSE(shown(3));
  const a_source_position other = at(5, 9);
  pos_error(ec_bad_token, &other);
  pos_error(ec_bad_token, &other);  // outside templates nothing is remembered
  EXPECT_EQ(total_errors, 3u);
}

// ---- The raw listing ---------------------------------------------------------------------------

TEST_F(Messages, TheListingTakesEachMessageInALine) {
  static std::FILE *listing;
  char *text = nullptr;
  std::size_t size = 0;
  listing = open_memstream(&text, &size);
  diag_hooks.raw_listing = [] { return listing; };
  error_threshold = es_remark;
  const a_source_position pos = at(4, 7);
  a_diag_list notes{};
  more_info_diagnostic(ec_bad_token, &pos, &notes);
  a_diagnostic *d = pos_start_diagnostic(es_warning, ec_bad_token, &pos);
  str_add_diag_info(d, ect_3016, "more");
  add_more_info_list(d, &notes);
  end_diagnostic(d);
  pos_remark(ec_bad_token, &pos);
  pos_diagnostic(es_advice, ec_bad_token, &pos);
  pos_diagnostic(es_discretionary_error, ec_bad_token, &pos);
  pos_error(ec_bad_token, nullptr);
  str_command_line_warning(ec_cl_invalid_option, "--x");
  std::fclose(listing);
  EXPECT_STREQ(text,
               "W \"file.c\" 4 7 unrecognized token\n"
               "w \"\" 0 0 more\n"
               "R \"file.c\" 4 7 unrecognized token\n"
               "A \"file.c\" 4 7 unrecognized token\n"
               "E \"file.c\" 4 7 unrecognized token\n"
               "E \"\" 0 0 unrecognized token\n"
               "W \"\" 0 0 invalid option: --x\n");
  std::free(text);
  EXPECT_EQ(total_remarks, 2u);
  EXPECT_EQ(total_warnings, 2u);
  EXPECT_EQ(total_errors, 2u);
}

TEST_F(Messages, SomeWordsHaveTwoSpellings) {
  display_error_number = false;
  const auto report = [] { pos_error(ec_cl_microsoft_version_insufficient_for_cppcli, nullptr); };
  report();
  EXPECT_TRUE(output().starts_with("Error: C++/CX mapping mode requires "));
  use_cppcli_fill_ins = true;
  report();
  EXPECT_TRUE(output().starts_with("Error: C++/CLI mode requires "));
}

TEST_F(Messages, APredefinedMacroHasNoPlace) {
  processing_predefined_macro = true;
  curr_cmd_line_or_predef_macro_def = "x(=1";
  pos_error(ec_exp_macro_param, nullptr);
  EXPECT_EQ(output(), "In predefined macro file: Error #53: expected a macro parameter name\n");
  pos_warning(ec_bad_token, nullptr);  // only errors count in a definition
  EXPECT_EQ(output(), "");
}

TEST_F(Messages, PowerAdviceComesOnceALine) {
  error_threshold = es_power_remark;
  const auto code = static_cast<an_error_code>(1531);
  const a_source_position pos = at(4, 7), same_line = at(4, 9), next = at(5);
  pos_diagnostic(es_advice, code, &pos);
  EXPECT_TRUE(output().starts_with("\"file.c\", line 4: advice #1531-D: "));
  pos_diagnostic(es_advice, code, &same_line);
  EXPECT_EQ(output(), "");
  pos_diagnostic(es_advice, code, &next);
  EXPECT_NE(output(), "");
}

TEST_F(Messages, PushesNest) {
  auto severity_at = [](std::uint32_t line) {
    const a_source_position pos = at(line);
    return !is_effective_diagnostic(ec_bad_token, es_warning, &pos) ? 0
           : is_effective_error(ec_bad_token, es_warning, &pos)     ? 9
                                                                    : 6;
  };
  auto change = [](an_error_severity severity, std::uint32_t line) {
    const a_source_position pos = at(line);
    set_severity_for_error_number(ec_bad_token, severity, &pos, false);
  };
  auto pop = [](std::uint32_t line) {
    const a_source_position pos = at(line);
    EXPECT_TRUE(pop_diag_severities(&pos));
  };
  push_diag_severities();
  change(es_none, 10);
  push_diag_severities();
  change(es_discretionary_error, 20);
  push_diag_severities();
  push_diag_severities();
  change(es_default, 30);
  change(es_none, 40);
  pop(50);
  pop(51);
  pop(60);
  pop(70);
  const int expected[] = {6, 0, 9, 6, 0, 9, 0, 6};
  for (std::uint32_t i = 0; i < 8; ++i)
    EXPECT_EQ(severity_at(i * 10 + 5), expected[i]) << i;
  EXPECT_FALSE(pop_diag_severities(nullptr));
}

TEST_F(Messages, EveryCodeHasATextAndATagFindsIt) {
  for (int code = 0; code < num_error_codes; ++code) {
    ASSERT_NE(error_text(code), nullptr);
    if (const char *tag = tag_for_error_code(code)) {
      ASSERT_EQ(error_code_for_tag(tag), code) << tag;
    }
  }
}

using MessagesDeathTest = Messages;

TEST_F(MessagesDeathTest, TheErrorLimitEndsTheCompilation) {
  error_limit = 2;
  const a_source_position pos = at(1);
  auto reach_limit = [&] {
    f_error = stderr;
    pos_error(ec_bad_token, &pos);
    pos_error(ec_bad_token, &pos);
  };
  EXPECT_EXIT(reach_limit(), ::testing::ExitedWithCode(4),
              "token\nError limit reached.\n"
              "2 errors detected in the compilation of \"file.c\".\nCompilation terminated.\n$");
}

TEST_F(MessagesDeathTest, CatastrophesEndTheCompilationAndDeleteTheOutput) {
  const std::string name = ::testing::TempDir() + "begun_output";
  auto stop = [&] {
    f_error = stderr;
    std::fclose(std::fopen(name.c_str(), "w"));
    std::atexit(unlink_begun_outputs);  // as the driver does
    note_begun_output(name.c_str());
    str_catastrophe(ec_file_write_error, "raw listing");
  };
  EXPECT_EXIT(stop(), ::testing::ExitedWithCode(4),
              "Fatal error #[0-9]+: error while writing raw listing file\n"
              "1 catastrophic error detected");
  EXPECT_FALSE(is_regular_file(name.c_str()));
  auto bad_option = [] {
    f_error = stderr;
    str_command_line_error(ec_cl_invalid_error_tag, "x");
  };
  EXPECT_EXIT(bad_option(), ::testing::ExitedWithCode(4), "Command-line error #");
}

TEST_F(MessagesDeathTest, AMacroOfTheCommandLineIsNamedInItsErrors) {
  auto stop = [] {
    f_error = stderr;
    curr_cmd_line_or_predef_macro_def = "x(=1";
    pos_error(ec_exp_macro_param, nullptr);
  };
  EXPECT_EXIT(stop(), ::testing::ExitedWithCode(4), "invalid macro definition: x\\(=1");
}

TEST_F(MessagesDeathTest, AMistakeWhileTheLastMessageIsFormedEndsAtOnce) {
  auto stop = [](an_error_severity severity, void (*form_type)(a_type *, a_text_buffer *)) {
    f_error = stderr;
    diag_hooks.form_type = form_type;
    const a_source_position pos = at(1);
    auto *type = reinterpret_cast<a_type *>(&f_error);
    a_diagnostic *d = pos_ty_start_diagnostic(severity, ec_bad_initializer_type, &pos, type);
    end_diagnostic(d);
  };
  EXPECT_EXIT(stop(es_catastrophe, [](a_type *, a_text_buffer *) { catastrophe(ec_bad_token); }),
              ::testing::ExitedWithCode(4),
              "^Loop in catastrophic error processing.\n1 catastrophic error detected in the "
              "compilation of \"file.c\".\nCompilation terminated.\n$");
  EXPECT_DEATH(stop(es_internal_error, [](a_type *, a_text_buffer *) { internal_error("x"); }),
               "^Internal error loop\nCompilation aborted.");
}

TEST_F(MessagesDeathTest, ABrokenInvariantIsAnInternalError) {
  auto stop = [] {
    f_error = stderr;
    check_invariant(1 + 1 == 3);
  };
  EXPECT_DEATH(stop(), "Internal error.*1 \\+ 1 == 3.*\n(.*\n)*Compilation aborted.");
}

}  // namespace
