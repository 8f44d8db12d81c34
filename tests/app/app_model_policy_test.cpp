#include <limits>

#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class Policy : public AppTest {
 protected:
  std::string stamp() { return home_.preferences.get<std::string>(preference_keys::roastDayStamp).value_or(""); }
  void setLocalTime(std::chrono::system_clock::time_point time) {
    home_.group.clock.atZero = time - (home_.group.clock.now() - home_.group.clock.atZero);
  }
  static std::chrono::system_clock::time_point utc(int year, unsigned month, unsigned day, std::chrono::minutes time) {
    return std::chrono::sys_days{std::chrono::year{year} / static_cast<int>(month) / static_cast<int>(day)} + time;
  }
};

TEST_F(Policy, the_count_begins_anew_with_the_day_or_with_another_days_time_zone) {
  store(preference_keys::roastDayStamp, std::string("2026-11-16"));
  store(preference_keys::roastDayCount, std::int64_t{3});
  home_.launchApp();
  EXPECT_EQ(*model().roastsSentToday, 0);
  const auto countOne = [&] {
    model().roastMeNow(true, true);
    run();
    advance(reloads);
  };
  countOne();
  EXPECT_EQ(*model().roastsSentToday, 1);
  setLocalTime(utc(2026, 11, 18, 0min) - 1s);
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(*model().roastsSentToday, 1) << "the last second of the day";
  setLocalTime(utc(2026, 11, 18, 0min));
  EXPECT_EQ(*model().roastsSentToday, 1) << "nobody has looked yet";
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(*model().roastsSentToday, 0);
  EXPECT_EQ(stamp(), "2026-11-18");
  countOne();
  home_.zone.set("America/New_York");
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(*model().roastsSentToday, 0);
  EXPECT_EQ(stamp(), "2026-11-17");
}

TEST_F(Policy, a_clock_that_is_set_moves_the_day_and_the_pause_and_nothing_else) {
  home_.launchApp();
  model().start();
  model().randomRoastInterval = RandomRoastInterval::fiveMinutes;
  model().restartRandomRoastLoop();
  const struct {
    const char* what;
    std::chrono::hours set;
    bool isStillPaused;
  } cases[] = {{"back a day", -24h, true}, {"forward a year", 365 * 24h, false}, {"back a year", -365 * 24h, true}};
  for (const auto& c : cases) {
    model().resumeRoasts();
    model().setDailyRoastLimit(256);
    store(preference_keys::roastDayCount, std::int64_t{7});
    model().pauseRoasts(3600);
    home_.group.clock.atZero += c.set;
    model().reloadPolicyFromDefaults();
    EXPECT_EQ(*model().roastsSentToday, 0) << c.what;
    EXPECT_EQ(model().pauseStatusText().has_value(), c.isStillPaused) << c.what;
    model().resumeRoasts();
    advance(300s + reloads);
    EXPECT_EQ(*model().roastsSentToday, 1) << c.what << ": the schedule counts by another clock";
  }
}

TEST_F(Policy, the_stored_count_is_the_one_that_is_raised) {
  home_.launchApp();
  const struct {
    std::int64_t stored, raised;
  } cases[] = {{1, 2}, {-7, -6}, {std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::max()}};
  for (const auto& [stored, raised] : cases) {
    model().setDailyRoastLimit(256);
    store(preference_keys::roastDayCount, stored);
    leaveNotification("body " + std::to_string(stored));
    store(preference_keys::dailyRoastLimit, std::numeric_limits<std::int64_t>::max());
    AppModelBridge::processPendingRoastFromWidget();
    run();
    EXPECT_EQ(storedInteger(preference_keys::roastDayCount), raised);
    EXPECT_EQ(*model().roastsSentToday, raised);
  }
}

TEST_F(Policy, a_limit_is_clamped_when_it_is_set_and_taken_as_it_is_when_it_is_read) {
  home_.launchApp();
  for (const auto& [set, kept] : {std::pair{-5, 0}, {0, 0}, {256, 256}, {1000, 256}}) {
    model().setDailyRoastLimit(set);
    EXPECT_EQ(storedInteger(preference_keys::dailyRoastLimit), kept);
    EXPECT_EQ(*model().dailyRoastLimit, kept);
  }
  EXPECT_EQ(status(), "no status");
  store(preference_keys::dailyRoastLimit, std::int64_t{1000});
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(*model().dailyRoastLimit, 1000);
  store(preference_keys::dailyRoastLimit, std::string("many"));
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(*model().dailyRoastLimit, 0);
}

TEST_F(Policy, pauses_for_a_time_and_says_until_when) {
  home_.launchApp();
  setLocalTime(utc(2026, 11, 17, 10h + 15min));
  model().pauseRoasts(3600);
  EXPECT_EQ(status(), "Paused until 17 Nov 2026, 11:15");
  advance(1h - 1ms);
  EXPECT_EQ(model().pauseStatusText(), "Paused until 17 Nov 2026, 11:15");
  advance(1ms);
  EXPECT_EQ(model().pauseStatusText(), std::nullopt);
  model().pauseRoasts(-1);
  EXPECT_EQ(status(), "no status");
  model().resumeRoasts();
  EXPECT_EQ(status(), "Roasts resumed.");
  EXPECT_EQ(home_.preferences.get<double>(preference_keys::pauseRoastsUntil), 0.0);
  store(preference_keys::pauseRoastsUntil, 1e300);
  model().roastMeNow(true, true);
  run();
  EXPECT_EQ(status(), "Roasts paused.") << "until no date that there is";
}

TEST_F(Policy, tomorrow_begins_at_midnight_of_the_day_that_is_24_hours_away) {
  home_.launchApp();
  struct Case {
    const char* zone;
    std::chrono::system_clock::time_point now;
    std::string until;
  };
  const auto cases = std::to_array<Case>({
      {"Europe/London", utc(2026, 11, 17, 23h + 50min), "Paused until 18 Nov 2026, 00:00"},
      {"Europe/London", utc(2026, 11, 18, 10min), "Paused until 19 Nov 2026, 00:00"},
      // The day before the clock is set forward ends 23 hours after 00:30: the day after tomorrow.
      {"Europe/London", utc(2026, 3, 28, 23h + 30min), "Paused until 30 Mar 2026, 00:00"},
      // A day of 25 hours: 24 hours after its 00:30 it is still today.
      {"Europe/London", utc(2026, 10, 24, 23h + 30min), "no status"},
      // Where the clock is set forward at midnight, the day begins at one.
      {"America/Sao_Paulo", utc(2018, 11, 3, 15h), "Paused until 4 Nov 2018, 01:00"},
      {"America/Havana", utc(2018, 11, 3, 15h), "Paused until 4 Nov 2018, 00:00"},
  });
  for (const Case& c : cases) {
    home_.zone.set(c.zone);
    setLocalTime(c.now);
    model().statusMessage = std::nullopt;
    model().pauseRoastsUntilTomorrow();
    EXPECT_EQ(status(), c.until) << c.zone;
  }
}

TEST_F(Policy, holds_without_a_place_to_store_it_and_is_stored_once_there_is_one) {
  home_.preferences.takes = false;
  home_.launchApp();
  model().setDailyRoastLimit(1);
  model().roastMeNow(true, true);
  advance(reloads);
  model().pauseRoasts(3600);
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(model().dailyRoastLimit, 1);
  EXPECT_EQ(model().roastsSentToday, 1);
  EXPECT_TRUE(model().pauseStatusText());
  home_.preferences.takes = true;
  model().resumeRoasts();
  EXPECT_EQ(storedInteger(preference_keys::dailyRoastLimit), 1);
  EXPECT_EQ(storedInteger(preference_keys::roastDayCount), 1);
}

TEST_F(Policy, what_is_stored_outlasts_a_store_that_cannot_be_opened_for_a_while) {
  store(preference_keys::dailyRoastLimit, std::int64_t{10});
  store(preference_keys::roastDayCount, std::int64_t{7});
  store(preference_keys::roastDayStamp, std::string("2026-11-17"));
  home_.preferences.opens = false;
  home_.launchApp();
  EXPECT_EQ(model().dailyRoastLimit, 3) << "what holds when nothing is known";
  home_.preferences.opens = true;
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(model().dailyRoastLimit, 10);
  EXPECT_EQ(model().roastsSentToday, 7);
  home_.preferences.opens = false;
  model().reloadPolicyFromDefaults();
  EXPECT_EQ(model().dailyRoastLimit, 10);
  model().roastMeNow(true, true);
  advance(reloads);
  EXPECT_EQ(model().roastsSentToday, 8);
  home_.preferences.opens = true;
  model().resumeRoasts();
  EXPECT_EQ(storedInteger(preference_keys::dailyRoastLimit), 10);
  EXPECT_EQ(storedInteger(preference_keys::roastDayCount), 8);
}

TEST_F(Policy, the_dock_follows_the_preference) {
  home_.launchApp();
  model().setHideFromDock(true);
  EXPECT_EQ(status(), "Dock icon hidden — use the menu bar flame (or widget).");
  EXPECT_EQ(storedInteger(preference_keys::hideFromDock), 1);
  model().applyDockVisibility();
  model().setHideFromDock(false);
  EXPECT_EQ(status(), "Dock icon visible.");
  EXPECT_THAT(home_.desktop.calls, ElementsAre("accessory", "regular", "activate"));
}

}  // namespace
}  // namespace quibbly
