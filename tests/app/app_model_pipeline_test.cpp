#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Pipeline : public AppTest {
 protected:
  Pipeline() { home_.launchApp(); }
  void roastAndNotify() {
    model().roastMeNow(true, true);
    advance(10s);
  }
};

TEST_F(Pipeline, a_roast_is_shown_published_and_counted_before_it_is_announced) {
  model().roastMeNow(true, true);
  run();
  ASSERT_TRUE(model().lastRoast->has_value());
  const LastRoast roast = model().lastRoast->value();
  EXPECT_EQ(home_.group.store.lastRoast(), roast);
  EXPECT_EQ(home_.group.store.widgetSnapshot(), WidgetSnapshot::from(home_.machine.sample, *model().mood));
  EXPECT_THAT(home_.recentRoasts.history().texts, ElementsAre(roast.text));
  EXPECT_EQ(*model().roastsSentToday, 1);
  EXPECT_EQ(storedInteger(preference_keys::roastDayCount), 1);
  advance(reloads - 1ms);
  EXPECT_THAT(announced(), IsEmpty());
  EXPECT_EQ(status(), "no status");
  advance(1ms);
  ASSERT_THAT(announced(), ElementsAre(roast.text));
  EXPECT_EQ(home_.center.delivered[0].title, "Your Mac would like a word");
  EXPECT_EQ(home_.center.delivered[0].userInfo.at("category"), roast.category);
  EXPECT_EQ(status(), "Desktop toast + notification (1/3 today).");
  EXPECT_EQ(std::ranges::count(home_.widgetCenter.reloads, "all"), 7);
}

TEST_F(Pipeline, a_request_during_a_roast_leaves_no_trace) {
  model().roastMeNow(false, false);
  model().roastMeNow(true, true);
  advance(reloads - 1ms);
  model().handleOpenURL("quibbly://roast");
  advance(1ms);
  EXPECT_EQ(roastsMade(), 1U);
  EXPECT_EQ(status(), "Fresh roast ready.");
  EXPECT_EQ(*model().roastsSentToday, 0);
  model().roastMeNow(false, false);
  run();
  EXPECT_EQ(roastsMade(), 2U) << "the guard is released";
}

TEST_F(Pipeline, tells_what_became_of_the_notification_and_counts_it_in_any_case) {
  struct Case {
    NotificationSettings settings;
    std::optional<std::string> refusal;
    std::string status;
  };
  using enum AuthorizationStatus;
  const auto cases = std::to_array<Case>({
      {{denied, AlertSetting::enabled}, {}, "Desktop toast shown. System notifications denied."},
      {{authorized, AlertSetting::disabled},
       {},
       "Desktop toast shown. System Temporary banners may be suppressed — Permanent (Alerts) works more reliably."},
      {{authorized, AlertSetting::enabled}, "The server is out.", "The server is out."},
  });
  std::int64_t count = 0;
  for (const Case& c : cases) {
    home_.center.now = c.settings;
    home_.center.refusal = c.refusal;
    roastAndNotify();
    EXPECT_EQ(status(), c.status);
    EXPECT_EQ(*model().roastsSentToday, ++count);
    EXPECT_EQ(home_.screen.messages().size(), 1U);
  }
}

TEST_F(Pipeline, a_line_announced_before_is_a_duplicate_but_counted) {
  // The only line whose family fits leaves the engine no choice once its history is gone.
  home_.machine.sample.thermalState = RoastThermalState::critical;
  roastAndNotify();
  RecentRoastHistory history;
  home_.recentRoasts.remember(history);
  roastAndNotify();
  EXPECT_EQ(status(), "Roast updated (skipped duplicate system notification).");
  EXPECT_EQ(*model().roastsSentToday, 2);
}

TEST_F(Pipeline, keeps_the_limit_of_the_day) {
  store(preference_keys::roastDayCount, std::int64_t{2});
  store(preference_keys::roastDayStamp, std::string("2026-11-17"));
  roastAndNotify();
  EXPECT_EQ(status(), "Desktop toast + notification (3/3 today).");
  roastAndNotify();
  EXPECT_EQ(status(), "Daily roast limit reached (3/3).");
  store(preference_keys::dailyRoastLimit, std::int64_t{-1});
  roastAndNotify();
  EXPECT_EQ(status(), "Daily roast limit is 0 — enable a limit above 0 for notifications.");
  model().pauseRoasts(3600);
  model().statusMessage = std::nullopt;
  roastAndNotify();
  EXPECT_EQ(status(), "Paused until 17 Nov 2026, 11:00");
  EXPECT_EQ(roastsMade(), 1U);
  model().roastMeNow(false, false);
  advance(10s);
  EXPECT_EQ(status(), "Fresh roast ready.");
  EXPECT_EQ(roastsMade(), 2U);
}

TEST_F(Pipeline, a_url_roasts_within_the_limits_and_silently_beyond_them) {
  const auto open = [&](const char* url) {
    home_.center.delivered.clear();
    model().handleOpenURL(url);
    run();
    const std::string first = status();
    advance(10s);
    return first;
  };
  open("quibbly://settings");
  EXPECT_FALSE(*model().isMonitoring);
  EXPECT_EQ(roastsMade(), 0U);

  // What the start-up refresh does is out of the way.
  home_.group.store.publish(LastRoast{.text = "Published."}, {});
  open("quibbly://roast");
  EXPECT_TRUE(*model().isMonitoring);
  EXPECT_EQ(status(), "Desktop toast + notification (1/3 today).");
  EXPECT_EQ(announced().size(), 1U);

  model().pauseRoasts(3600);
  EXPECT_EQ(open("quibbly://roast"), "Paused until 17 Nov 2026, 11:00");
  EXPECT_EQ(status(), "Fresh roast ready.");
  EXPECT_THAT(announced(), IsEmpty());
  model().resumeRoasts();

  model().setDailyRoastLimit(0);
  open("quibbly://roast");
  EXPECT_EQ(status(), "Roast updated (daily notify limit reached or limit is 0).");
  EXPECT_THAT(announced(), IsEmpty());
  EXPECT_EQ(*model().roastsSentToday, 1);
  EXPECT_EQ(roastsMade(), 3U);
}

TEST_F(Pipeline, copies_the_roast_when_there_is_one) {
  home_.desktop.pasted = "what was there";
  model().copyLastRoast();
  EXPECT_EQ(home_.desktop.pasted, "what was there");
  EXPECT_EQ(status(), "no status");
  model().lastRoast = LastRoast{.text = "Your RAM…"};
  model().copyLastRoast();
  EXPECT_EQ(home_.desktop.pasted, "Your RAM…");
  EXPECT_EQ(status(), "Copied.");
}

TEST_F(Pipeline, a_history_that_cannot_be_read_or_written_stops_nothing) {
  std::filesystem::create_directories(tree_.root() / "group/recentRoasts.json/in the way");
  roastAndNotify();
  EXPECT_EQ(status(), "Desktop toast + notification (1/3 today).");
  EXPECT_EQ(home_.group.store.lastRoast(), *model().lastRoast);
}

}  // namespace
}  // namespace quibbly
