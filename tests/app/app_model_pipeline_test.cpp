#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Pipeline : public AppTest {
 protected:
  Pipeline() { home_.launchApp(); }
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
  model().pauseRoasts(3600);
  model().roastMeNow(false, false);
  run();
  EXPECT_EQ(roastsMade(), 2U) << "the guard is released, and no pause keeps from a silent roast";
}

TEST_F(Pipeline, a_url_that_asks_for_a_roast_starts_the_application) {
  model().handleOpenURL("quibbly://settings");
  EXPECT_FALSE(*model().isMonitoring);
  model().handleOpenURL("quibbly://roast");
  EXPECT_TRUE(*model().isMonitoring);
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

}  // namespace
}  // namespace quibbly
