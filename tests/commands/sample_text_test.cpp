#include "commands/sample_text.h"

#include <limits>

#include <gtest/gtest.h>

#include "fakes/samples.h"

namespace quibbly {
namespace {

constexpr MacMood mood{.score = 22.55, .label = MacMood::Label::concerned};

TEST(SampleTextTest, aligns_every_field_with_its_unit) {
  SystemSnapshot sample = fakes::quietSample();
  sample.cpuUsage = 0.123;
  sample.swapUsedBytes = 1'500'000'000;
  sample.uptimeSeconds = 9.25 * 86'400;
  sample.frontmostAppName = "Evil\x1b[2J\nÑame\u009b\u202e’";
  sample.frontmostBundleIdentifier = "org.mozilla.firefox";
  EXPECT_EQ(sampleText(sample, mood), R"(Captured at            1970-01-01T00:00:00Z
Processor load         12.3 %
Memory in use          50.0 %
Swap in use            1.5 GB
Disk free              500.0 GB
Disk size              1000.0 GB
Battery                80 %
On external power      no
Uptime                 9 days 6 h
Applications           8
Browsers               0
Electron applications  0
In front               Evil [2J Ñame  ’
In front, identifier   org.mozilla.firefox
Thermal state          nominal
Low Power Mode         no
Mood                   Concerned
Score                  22.6 of 100
)");
}

TEST(SampleTextTest, shows_a_dash_for_what_is_absent_and_survives_figures_gone_mad) {
  SystemSnapshot sample;
  sample.uptimeSeconds = std::numeric_limits<double>::infinity();
  sample.cpuUsage = 1e300;
  const std::string text = sampleText(sample, mood);
  for (const char* row : {"Swap in use            —\n", "Disk size              —\n", "Battery                —\n",
                          "On external power      —\n", "In front               —\n", "In front, identifier   —\n"}) {
    EXPECT_NE(text.find(row), std::string::npos) << row << text;
  }
}

}  // namespace
}  // namespace quibbly
