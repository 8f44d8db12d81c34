#include "ui/dashboard_contents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/samples.h"

namespace quibbly {
namespace {

using ::testing::ElementsAre;
using Row = DashboardContents::Row;

std::string minutesOfUtc(std::chrono::system_clock::time_point moment) {
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(moment.time_since_epoch()).count() % 1440;
  return std::to_string(minutes / 60) + ":" + std::to_string(minutes % 60);
}

TEST(Dashboard, says_little_before_the_first_sample) {
  const DashboardContents contents = dashboardContents({.mood = {.score = 10}}, minutesOfUtc);
  EXPECT_THAT(contents.today, ElementsAre(Row{"Mac Mood", "Proud"}, Row{"Score", "10"}));
  EXPECT_EQ(contents.roast, std::nullopt);
  EXPECT_EQ(contents.estimates, std::nullopt);
}

TEST(Dashboard, cuts_off_the_shares_that_the_panel_rounds) {
  PanelState state{.mood = {.score = 65.5, .label = MacMood::Label::judgingYou},
                   .latestSnapshot = fakes::quietSample(),
                   .lastRoast = LastRoast{.text = "Your RAM."}};
  state.latestSnapshot->cpuUsage = 0.429;
  state.latestSnapshot->capturedAt =
      std::chrono::sys_days{std::chrono::year{2026} / 11 / 17} + std::chrono::hours(14) + std::chrono::minutes(5);
  const DashboardContents contents = dashboardContents(state, minutesOfUtc);
  EXPECT_THAT(contents.today, ElementsAre(Row{"Mac Mood", "Judging You"}, Row{"Score", "66"}));
  EXPECT_EQ(contents.roast, "Your RAM.");
  EXPECT_THAT(contents.estimates.value(),
              ElementsAre(Row{"CPU", "~42%"}, Row{"RAM", "~50%"}, Row{"Battery", "80%"}, Row{"Apps", "8"},
                          Row{"Thermal", "nominal"}, Row{"Captured", "14:5"}));
  EXPECT_EQ(panelContents(state).rows->front().value, "~43%");
  state.latestSnapshot->batteryLevel.reset();
  EXPECT_EQ(dashboardContents(state, minutesOfUtc).estimates->size(), 5U);
}

}  // namespace
}  // namespace quibbly
