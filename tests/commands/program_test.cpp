// The built program, called as a user calls it.

#include <algorithm>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "fakes/file_tree.h"

namespace quibbly {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Outcome {
  int status;
  std::string output;
  std::string complaint;
};

class Program : public ::testing::Test {
 protected:
  /// Runs a shell command in which `quibbly` is the program. Standard output goes to a file unless the command redirects it.
  Outcome sh(const std::string& command) {
    const std::string script = "cd '" + tree_.root().string() + "'" +
                               " && export LC_ALL=C.UTF-8 XDG_DATA_HOME=$PWD/data; "
                               "quibbly() { '" QUIBBLY_PROGRAM "' \"$@\"; }; { " +
                               command + "; } >out 2>err";
    const int status = std::system(script.c_str());
    return {.status = WEXITSTATUS(status),
            .output = fakes::contentOf(tree_.root() / "out"),
            .complaint = fakes::contentOf(tree_.root() / "err")};
  }

 private:
  fakes::FileTree tree_;
};

long lines(const std::string& text) { return std::ranges::count(text, '\n'); }

TEST_F(Program, does_not_repeat_itself_and_roasts_on_when_it_cannot_remember) {
  std::vector<std::string> said;
  for (const char* command :
       {"quibbly roast", "quibbly roast", "export XDG_DATA_HOME=/dev/null/nowhere; quibbly roast"}) {
    const Outcome outcome = sh(command);
    EXPECT_EQ(outcome.status, 0) << command;
    EXPECT_EQ(lines(outcome.output), 1) << outcome.output;
    EXPECT_GT(outcome.output.size(), 10U);
    EXPECT_EQ(outcome.complaint, "") << command;
    said.push_back(outcome.output);
  }
  EXPECT_NE(said[0], said[1]);
}

TEST_F(Program, prints_a_roast_and_a_sample_as_json) {
  const auto roast = nlohmann::json::parse(sh("quibbly roast --json").output);
  EXPECT_TRUE(roast.contains("templateId") && roast["mood"].contains("label")) << roast;
  const auto sample = nlohmann::json::parse(sh("quibbly sample --json").output);
  EXPECT_GT(sample.at("memoryUtilizationEstimate").get<double>(), 0.0);
  EXPECT_GT(sample.at("diskTotalBytes").get<std::uint64_t>(), 0u);
  EXPECT_GT(sample.at("uptimeSeconds").get<double>(), 0.0);
}

TEST_F(Program, says_in_one_line_what_is_wrong_with_its_words) {
  for (const char* words : {"rost", "quibbly://roast roast"}) {
    const Outcome outcome = sh(std::string("quibbly ") + words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_EQ(outcome.output, "") << words;
    EXPECT_THAT(outcome.complaint, StartsWith("quibbly: ")) << words;
    EXPECT_EQ(lines(outcome.complaint), 1) << words;
  }
}

TEST_F(Program, says_in_one_line_that_nobody_can_read_its_output) {
  const std::pair<const char*, const char*> cases[] = {
      {"quibbly roast >/dev/full", "No space left"},
      {"quibbly sample >&-", "Bad file descriptor"},
      {"quibbly --version >&- <&-", "Bad file descriptor"},
      {"status=$({ { quibbly roast; echo $? >&3; } | :; } 3>&1); exit $status", "Broken pipe"},
  };
  for (const auto& [command, reason] : cases) {
    const Outcome outcome = sh(command);
    EXPECT_EQ(outcome.status, 1) << command;
    EXPECT_THAT(outcome.complaint, HasSubstr(reason)) << command;
    EXPECT_EQ(lines(outcome.complaint), 1) << outcome.complaint;
  }
}

}  // namespace
}  // namespace quibbly
