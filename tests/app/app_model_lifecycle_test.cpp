#include <algorithm>

#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

class Lifecycle : public AppTest {
 protected:
  using AppTest::AppTest;
  long rounds() { return std::ranges::count(home_.widgetCenter.reloads, "all"); }
};

class WithoutContainer : public Lifecycle {
 protected:
  WithoutContainer() : Lifecycle(nullptr, std::filesystem::temp_directory_path(), false) {}
};

TEST_F(Lifecycle, begins_with_what_is_stored) {
  EXPECT_EQ(*home_.launchApp().mood, (MacMood{.score = 10, .label = MacMood::Label::proud}));
  EXPECT_EQ(*model().lastRoast, std::nullopt);
  EXPECT_EQ(*model().dailyRoastLimit, 3);
  EXPECT_EQ(storedInteger(preference_keys::dailyRoastLimit), 3);
  EXPECT_EQ(home_.preferences.get<std::string>(preference_keys::roastDayStamp), "2026-11-17");
  const LastRoast roast{.text = "Stored.", .mood = {.score = 40, .label = MacMood::Label::concerned}};
  const WidgetSnapshot figures{.mood = {.score = 80, .label = MacMood::Label::judgingYou}};
  ASSERT_FALSE(home_.group.storage.write(roast, "lastRoast.json"));
  ASSERT_FALSE(home_.group.storage.write(figures, "widgetSnapshot.json"));
  store(preference_keys::randomRoastIntervalMinutes, std::int64_t{15});
  store(preference_keys::dailyRoastLimit, std::int64_t{9});
  home_.launchApp();
  EXPECT_EQ(*model().lastRoast, roast);
  EXPECT_EQ(*model().mood, figures.mood);
  EXPECT_EQ(*model().randomRoastInterval, RandomRoastInterval::fifteenMinutes);
  EXPECT_EQ(*model().dailyRoastLimit, 9);
  EXPECT_EQ(AppModelBridge::shared.lock().get(), &model());
  EXPECT_FALSE(*model().isMonitoring);
  EXPECT_THAT(home_.center.categories, ElementsAre("roast.category"));
}

TEST_F(Lifecycle, samples_at_once_and_then_every_15_seconds_however_often_it_is_started) {
  home_.launchApp().start();
  model().start();
  EXPECT_EQ(status(), "Running — Dock + menu bar flame.");
  EXPECT_THAT(home_.desktop.calls, ElementsAre("activate", "activate"));
  run();
  // The loop, the start-up refresh, and the first roast that it makes.
  EXPECT_EQ(home_.machine.taken, 3);
  EXPECT_EQ(*model().latestSnapshot, home_.machine.sample);
  advance(15s - 1ns);
  EXPECT_EQ(home_.machine.taken, 3);
  advance(1ns);
  EXPECT_EQ(home_.machine.taken, 4);
  home_.queue.jump(1h);
  EXPECT_EQ(home_.machine.taken, 5) << "one pass after a long sleep of the machine";
}

TEST_F(Lifecycle, a_widget_that_was_never_fed_gets_a_first_roast_without_notification) {
  home_.launchApp().start();
  run();
  EXPECT_EQ(roastsMade(), 1U);
  EXPECT_EQ(home_.group.store.lastRoast(), *model().lastRoast);
  EXPECT_EQ(status(), "Running — Dock + menu bar flame.");
  advance(reloads);
  EXPECT_EQ(status(), "Fresh roast ready.");
  EXPECT_EQ(*model().roastsSentToday, 0);
  EXPECT_TRUE(home_.center.delivered.empty());
}

TEST_F(Lifecycle, a_widget_that_was_fed_keeps_its_roast_with_a_fresh_sample) {
  const LastRoast roast{.text = "Published before."};
  home_.group.store.publish(roast, {.runningAppCount = 99});
  home_.launchApp().start();
  run();
  EXPECT_EQ(roastsMade(), 0U);
  EXPECT_EQ(home_.group.store.lastRoast(), roast);
  EXPECT_EQ(home_.group.store.widgetSnapshot(), WidgetSnapshot::from(home_.machine.sample, *model().mood));
  EXPECT_EQ(rounds(), 1);
  advance(reloads);
  EXPECT_EQ(rounds(), 6);
}

TEST_F(Lifecycle, figures_are_published_before_there_is_any_roast) {
  home_.launchApp();
  const auto tickIt = [](AppModel& ticking) -> Task<> { co_await ticking.tick(); };
  fakes::MemoryPreferenceStore& group = home_.group.preferences;
  const struct {
    bool opens, takes;
  } cases[] = {{true, true}, {true, false}, {false, true}};
  for (const auto& [opens, takes] : cases) {
    group.opens = opens;
    group.takes = takes;
    ASSERT_FALSE(home_.preferences.remove("widgetSnapshotData"));
    launch(home_.queue, tickIt(model()));
    run();
    EXPECT_TRUE(home_.group.storage.read<WidgetSnapshot>("widgetSnapshot.json"));
    EXPECT_EQ(home_.preferences.get<Bytes>("widgetSnapshotData").has_value(), !opens || !takes);
    EXPECT_TRUE(!opens || group.get<Bytes>("widgetSnapshotData"));
  }
}

TEST_F(Lifecycle, stops_and_starts_afresh) {
  home_.launchApp().start();
  advance(10s);
  model().stop();
  EXPECT_FALSE(*model().isMonitoring);
  const int taken = home_.machine.taken;
  leaveRequest();
  home_.crossProcess.post(RoastRequestQueue::darwinName);
  advance(1h);
  EXPECT_EQ(home_.machine.taken, taken);
  EXPECT_TRUE(requestIsLeft()) << "nobody looks";
  EXPECT_EQ(status(), "Fresh roast ready.");

  model().start();
  run();
  EXPECT_FALSE(requestIsLeft());
}

TEST_F(Lifecycle, goes_when_nobody_holds_it_any_more_while_its_loops_sleep) {
  home_.launchApp().start();
  model().randomRoastInterval = RandomRoastInterval::oneMinute;
  model().restartRandomRoastLoop();
  advance(10s);
  const std::weak_ptr<AppModel> model = home_.app->appModel;
  home_.app.reset();
  EXPECT_TRUE(model.expired());
  const int taken = home_.machine.taken;
  advance(1h);
  EXPECT_EQ(home_.machine.taken, taken);
}

TEST_F(Lifecycle, goes_with_the_queue_in_the_midst_of_everything) {
  home_.machine.takes = 10ms;
  home_.launchApp().start();
  model().roastMeNow(true, true);
  advance(15ms);
  const std::weak_ptr<AppModel> model = home_.app->appModel;
  home_.app.reset();
  EXPECT_FALSE(model.expired()) << "its roast is not done";
  home_.queue.tasks().drop();
  EXPECT_TRUE(model.expired());
}

TEST_F(WithoutContainer, says_that_widgets_will_not_hear_of_it_and_runs_all_the_same) {
  home_.launchApp().statusMessage = "Something else.";
  model().start();
  EXPECT_EQ(status(), "App Group unavailable — widget may not update.");
  advance(30s);
  EXPECT_GE(home_.machine.taken, 3);
  EXPECT_TRUE(model().lastRoast->has_value());
}

TEST_F(Lifecycle, tells_its_observers_of_changes_only) {
  int told = 0;
  home_.launchApp();
  {
    const Observers::Token token = model().observe([&] { ++told; });
    model().statusMessage = "one";
    model().statusMessage = "one";
    EXPECT_EQ(told, 1);
    model().latestSnapshot = home_.machine.sample;
    model().latestSnapshot = home_.machine.sample;
    EXPECT_EQ(told, 2);
  }
  model().statusMessage = "two";
  EXPECT_EQ(told, 2);
}

TEST_F(Lifecycle, an_observer_that_another_one_removes_is_not_told_any_more) {
  home_.launchApp();
  Observers::Token removed;
  const Observers::Token first = model().observe([&] { removed = Observers::Token(); });
  bool told = false;
  removed = model().observe([&] { told = true; });
  model().statusMessage = "one";
  EXPECT_FALSE(told);
}

}  // namespace
}  // namespace quibbly
