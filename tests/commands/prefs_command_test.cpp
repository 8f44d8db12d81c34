#include "commands/prefs_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/command_line.h"
#include "fakes/memory_preference_store.h"

namespace quibbly {
namespace {

using ::testing::HasSubstr;

class Prefs : public ::testing::Test {
 protected:
  /// The command as typed after `quibbly prefs`.
  std::expected<std::string, Complaint> prefs(std::vector<const char*> words) {
    words.insert(words.begin(), "prefs");
    const auto request = parseCommandLine(words);
    if (!request) return std::unexpected(Complaint{.status = Complaint::badCommandLine, .line = request.error()});
    return PrefsCommand(store_).run(request->prefs);
  }

  fakes::MemoryPreferenceStore store_;
};

TEST_F(Prefs, are_listed_by_key_with_their_types_and_shown_one_by_one) {
  EXPECT_EQ(prefs({}), "");
  ASSERT_FALSE(store_.set("longerKey", std::string("a\nb")));
  ASSERT_FALSE(store_.set("key", 0.5));
  ASSERT_FALSE(store_.set("data", Bytes(3)));
  EXPECT_EQ(prefs({}), "data       data    3 bytes\nkey        double  0.5\nlongerKey  string  a b\n");
  EXPECT_EQ(prefs({"key"}), "0.5\n");
}

TEST_F(Prefs, are_set_to_the_type_named_or_known_or_had_or_looked_like) {
  const std::tuple<std::vector<const char*>, const char*, PreferenceValue> cases[] = {
      {{"int", "5"}, "int", std::int64_t{5}},
      {{"double", "0.5"}, "double", 0.5},
      {{"text", "5 apples"}, "text", std::string("5 apples")},
      {{"negative", "--", "-5"}, "negative", std::int64_t{-5}},
      {{"int", "6"}, "int", std::int64_t{6}},
      {{"double", "6"}, "double", 6.0},
      {{"text", "6"}, "text", std::string("6")},
      {{"int", "7", "--string"}, "int", std::string("7")},
      {{"flag", "yes", "--bool"}, "flag", std::int64_t{1}},
      {{"flag", "false", "--bool"}, "flag", std::int64_t{0}},
      {{"new", "true"}, "new", std::int64_t{1}},
      {{"pauseRoastsUntil", "1900000000"}, "pauseRoastsUntil", 1900000000.0},
      {{"hideFromDock", "yes"}, "hideFromDock", std::int64_t{1}},
      {{"name", "nan"}, "name", std::string("nan")},
  };
  for (const auto& [words, key, value] : cases) {
    EXPECT_EQ(prefs(words), "") << key;
    EXPECT_EQ(store_.value(key), value) << key;
  }
}

TEST_F(Prefs, a_wrong_value_or_key_is_named_and_changes_nothing) {
  ASSERT_FALSE(store_.set("int", std::int64_t{5}));
  ASSERT_FALSE(store_.set("data", Bytes(3)));
  const std::pair<std::vector<const char*>, const char*> cases[] = {
      {{"int", "many"}, "'many' will not do for 'int': it takes a whole number, such as 3"},
      {{"int", "1.5", "--int"}, "whole number"},
      {{"randomRoastIntervalMinutes", "5.0"}, "whole number"},
      {{"pauseRoastsUntil", "inf"}, "it takes a number"},
      {{"data", "x"}, "'data' holds data"},
      {{"int", "9223372036854775808", "--int"}, "whole number"},
      {{"int", "", "--double"}, "a number, such as 0.5"},
      {{"int", "maybe", "--bool"}, "true or false"},
      {{"nope"}, "'nope'"},
      {{"--remove", "nope"}, "'nope'"},
      {{"int", "1", "--int", "--bool"}, "--int"},
      {{"int", "--int"}, "VALUE"},
      {{"--remove", "int", "int"}, "KEY"},
  };
  for (const auto& [words, named] : cases) {
    const auto outcome = prefs(words);
    ASSERT_FALSE(outcome) << named;
    EXPECT_EQ(outcome.error().status, Complaint::badCommandLine) << named;
    EXPECT_THAT(outcome.error().line, HasSubstr(named));
  }
  EXPECT_EQ(store_.get<std::int64_t>("int"), 5);
  EXPECT_EQ(store_.all()->size(), 2U);
}

TEST_F(Prefs, are_removed_and_a_store_that_does_not_open_is_said) {
  ASSERT_FALSE(store_.set("key", 0.5));
  EXPECT_EQ(prefs({"--remove", "key"}), "");
  EXPECT_FALSE(store_.contains("key"));
  store_.opens = false;
  EXPECT_EQ(prefs({}).error().status, Complaint::failed);
}

}  // namespace
}  // namespace quibbly
