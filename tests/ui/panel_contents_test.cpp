#include "ui/panel_contents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/samples.h"
#include "ui/menu_bar_label.h"

namespace quibbly {
namespace {

using ::testing::ElementsAre;
using Row = PanelContents::Row;
using FooterLine = PanelContents::FooterLine;
using Role = FooterLine::Role;

TEST(Panel, says_little_before_the_first_sample) {
  const PanelContents contents = panelContents({.dailyRoastLimit = 3});
  EXPECT_EQ(contents, (PanelContents{.heading = "Mac Mood: Proud",
                                     .rows = std::nullopt,
                                     .roast = std::nullopt,
                                     .footer = {{Role::budget, "Notify budget: 0/3 today"}},
                                     .status = std::nullopt}));
}

TEST(Panel, says_everything_in_its_order) {
  PanelState state{.mood = {.score = 80, .label = MacMood::Label::judgingYou},
                   .latestSnapshot = fakes::quietSample(),
                   .lastRoast = LastRoast{.text = "Your RAM."},
                   .pauseStatusText = "Paused until 17 Nov 2026, 00:00",
                   .randomRoastInterval = RandomRoastInterval::fifteenMinutes,
                   .roastsSentToday = 1,
                   .dailyRoastLimit = 3,
                   .statusMessage = "Copied."};
  state.latestSnapshot->cpuUsage = 0.425;
  const PanelContents contents = panelContents(state);
  EXPECT_EQ(contents.heading, "Mac Mood: Judging You");
  EXPECT_THAT(contents.rows.value(),
              ElementsAre(Row{"CPU estimate", "~43%"}, Row{"RAM estimate", "~50%"}, Row{"Battery", "80%"},
                          Row{"Uptime", "1 days"}, Row{"Apps", "8"}, Row{"Thermal", "nominal"}));
  EXPECT_EQ(contents.roast, "Your RAM.");
  EXPECT_THAT(contents.footer, ElementsAre(FooterLine{Role::pause, "Paused until 17 Nov 2026, 00:00"},
                                           FooterLine{Role::schedule, "Random: Every 15 minutes"},
                                           FooterLine{Role::budget, "Notify budget: 1/3 today"}));
  EXPECT_EQ(contents.status, "Copied.");
  state.latestSnapshot->batteryLevel.reset();
  EXPECT_EQ(panelContents(state).rows->size(), 5U);
}

TEST(Panel, cuts_off_times) {
  for (const auto& [seconds, text] :
       {std::pair{1800.0, "0 hours"}, {86'399.0, "23 hours"}, {86'400.0, "1 days"}, {172'799.0, "1 days"}}) {
    EXPECT_EQ(uptimeString(seconds), text);
  }
}

TEST(Panel, the_icon_follows_the_heat_and_then_the_mood) {
  using enum MenuBarLabel::Symbol;
  using enum MacMood::Label;
  const struct {
    MacMood::Label label;
    std::optional<RoastThermalState> thermal;
    MenuBarLabel::Symbol symbol;
  } cases[] = {{proud, std::nullopt, flame},
               {proud, RoastThermalState::fair, flame},
               {proud, RoastThermalState::serious, flameFill},
               {judgingYou, RoastThermalState::critical, flameFill},
               {concerned, RoastThermalState::nominal, flameFill},
               {disappointed, std::nullopt, flameFill},
               {judgingYou, RoastThermalState::fair, exclamationmarkTriangleFill},
               {preparingComplaint, std::nullopt, exclamationmarkTriangleFill},
               {requestingNewOwner, std::nullopt, exclamationmarkTriangleFill}};
  for (const auto& [label, thermal, symbol] : cases) {
    EXPECT_EQ((MenuBarLabel{.mood = {.label = label}, .thermal = thermal}.symbol()), symbol) << displayText(label);
  }
  EXPECT_EQ((MenuBarLabel{.mood = {.label = judgingYou}, .thermal = {}}.accessibilityLabel()), "quibbly — Judging You");
}

}  // namespace
}  // namespace quibbly
