// Preprocessing of small files, through the tokenizer: the spelled tokens, their positions, and the
// numbers of the messages.
#include "source/preproc.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>

#include "DIAG/error.h"
#include "front_end_start.h"
#include "source/input_stack.h"
#include "source/lexical.h"
#include "source/macro.h"
#include "source/pp_output.h"

namespace {

class Preproc : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    start_front_end([] {
      std_version = 199901;
      trigraphs_allowed = false;
      variadic_macros_allowed = extended_variadic_macros_allowed = true;
      end_of_line_comments_allowed = true;
      display_error_number = true;
    });
    fixup_predefined_macros("Mon Nov 23 02:04:05 2026\n");
    char name[] = "/tmp/preproc_test_XXXXXX";
    directory = mkdtemp(name);
    error_limit = 10000;
  }
  static void TearDownTestSuite() {
    for (const std::string &name : files)
      unlink(name.c_str());
    rmdir(directory.c_str());
  }
  void SetUp() override { f_error = std::tmpfile(); }
  void TearDown() override { std::fclose(f_error); }

  static const std::string &file(const std::string &text, const std::string &name = "") {
    std::string path = directory + "/" + (name.empty() ? "f" + std::to_string(files.size()) : name);
    std::FILE *stream = std::fopen(path.c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fclose(stream);
    files.push_back(path);  // the front end keeps names by reference
    return files.back();
  }

  // The tokens of a file with this text, one blank between any two.
  std::string tokens(const std::string &text) {
    std::string result;
    fetch_pp_tokens = expand_macros = true;
    open_file_and_push_input_stack(file(text).c_str(), false, false, false, false, false, false,
                                   false, false, nullptr);
    while (get_token() != tok_end_of_source) {
      if (!result.empty()) result += ' ';
      result.append(start_of_curr_token, len_of_curr_token);
      last_position = pos_curr_token;
      if (watched == result.substr(result.size() - len_of_curr_token))
        watched_position = pos_curr_token;
    }
    return result;
  }

  static std::string text_of_messages() {
    std::string text;
    std::rewind(f_error);
    for (int c; (c = std::fgetc(f_error)) != EOF;)
      text += static_cast<char>(c);
    return text;
  }

  // The lines of the messages so far, each in front of a blank.
  static std::string lines() {
    std::string text = text_of_messages(), result;
    for (std::size_t i = text.find(", line "); i != std::string::npos;
         i = text.find(", line ", i)) {
      i += 7;
      result += text.substr(i, text.find(':', i) - i) + " ";
    }
    return result;
  }

  // The numbers of the messages so far, each in front of a blank.
  static std::string messages() {
    std::string text = text_of_messages(), numbers;
    for (std::size_t i = text.find('#'); i != std::string::npos; i = text.find('#', i + 1)) {
      std::size_t end = text.find_first_not_of("0123456789", i + 1);
      if (end == std::string::npos || end == i + 1) continue;
      if (text[end] == ':' || text.compare(end, 3, "-D:") == 0)
        numbers += text.substr(i + 1, end - i - 1) + " ";
    }
    return numbers;
  }

  static std::string directory;
  static std::deque<std::string> files;
  a_source_position last_position = {};
  std::string watched;
  a_source_position watched_position = {};
};
std::string Preproc::directory;
std::deque<std::string> Preproc::files;

// ---- Expansion ---------------------------------------------------------------------------------

TEST_F(Preproc, ANameIsInertInItsOwnExpansionOnly) {
  EXPECT_EQ(tokens("#define f1(x) x f1(x)\nf1(1)\n"), "1 f1 ( 1 )");
  EXPECT_EQ(tokens("#define s1 s1 s2\n#define s2 s1\ns1\n"), "s1 s1");
  EXPECT_EQ(tokens("#define f2(a) a*g2\n#define g2(a) f2(a)\nf2(2)(9)\n"), "2 * 9 * g2");
  EXPECT_EQ(tokens("#define n3(x) x\n#define a3(x) n3(b3)(x)\n#define b3(x) n3(x)\na3(42)\n"),
            "42");
  EXPECT_EQ(tokens("#define f4(x) x\n#define g4 f4\ng4(1) g4\n(2) g4 ; f4\n"), "1 2 f4 ; f4");
}

TEST_F(Preproc, StandardExamples) {
  EXPECT_EQ(tokens("#define x5 3\n#define f5(a) f5(x5 * (a))\n#undef x5\n#define x5 2\n"
                   "#define g5 f5\n#define z5 z5[0]\n#define h5 g5(~\n#define m5(a) a(w5)\n"
                   "#define w5 0,1\n#define t5(a) a\n"
                   "f5(y+1) + f5(f5(z5)) % t5(t5(g5)(0) + t5)(1);\n"
                   "g5(x5+(3,4)-w5) | h5 5) & m5\n(f5)^m5(m5);\n"),
            "f5 ( 2 * ( y + 1 ) ) + f5 ( 2 * ( f5 ( 2 * ( z5 [ 0 ] ) ) ) ) % f5 ( 2 * ( 0 ) ) + t5 "
            "( 1 ) ; f5 ( 2 * ( 2 + ( 3 , 4 ) - 0 , 1 ) ) | f5 ( 2 * ( ~ 5 ) ) & f5 ( 2 * ( 0 , 1 "
            ") ) ^ m5 ( 0 , 1 ) ;");
  EXPECT_EQ(tokens("#define hash6 # ## #\n#define str6(a) # a\n#define in6(a) str6(a)\n"
                   "#define join6(c, d) in6(c hash6 d)\njoin6(x, y)\n"),
            "\"x ## y\"");
  EXPECT_EQ(tokens("#define t7(x,y,z) x ## y ## z\nt7(1,2,3) t7(,4,5) t7(8,9,) t7(,,) t7(,,12)\n"),
            "123 45 89 12");
}

TEST_F(Preproc, StringizeEscapesOnlyInsideLiterals) {
  EXPECT_EQ(
      tokens("#define s8(x) #x\ns8(\"a\\n\") s8( a   b ) s8('\"') s8(\\n) s8(a/* */b) s8()\n"),
      R"x("\"a\\n\"" "a b" "'\"'" "\n" "a b" "")x");
}

TEST_F(Preproc, TokensDoNotRunTogether) {
  EXPECT_EQ(tokens("#define n9(x) -x\n#define e9\nn9(-1) -e9- n9(e9-3) +e9+\n"),
            "- - 1 - - - - 3 + +");
}

TEST_F(Preproc, VariadicMacros) {
  EXPECT_EQ(tokens("#define e10(a,...) a,##__VA_ARGS__\ne10(1) e10(1,2) e10(1,2,3)\n"),
            "1 1 , 2 1 , 2 , 3");
  EXPECT_EQ(tokens("#define v11(f, r...) f(r)\nv11(a) v11(a,b,c)\n"), "a ( ) a ( b , c )");
  EXPECT_EQ(tokens("#define p12(x) t12 x\n#define t12(a,b) a;b\np12((1,2))\n"), "1 ; 2");
}

TEST_F(Preproc, ArgumentsOverLinesAndDirectivesInside) {
  EXPECT_EQ(
      tokens("#define m13(a,b) <a|b>\nm13(1 /* c\n */,\n#define in13 5\nin13\n#ifdef in13\n6\n"
             "#else\n7\n#endif\n) e\n"),
      "< 1 | 5 6 > e");
  EXPECT_EQ(
      tokens("#define m14(x) [x]\nm14 /* not\n yet */ // here\n  (1)\nm14\n#define z14\n(2)\n"),
      "[ 1 ] m14 ( 2 )");
}

TEST_F(Preproc, ManyArgumentsAndDeepNesting) {
  std::string params = "p0";
  std::string args = "0";
  for (int i = 1; i < 60; ++i) {
    params += ",p" + std::to_string(i);
    args += "," + std::to_string(i);
  }
  EXPECT_EQ(tokens("#define m15(" + params + ") p59 p50 p0\nm15(" + args + ")\n"), "59 50 0");
  std::string nested = "1";
  for (int i = 0; i < 500; ++i)
    nested = "n16(" + nested + ")";
  EXPECT_EQ(tokens("#define n16(x) x\n" + nested + "\n"), "1");
}

TEST_F(Preproc, MagicMacros) {
  EXPECT_EQ(tokens("\n__LINE__ \\\n __LINE__\n#line 70 \"z.c\"\n__LINE__ __FILE__\n"),
            "2 2 70 \"z.c\"");
  EXPECT_EQ(tokens("#if __has_include(<no/such.h>) || !defined __FILE__ || defined(defined)\nbad\n"
                   "#endif\n__DATE__ __TIME__\n"),
            "\"Nov 23 2026\" \"02:04:05\"");
}

// ---- Conditions --------------------------------------------------------------------------------

TEST_F(Preproc, IfExpressions) {
  const char *const truths[] = {"-1 > 0u",
                                "(1 ? 2 : 3) == 2",
                                "0x10 >> 2 == 4 && 010 == 8",
                                "1 || 1/0",
                                "!(0 && 1%0)",
                                "-1 / 2 == 0 && -7 % 3 == -1",
                                "(0 ? 1/0 : 1)",
                                "undefined17 == 0",
                                "'a' == 97 && '\\n' == 10",
                                "18446744073709551615u == ~0u",
                                "-9223372036854775807 - 1 < 0",
                                "1 ? 1 : 0 ? 0 : 0",
                                "(-1 >> 1) == -1",
                                "(2 , 1)"};
  for (const char *truth : truths)
    EXPECT_EQ(tokens(std::string("#if ") + truth + "\nyes\n#endif\n"), "yes") << truth;
  EXPECT_EQ(tokens("#define long28 +4\n#define int28 +2\n#define type28 long28 int28\n"
                   "#if type28 == 6 && (type28) * 2 == 12 && !type28 == 2\nyes\n#endif\n"),
            "yes");
  EXPECT_EQ(messages().find("2 "), std::string::npos);
}

TEST_F(Preproc, FaultyIfExpressionsCountAsFalse) {
  for (const char *fault : {"", "1 +", "1/0", "(1", "1 ? 2", "1 1", "=", "\"s\""})
    EXPECT_EQ(tokens(std::string("#if ") + fault + "\nbad\n#else\ngood\n#endif\n"),
              std::string(fault) == "1 1" ? "bad" : "good")
        << fault;
  EXPECT_GE(total_errors, 7u);
}

TEST_F(Preproc, SkippedGroupsAreOnlyLookedThrough) {
  EXPECT_EQ(tokens("#if 0\nit's \"open\nx /* #endif\n*/ #endif\n// #else \\\n#else\n#if 1\n#else\n"
                   "#endif\nx \\\n#endif\n/* c */ # /* d */ elif 1\nyes\n#elif 1\nno\n#else\nno\n"
                   "#endif\nend\n"),
            "yes end");
  EXPECT_EQ(messages(), "");
}

TEST_F(Preproc, FaultsOfConditionals) {
  tokens(
      "#else\n#endif\n#elif 1\n#if 1\n#else\n#else\n#endif\n#if 0\n#else\n#else\n#endif\n#ifdef\n"
      "#endif junk\n#if 1\n");
  EXPECT_EQ(messages(), "37 37 37 39 39 41 14 38 ");
}

// ---- Definitions -------------------------------------------------------------------------------

TEST_F(Preproc, FaultsOfDefinitions) {
  tokens(
      "#define\n#define 3\n#define g18(a,a) a\n#define h18(a b\n#define i18(a) #b\n"
      "#define j18 ## a\n#define k18 a ##\n#undef\n#define __VA_ARGS__\n#bogus\n");
  EXPECT_EQ(messages(), "41 41 50 18 53 51 52 41 1023 11 ");
}

TEST_F(Preproc, Redefinitions) {
  tokens(
      "#define r19 a  b\n#define r19 a /* */ b\n#define r19 ab\n#define f19(x) x\n"
      "#define f19(y) y\n#undef r19\n#define r19 c\n");
  EXPECT_EQ(messages(), "48 48 ");
}

TEST_F(Preproc, FaultsOfInvocations) {
  EXPECT_EQ(tokens("#define m20(a,b) a b\n m20(1) m20(1,2,3) m20(1\n"), "1 1 2");
  EXPECT_EQ(messages(), "55 56 18 276 ");
}

// ---- Lines -------------------------------------------------------------------------------------

TEST_F(Preproc, SplicesAndEnds) {
  EXPECT_EQ(tokens("ab\\\ncd e\\\r\nf\r\n/* x\n\n y */ g\n"), "abcd ef g");
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(tokens("a"), "a");
  EXPECT_EQ(tokens("b\\"), "b");
  EXPECT_EQ(tokens("c /* open\n"), "c");
  EXPECT_EQ(messages(), "1 2 6 ");
}

TEST_F(Preproc, Trigraphs) {
  trigraphs_allowed = true;
  EXPECT_EQ(tokens("?\?=define t21 ?\?( ?\?!?\?' ?\?)\nt21 a?\?/\nb ?\?x\n"), "[ | ^ ] ab ? ? x");
  trigraphs_allowed = false;
}

TEST_F(Preproc, PositionsCountPhysicalLinesAndCharacters) {
  watched = "here";
  tokens("x \\\n  here\n");
  std::uint32_t first = watched_position.seq;
  EXPECT_EQ(watched_position.column, 3);
  tokens("\n\xC3\xA9 \"\xC3\xA9\" here\n");
  EXPECT_EQ(watched_position.seq, first + 2);
  EXPECT_EQ(watched_position.column, 7);
  watched = "22";
  tokens("#define m22(x) x\n  m22(\n\n 22)\n");
  EXPECT_EQ(watched_position.column, 3);
}

TEST_F(Preproc, Utf16IsReadAsUtf8) {
  EXPECT_EQ(tokens(std::string("\xFF\xFE"
                               "a\0\xE9\0 \0\x3D\xD8\x0A\xDE\n\0",
                               14)),
            "a\xC3\xA9 \xF0\x9F\x98\x8A");
}

// ---- Included files ----------------------------------------------------------------------------

TEST_F(Preproc, GuardedFilesAreReadOnce) {
  file("/* c */\n#ifndef G23\n#define G23\nguarded\n#endif\n// end\n", "g23.h");
  file("int\n#ifndef G24\n#define G24\n#endif\n", "g24.h");
  file("#pragma once\nonce\n", "o25.h");
  std::string text;
  for (const char *name : {"g23.h", "g23.h", "g24.h", "g24.h", "o25.h", "o25.h"})
    text += "#include \"" + directory + "/" + name + "\"\n";
  std::uint32_t before = seq_number_last_read;
  EXPECT_EQ(tokens(text), "guarded int int once");
  EXPECT_EQ(seq_number_last_read - before, 6u + 6 + 4 + 4 + 2);
}

TEST_F(Preproc, DeepIncludesGoOnWhereTheyWere) {
  for (int i = 0; i < 40; ++i)
    file("a" + std::to_string(i) +
             (i < 39 ? "\n#include \"" + directory + "/d" + std::to_string(i + 1) + ".h\"\n"
                     : "\n") +
             "b\n",
         "d" + std::to_string(i) + ".h");
  std::string result = tokens("#define H26 <" + directory + "/d38.h>\n#include H26\nend\n");
  EXPECT_EQ(result, "a38 a39 b b end");
}

// ---- Bytes of files
// ------------------------------------------------------------------------------

TEST_F(Preproc, AFileMayEndAnywhere) {
  EXPECT_EQ(tokens("a\nb \\"), "a b");
  EXPECT_EQ(tokens("a \\\nb \\\n"), "a b");
  EXPECT_EQ(tokens("\n\\"), "");
  EXPECT_EQ(tokens("\na /* open\n\n"), "a");
  EXPECT_EQ(tokens("#define e30"), "");
  EXPECT_EQ(tokens("e30\n#if 1\na // open"), "a");
  EXPECT_EQ(messages(), "2 2 2 6 1 1 38 ");
  EXPECT_EQ(lines(), "2 2 2 2 1 3 2 ");
  EXPECT_EQ(tokens(""), "");
  EXPECT_EQ(tokens("\xEF\xBB\xBF"), "");
  EXPECT_EQ(tokens("\xFF\xFE"), "");
  EXPECT_EQ(tokens("\xEF\xBB\xBF#define e31 x\ne31\n"), "x");
}

TEST_F(Preproc, BytesThatAreNoText) {
  null_chars_allowed_in_source = true;
  std::string null(1, '\0');
  EXPECT_EQ(tokens("a" + null + "b \"x" + null + "\" // " + null + "\n/* " + null + " */ c\n"),
            "a b \"x" + null + "\x06\" c");
  null_chars_allowed_in_source = false;
  EXPECT_EQ(tokens("a\fb\vc\rd\n \f # \v define e32 \t 1\ne32\n"), "a b c d 1");
  // What is only copied is not judged.
  EXPECT_EQ(tokens("\"\xFF\" 'it\n#if 0\n\xC3\x28 it's\n#endif\n// \xFE\n"), "\"\xFF\" 'it");
}

// ---- Depth
// ---------------------------------------------------------------------------------------

std::string repeated(const char *text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i)
    result += text;
  return result;
}

TEST_F(Preproc, DepthIsBoundedByOneMessage) {
  EXPECT_EQ(
      tokens("#define d33(x) x\n" + repeated("d33(", 1500) + "1" + repeated(")", 1500) + "\n"),
      "1");
  EXPECT_EQ(tokens(repeated("#if 1\n", 5000) + "a\n" + repeated("#endif\n", 5000)), "a");
  EXPECT_EQ(tokens(repeated("#if 0\n", 5000) + "a\n" + repeated("#endif\n", 5000)), "");
  EXPECT_EQ(messages(), "");
  tokens(repeated("d33(", 3000) + "1" + repeated(")", 3000) + "\n");
  EXPECT_EQ(messages(), "229 ");
  tokens("#if " + repeated("(", 20000) + "1" + repeated(")", 20000) + "\n#endif\n");
  tokens("#if " + repeated("- ", 20000) + "1\n#endif\n");
  EXPECT_EQ(messages(), "229 144 144 ");
}

TEST_F(Preproc, OldRecursionComesToAnEnd) {
  pcc_preprocessing_mode = true;
  tokens("#define o34(a) o34(a a)\no34(1)\n");
  tokens("#define o35(a) o35(a) o35(a)\no35(1)\n");
  EXPECT_EQ(messages(), "229 229 ");
  EXPECT_EQ(tokens("#define o36(a) \"a is a\" o/**/a\no36(x)\n"), "\"x is x\" ox");
  pcc_preprocessing_mode = false;
}

// ---- Pastes
// --------------------------------------------------------------------------------------

TEST_F(Preproc, APasteMakesOneToken) {
  check_concatenations = true;
  EXPECT_EQ(
      tokens("#define c37(a, b) a ## b\n"
             "#define c38(a, b, c) a ## b ## c\n"
             "#define a37 done\n"
             "c37(a, 37), c37(x, 1)(2) c37(0x, 1) c37(1, u) c38(1e, +, 5) c37(<, <=) c37(L, 'a') "
             "c37(-, >) c37(, a) c37(a, ) c37(,) c37(a 1, 2 b) c38(a, , 37) c37(., 5)\n"),
      "done , x1 ( 2 ) 0x1 1u 1e+5 <<= L'a' -> a a a 12 b done .5");
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(tokens("c37(+, 1) c37(a, 1.5) c38(+, +, +) c37(x, ()) c37(\"a\", \"b\") c37(1, +=)\n"),
            "+ 1 a1 .5 ++ + x ( ) \"a\" \"b\" 1 +=");
  EXPECT_EQ(messages(), "1934 1934 1934 1934 1934 1934 ");
  check_concatenations = false;
}

}  // namespace
