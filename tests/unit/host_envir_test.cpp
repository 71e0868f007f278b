// File names, include lists, encodings and command files.
#include "driver/host_envir.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "UTIL/cmdfile.h"
#include "UTIL/filename.h"
#include "driver/switches.h"

namespace {

class Host : public ::testing::Test {
 protected:
  void SetUp() override {
    reset_switches();
    mem_manage_early_init();
    mem_manage_init();
    host_envir_early_init();
  }
  void TearDown() override { free_all_memory_regions(); }
};

std::string split_and_build(const char *path) {
  char dir[fn_part_size], base[fn_part_size], ext[fn_part_size];
  fn_split(path, dir, base, ext);
  char *built = fn_build(nullptr, dir, base, ext);
  std::string result = std::string(dir) + "|" + base + "|" + ext + "|" + built;
  std::free(built);
  return result;
}

TEST_F(Host, TakesFileNamesApart) {
  EXPECT_STREQ(start_of_file_name("a/b/c.d.e"), "c.d.e");
  EXPECT_STREQ(suffix_of("a.b/c.d.e"), ".e");
  EXPECT_STREQ(suffix_of("a.b/c"), "");
  EXPECT_STREQ(start_of_file_name("-"), "-");
  EXPECT_EQ(split_and_build("a/b/c.d.e"), "a/b|c.d|e|a/b/c.d.e");
  EXPECT_EQ(split_and_build("/c"), "/|c||/c");
  EXPECT_EQ(split_and_build("a.b/.profile"), "a.b|.profile||a.b/.profile");
  char dir[fn_part_size], base[fn_part_size], ext[fn_part_size];
  fn_split(std::string(700, 'x').c_str(), dir, base, ext);
  EXPECT_EQ(std::strlen(base), 499u);
}

TEST_F(Host, DerivesNames) {
  EXPECT_STREQ(derived_name("src/x/main.c", ".if"), "main.if");
  EXPECT_STREQ(derived_name("main", ".obj"), "main.obj");
  EXPECT_STREQ(combine_dir_and_file_name("a/b", "c.h", nullptr), "a/b/c.h");
  EXPECT_STREQ(combine_dir_and_file_name("a/b/", "c.h", nullptr), "a/b/c.h");
  EXPECT_STREQ(combine_dir_and_file_name("a/b", "/c.h", nullptr), "/c.h");
  EXPECT_STREQ(combine_dir_and_file_name("", "c.h", nullptr), "c.h");
  EXPECT_STREQ(directory_of("/c.h"), "/");
  EXPECT_STREQ(directory_of("c.h"), "");
  EXPECT_EQ(directory_of("a/b/c.h"), directory_of("a/b/d.h"));  // one text for one directory
  EXPECT_STREQ(normalize_file_name("././/a//b.c"), "a/b.c");
  EXPECT_STREQ(makefile_format_file_name("a b.c"), "a\\ b.c");
  EXPECT_STREQ(format_file_name("a\nb\001\xC3\xA4"), "a\\nb\\001\xC3\xA4");
}

TEST_F(Host, ComparesNamesByFile) {
  const std::string absolute = std::string(current_directory_name) + "/not/there";
  EXPECT_EQ(compare_dir_names("not/there", absolute.c_str(), true), 0);
  EXPECT_EQ(compare_dir_names("/tmp", "/tmp/.", false), 0);
  EXPECT_EQ(compare_dir_names("/tmp", "/tmp/.", true), 1);
  EXPECT_EQ(compare_dir_names("/tmp", "/", false), 1);
  EXPECT_EQ(f_compare_file_names("\"/tmp/x.h\"", "\"/tmp/./x.h\"", true), 0);
  EXPECT_EQ(f_compare_file_names("/tmp/x.h", "/tmp/y.h", false), 1);
}

std::string include_list() {
  std::string result;
  for (auto *entry = incl_search_path; entry != nullptr; entry = entry->next) {
    result += std::string(entry->is_system ? "<" : "\"") + entry->name + " ";
    if (entry->next == nullptr) {
      EXPECT_EQ(end_incl_search_path, entry);
    }
  }
  return result;
}

TEST_F(Host, DropsDirectoriesNamedTwice) {
  add_to_include_search_path("/tmp", false);
  add_to_include_search_path("/", false);
  add_to_include_search_path("/tmp/.", false);
  add_to_include_search_path("/usr", true);
  add_to_include_search_path("/usr/.", true);
  a_directory_name_entry *last_user = incl_search_path->next->next;
  remove_duplicate_include_dirs(&last_user, true);
  EXPECT_EQ(include_list(), "\"/tmp \"/ </usr ");
  EXPECT_STREQ(last_user->name, "/");
  EXPECT_STREQ(sys_incl_search_path->name, "/usr");
}

TEST_F(Host, ASystemDirectoryStaysOne) {
  char *text = nullptr;
  std::size_t size = 0;
  f_error = open_memstream(&text, &size);
  add_to_include_search_path("/usr", false);
  add_to_include_search_path("/tmp", false);
  add_to_include_search_path("/usr", true);
  a_directory_name_entry *last_user = incl_search_path->next;
  remove_duplicate_include_dirs(&last_user, true);
  EXPECT_EQ(include_list(), "\"/tmp </usr ");
  std::fclose(f_error);
  f_error = stderr;
  EXPECT_NE(std::string(text).find("ommand-line warning"), std::string::npos);
  std::free(text);
}

TEST_F(Host, FollowsTheDirectoryOfTheFileBeingRead) {
  add_to_include_search_path("inc", false);
  stack_referenced_include_directories = true;
  push_primary_include_search_dir("a", false);
  push_primary_include_search_dir("b", false);
  EXPECT_EQ(include_list(), "\"b \"a \"inc ");
  pop_primary_include_search_dir("a", false);
  EXPECT_EQ(include_list(), "\"a \"inc ");
}

TEST_F(Host, DecodesOnlyValidSequences) {
  std::uint32_t value;
  bool invalid;
  EXPECT_EQ(mbc_to_wide_char("\xE2\x82\xAC", &value, &invalid, false), 3);
  EXPECT_EQ(value, 0x20ACu);
  EXPECT_FALSE(invalid);
  // A lone continuation, an overlong form, a surrogate, a sequence cut short.
  for (const char *bad : {"\x80\x80", "\xC0\x80", "\xED\xA0\x80", "\xE2\x82z", "\xFF"}) {
    mbc_to_wide_char(bad, &value, &invalid, false);
    EXPECT_TRUE(invalid) << bad;
    EXPECT_EQ(value, 0u);
  }
  EXPECT_EQ(f_mbc_length("\xE2\x82z", nullptr, true), 2);
  EXPECT_EQ(mbc_to_wide_char("\xE2\x82\xAC", &value, &invalid, true), 1);
  for (std::uint32_t c : {0x7Fu, 0x80u, 0x7FFu, 0x800u, 0xFFFFu, 0x10000u, 0x10FFFFu}) {
    char bytes[5] = {};
    const int length = unicode_to_utf8(c, bytes);
    EXPECT_EQ(mbc_to_wide_char(bytes, &value, &invalid, false), length);
    EXPECT_EQ(value, c);
  }
  std::uint16_t units[2];
  EXPECT_EQ(ucn_to_utf16(0x1F600, units), 2);
  EXPECT_EQ(units[0], 0xD83D);
  EXPECT_EQ(units[1], 0xDE00);
}

TEST_F(Host, ReadsUtf16AsUtf8) {
  std::FILE *file = open_temp_file(true);
  const char text[] = "a\0\xE4\0\x3D\xD8\x00\xDE\x3D\xD8z\0";
  std::fwrite(text, 1, sizeof text - 1, file);
  std::rewind(file);
  a_getc_source_state state{};
  state.kind = 2;
  std::string result;
  for (int c; (c = getc_utf16(file, &state)) != EOF;)
    result += static_cast<char>(c);
  EXPECT_EQ(result, "a\xC3\xA4\xF0\x9F\x98\x80?");  // the lone high surrogate took its follower
  std::fclose(file);
}

TEST_F(Host, TemporaryFilesDifferAndAreGone) {
  char *one = fn_tmpnam(), *other = fn_tmpnam();
  EXPECT_STRNE(one, other);
  EXPECT_EQ(std::string(start_of_file_name(one)).substr(0, 2), "QX");
  for (char *name : {one, other}) {
    EXPECT_EQ(unlink(name), 0);
    std::free(name);
  }
  std::FILE *stream = open_temp_file(true);
  EXPECT_EQ(std::fwrite("a\n", 1, 2, stream), 2u);
  std::rewind(stream);
  EXPECT_EQ(std::fgetc(stream), 'a');
  std::fclose(stream);
}

TEST_F(Host, MakesAModuleIdOfNameTimeAndDirectory) {
  EXPECT_EQ(crc_32("123456789", 0), 0xCBF43926u);
  EXPECT_EQ(crc_32("6789", crc_32("12345", 0)), 0xCBF43926u);
  primary_source_file_name = "dir/my-file.c";
  const std::string id = make_module_id("some text");
  EXPECT_EQ(id.substr(0, 13), "_9_my_file_c_");
  EXPECT_EQ(id.size(), 13u + 8);
  EXPECT_EQ(make_module_id("other"), id);
}

std::vector<std::string> options_of(const char *text) {
  std::FILE *file = open_temp_file(false);
  std::fputs(text, file);
  std::rewind(file);
  std::vector<std::string> result;
  while (char *option = fnextopt(file)) {
    result.push_back(option);
    std::free(option);
  }
  std::fclose(file);
  return result;
}

TEST_F(Host, ReadsCommandFiles) {
  using list = std::vector<std::string>;
  EXPECT_EQ(options_of("-a -b\n# note\n-Dx=#1 /* c -d */ -e;rest\n f"),
            (list{"-a", "-b", "-Dx=#1", "-e", "f"}));
  EXPECT_EQ(options_of("-D\"x = \\\"1\\\"\" \"a \\\\ b\" c\\d a/b"),
            (list{"-Dx = \"1\"", "a \\ b", "c\\d", "a/b"}));
  EXPECT_EQ(options_of(" \n\t"), list{});
  EXPECT_EXIT(options_of("-a /* open"), ::testing::ExitedWithCode(255), "Unterminated comment");
  EXPECT_EXIT(options_of("-a \"open"), ::testing::ExitedWithCode(255),
              "Unterminated quote in command file; aborting\n   Quote starts at open");
}

}  // namespace
