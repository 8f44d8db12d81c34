#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

class Schedule : public AppTest {
 protected:
  Schedule() { startPublished(); }
  void choose(RandomRoastInterval interval) {
    model().randomRoastInterval = interval;
    model().restartRandomRoastLoop();
    run();
  }
};

TEST_F(Schedule, the_first_roast_comes_one_whole_period_after_a_restart) {
  using enum RandomRoastInterval;
  const std::pair<RandomRoastInterval, std::chrono::seconds> periods[] = {
      {oneMinute, 60s}, {fiveMinutes, 300s}, {fifteenMinutes, 900s}, {thirtyMinutes, 1800s}, {sixtyMinutes, 3600s}};
  std::size_t made = 0;
  model().setDailyRoastLimit(256);
  for (const auto& [interval, period] : periods) {
    choose(interval);
    advance(period - 1ns);
    EXPECT_EQ(roastsMade(), made) << period.count();
    advance(1ns);
    EXPECT_EQ(roastsMade(), ++made) << period.count();
    advance(reloads);
  }
}

TEST_F(Schedule, a_pause_of_an_hour_is_told_once_a_minute_and_then_over) {
  choose(RandomRoastInterval::oneMinute);
  model().pauseRoasts(3600);
  int told = 0;
  for (int minute = 1; minute <= 60; ++minute) {
    model().statusMessage = std::nullopt;
    advance(1min);
    told += status().starts_with("Paused until ") ? 1 : 0;
  }
  EXPECT_EQ(told, 59) << "the sixtieth tick is the first after the pause";
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(Schedule, restarting_begins_the_period_anew_and_off_ends_it) {
  choose(RandomRoastInterval::oneMinute);
  for (int i = 0; i < 5; ++i) {
    advance(50s);
    model().restartRandomRoastLoop();
  }
  EXPECT_EQ(roastsMade(), 0U);
  choose(RandomRoastInterval::off);
  advance(1h);
  EXPECT_EQ(roastsMade(), 0U);
}

TEST_F(Schedule, a_roast_that_is_cancelled_in_the_midst_of_its_reloads_is_announced_at_once) {
  choose(RandomRoastInterval::oneMinute);
  advance(61s);
  EXPECT_TRUE(announced().empty());
  choose(RandomRoastInterval::off);
  run();
  EXPECT_EQ(announced().size(), 1U);
  model().roastMeNow(false, false);
  run();
  EXPECT_EQ(roastsMade(), 2U) << "the guard is released";
}

}  // namespace
}  // namespace quibbly
