#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

class Delegate : public AppTest {
 protected:
  Delegate() { home_.group.store.publish(LastRoast{.text = "Published."}, {}); }
  AppDelegate& delegate() { return home_.app->appDelegate; }
  std::vector<std::string> calls() { return std::exchange(home_.desktop.calls, {}); }
};

TEST_F(Delegate, launches_into_the_dock_and_starts_the_model_on_the_next_turn) {
  home_.desktop.policy = ActivationPolicy::accessory;
  home_.launchApp();
  delegate().applicationDidFinishLaunching();
  EXPECT_THAT(calls(), ElementsAre("regular", "activate over others"));
  EXPECT_FALSE(*model().isMonitoring);
  run();
  EXPECT_TRUE(*model().isMonitoring);
}

TEST_F(Delegate, launches_out_of_sight_when_it_hides_from_the_dock) {
  store(preference_keys::hideFromDock, std::int64_t{1});
  home_.launchApp();
  delegate().applicationDidFinishLaunching();
  run();
  EXPECT_THAT(calls(), ElementsAre("accessory"));
  EXPECT_EQ(status(), "Running in menu bar (Dock hidden).");
}

TEST_F(Delegate, deals_at_launch_with_what_widgets_left) {
  leaveRequest();
  leaveNotification("pending");
  home_.launchApp();
  delegate().applicationDidFinishLaunching();
  run();
  EXPECT_EQ(roastsMade(), 1U);
  EXPECT_FALSE(home_.group.storage.readText("roastRequest.json"));
  advance(reloads + reloads);
  EXPECT_EQ(announced().size(), 2U);
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(Delegate, looks_again_half_a_second_later) {
  home_.launchApp();
  delegate().applicationDidFinishLaunching();
  run();
  model().stop();
  leaveNotification("late");
  advance(499ms);
  EXPECT_THAT(announced(), IsEmpty());
  advance(1ms);
  EXPECT_THAT(announced(), ElementsAre("late"));
}

TEST_F(Delegate, deals_with_what_widgets_left_when_it_comes_forward) {
  home_.launchApp();
  leaveNotification("first");
  delegate().applicationDidBecomeActive();
  run();
  EXPECT_THAT(announced(), ElementsAre("first"));
  model().stop();
  leaveNotification("second");
  (void)calls();
  EXPECT_TRUE(delegate().applicationShouldHandleReopen(false));
  run();
  EXPECT_THAT(announced(), ElementsAre("first", "second"));
  EXPECT_EQ(calls().front(), "activate over others");
  EXPECT_TRUE(*model().isMonitoring);
}

TEST_F(Delegate, shows_in_the_dock_for_two_seconds_when_a_url_is_opened) {
  store(preference_keys::hideFromDock, std::int64_t{1});
  home_.launchApp();
  model().applyDockVisibility();
  (void)calls();
  for (const char* url : {"quibbly://settings", "quibbly://roast"}) {
    delegate().open({url});
    // As the desktop does when a window comes forward.
    delegate().applicationDidBecomeActive();
    run();
    EXPECT_THAT(calls(), IsSupersetOf({"regular", "activate over others"})) << url;
    advance(2s - 1ns);
    EXPECT_EQ(home_.desktop.activationPolicy(), ActivationPolicy::regular);
    advance(1ns);
    EXPECT_EQ(home_.desktop.activationPolicy(), ActivationPolicy::accessory);
    (void)calls();
  }
  advance(10s);
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(Delegate, drops_the_second_of_two_urls_opened_at_once) {
  home_.launchApp();
  delegate().open({"quibbly://roast", "quibbly://x/roast"});
  advance(10s);
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(Delegate, does_without_a_model) {
  home_.launchApp();
  leaveNotification("pending");
  home_.app->appModel.reset();
  delegate().applicationDidFinishLaunching();
  delegate().applicationDidBecomeActive();
  EXPECT_TRUE(delegate().applicationShouldHandleReopen(true));
  delegate().open({"quibbly://roast"});
  advance(10s);
  EXPECT_TRUE(home_.group.storage.readText("pendingNotify.json"));
}

}  // namespace
}  // namespace quibbly
