#include "commands/command_line.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quibbly {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

using Words = std::vector<const char*>;

TEST(CommandLineTest, understands_its_commands) {
  using enum CommandLine::Command;
  EXPECT_EQ(parseCommandLine(Words{"roast"}), (CommandLine{.command = roast, .json = false, .text = {}}));
  EXPECT_EQ(parseCommandLine(Words{"roast", "--json"}), (CommandLine{.command = roast, .json = true, .text = {}}));
  EXPECT_EQ(parseCommandLine(Words{"sample", "--json"}), (CommandLine{.command = sample, .json = true, .text = {}}));
  EXPECT_EQ(parseCommandLine(Words{}), (CommandLine{.command = run}));
  EXPECT_EQ(parseCommandLine(Words{"--terminal", "quibbly://roast", "Quibbly:x"}),
            (CommandLine{.command = run, .terminal = true, .urls = {"quibbly://roast", "Quibbly:x"}}));
}

TEST(CommandLineTest, shows_its_version_and_its_help) {
  EXPECT_EQ(parseCommandLine(Words{"--version"})->text, "quibbly " QUIBBLY_VERSION "\n");
  EXPECT_THAT(parseCommandLine(Words{"--help"})->text, AllOf(HasSubstr("roast"), HasSubstr("sample")));
  EXPECT_THAT(parseCommandLine(Words{"sample", "--help"})->text, HasSubstr("--json"));
}

TEST(CommandLineTest, bad_words_get_one_line_that_names_them) {
  const std::pair<Words, const char*> cases[] = {{{"rost"}, "rost"},
                                                 {{"--jsn"}, "--jsn"},
                                                 {{"roast", "twice"}, "twice"},
                                                 {{"sample", "-x"}, "-x"},
                                                 {{"roast", "sample"}, "sample"},
                                                 {{"roast", "--json=maybe"}, "json"},
                                                 {{"bad\n\x1b[31mword"}, "word"},
                                                 {{"https://roast"}, "https://roast"},
                                                 {{"quibbly://roast", "roast"}, "URLs"},
                                                 {{""}, "--help"}};
  for (const auto& [words, named] : cases) {
    const auto parsed = parseCommandLine(words);
    ASSERT_FALSE(parsed.has_value()) << named;
    EXPECT_THAT(parsed.error(), AllOf(HasSubstr(named), Not(HasSubstr("\n")), Not(HasSubstr("\x1b")))) << named;
  }
}

}  // namespace
}  // namespace quibbly
