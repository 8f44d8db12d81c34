// The way from a widget to the application: mailboxes, the notification, the intent and the reloads.

#include <algorithm>
#include <chrono>
#include <map>
#include <ranges>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_cross_process_center.h"
#include "fakes/fake_widget_center.h"
#include "fakes/file_tree.h"
#include "fakes/fixed_clock.h"
#include "fakes/group.h"
#include "fakes/manual_queue.h"
#include "fakes/memory_preference_store.h"
#include "platform/launched_tasks.h"
#include "shared/roast_me_intent.h"
#include "shared/roast_request_queue.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

const std::vector<std::string> oneRound{"org.quibbly.Quibbly.RoastWidget.v6", "org.quibbly.Quibbly.RoastWidget.v5",
                                        "org.quibbly.Quibbly.RoastWidget.v4", "org.quibbly.Quibbly.RoastWidget.v3",
                                        "org.quibbly.Quibbly.RoastWidget",    "all"};

class WidgetBridge : public ::testing::Test {
 protected:
  Task<> performed() { roast_ = co_await intent_.perform(); }
  void runIntent() {
    launch(queue_, performed());
    queue_.advance(10s);
  }
  /// Lets the task run to its end, and notes how long it slept before which round of reloads.
  std::map<long, ContinuousClock::duration> sleeps() {
    std::map<long, ContinuousClock::duration> found;
    queue_.run();
    while (const auto next = queue_.untilNext()) {
      queue_.advance(*next);
      found[std::ranges::count(widgets_.reloads, "all")] = *next;
    }
    return found;
  }

  fakes::FileTree tree_;
  fakes::ManualQueue queue_;
  fakes::FakeWidgetCenter widgets_;
  fakes::FakeCrossProcessCenter center_;
  fakes::Group<fakes::FixedClock, fakes::MemoryPreferenceStore> group_{tree_.root()};
  fakes::FixedClock& clock_ = group_.clock;
  fakes::MemoryPreferenceStore& preferences_ = group_.preferences;
  linux_services::PosixFileSystem& files_ = group_.files;
  SharedStorage& storage_ = group_.storage;
  AppGroupStore& store_ = group_.store;
  RoastRequestQueue requests_{storage_, files_, center_};
  PendingNotifyQueue notifications_{storage_, files_, center_, clock_};
  WidgetReload reload_{widgets_, preferences_};
  PlaceholderRoastEngine engine_{clock_, group_.random};
  RecentRoasts recentRoasts_{storage_};
  RoastMeIntent intent_{recentRoasts_, store_, engine_, notifications_, reload_, clock_};
  std::optional<LastRoast> roast_;
};

TEST_F(WidgetBridge, the_second_notification_replaces_the_first_and_each_is_announced_even_when_it_could_not_be_left) {
  const fakes::FixedContainer none(std::nullopt);
  const SharedStorage nowhere(none, files_, group_.random);
  PendingNotifyQueue(nowhere, files_, center_, clock_).enqueue("t", "lost", "c");
  EXPECT_THAT(center_.posts, ElementsAre(RoastRequestQueue::darwinName));
  center_.posts.clear();
  notifications_.enqueue("t", "first", "c");
  notifications_.enqueue("t", "second", "c");
  EXPECT_THAT(center_.posts, ElementsAre(RoastRequestQueue::darwinName, RoastRequestQueue::darwinName));
  EXPECT_EQ(notifications_.take(),
            (PendingNotify{.title = "t", .body = "second", .category = "c", .createdAt = clock_.time}));
  EXPECT_EQ(notifications_.take(), std::nullopt);
}

TEST_F(WidgetBridge, an_observer_may_remove_itself_when_it_hears_a_post_and_then_owns_nothing_more) {
  auto calls = std::make_shared<int>(0);
  std::optional<ObserverToken> itself;
  itself = requests_.observe([&, calls] {
    requests_.stopObserving(*itself);
    ++*calls;
  });
  for (const std::string_view name : {std::string_view("org.quibbly.Quibbly.somethingElse"),
                                      RoastRequestQueue::darwinName, RoastRequestQueue::darwinName}) {
    center_.post(name);
  }
  EXPECT_EQ(*calls, 1);
  EXPECT_EQ(calls.use_count(), 1);
}

TEST_F(WidgetBridge, the_first_intent_ever_works_from_default_figures) {
  clock_.time += 7h;
  runIntent();
  EXPECT_EQ(roast_->templateId, "apps_m1");
  EXPECT_EQ(roast_->mood, (MacMood{.score = 10, .label = MacMood::Label::proud}));
  const auto figures = storage_.read<WidgetSnapshot>("widgetSnapshot.json").value();
  EXPECT_EQ(figures, (WidgetSnapshot{.capturedAt = clock_.time,
                                     .cpuUsageEstimate = 0.2,
                                     .memoryUtilizationEstimate = 0.55,
                                     .diskFreeBytes = 50'000'000'000,
                                     .batteryLevel = std::nullopt,
                                     .uptimeSeconds = 86'400,
                                     .runningAppCount = 12,
                                     .thermalState = RoastThermalState::nominal,
                                     .mood = roast_->mood}));
  EXPECT_THAT(storage_.read<RecentRoastHistory>("recentRoasts.json")->texts, ElementsAre(roast_->text));
  EXPECT_EQ(storage_.read<LastRoast>("lastRoast.json"), *roast_);
  EXPECT_EQ(
      notifications_.take(),
      (PendingNotify{
          .title = "Your Mac would like a word", .body = roast_->text, .category = "apps", .createdAt = clock_.time}));
  EXPECT_FALSE(storage_.readText("roastRequest.json"));
}

TEST_F(WidgetBridge, an_intent_reuses_the_published_figures_and_does_not_repeat_itself) {
  WidgetSnapshot published{.capturedAt = clock_.time - 1h, .batteryLevel = 10, .uptimeSeconds = 5};
  published.diskFreeBytes = 100'000'000'000;
  published.mood = {.score = 50, .label = MacMood::Label::disappointed};
  store_.publish(LastRoast{}, published);
  runIntent();
  EXPECT_EQ(roast_->templateId, "battery_1");
  EXPECT_EQ(roast_->mood, published.mood);
  published.capturedAt = clock_.time;
  EXPECT_EQ(store_.widgetSnapshot(), published);
  runIntent();
  EXPECT_EQ(roast_->templateId, "battery_2");
  EXPECT_EQ(notifications_.take()->body, roast_->text);
}

TEST_F(WidgetBridge, an_intent_reloads_five_times_over_2750_milliseconds) {
  launch(queue_, performed());
  EXPECT_THAT(sleeps(), ElementsAre(Pair(2, 100ms), Pair(3, 350ms), Pair(4, 800ms), Pair(5, 1500ms)));
  EXPECT_TRUE(std::ranges::equal(widgets_.reloads | std::views::take(6), oneRound));
}

TEST_F(WidgetBridge, a_publication_reloads_what_is_placed_and_then_everything_five_times_more) {
  widgets_.placed = {{"b", "a", "b"}};
  launch(queue_, reload_.afterRoastPublished("preview"));
  queue_.run();
  EXPECT_THAT(widgets_.reloads, UnorderedElementsAre("a", "b", "all"));
  EXPECT_EQ(widgets_.reloads.back(), "all");
  widgets_.reloads.clear();
  EXPECT_THAT(sleeps(), ElementsAre(Pair(1, 100ms), Pair(2, 300ms), Pair(3, 700ms), Pair(4, 1500ms), Pair(5, 3000ms)));
  EXPECT_TRUE(std::ranges::equal(widgets_.reloads | std::views::take(6), oneRound));
}

TEST_F(WidgetBridge, a_service_that_does_not_tell_what_is_placed_reloads_all_and_cancellation_hurries_the_rest) {
  const TaskHandle handle = launch(queue_, reload_.afterRoastPublished(std::nullopt));
  queue_.run();
  EXPECT_THAT(widgets_.reloads, ElementsAre("all"));
  handle.cancel();
  queue_.run();
  EXPECT_EQ(std::ranges::count(widgets_.reloads, "all"), 6);
}

}  // namespace
}  // namespace quibbly
