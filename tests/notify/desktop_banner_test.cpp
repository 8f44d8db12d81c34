#include "notify/desktop_banner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_desktop.h"
#include "fakes/manual_queue.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Toast : public ::testing::Test {
 protected:
  fakes::ManualQueue queue_;
  fakes::FakeBannerScreen screen_{queue_};
  DesktopBanner banner_{queue_, screen_};
};

TEST_F(Toast, stays_for_its_duration_then_fades_and_is_unplaced_without_a_screen) {
  banner_.show("Title", "one", 5500ms);
  EXPECT_EQ(screen_.shown.at(0)->frame, (BannerFrame{.x = 400, .y = 40, .width = 400, .height = 110}));
  queue_.advance(5499ms);
  EXPECT_THAT(screen_.messages(), ElementsAre("one"));
  queue_.advance(1ms);
  EXPECT_THAT(screen_.messages(), ElementsAre("one (fading)"));
  queue_.advance(249ms);
  EXPECT_THAT(screen_.messages(), ElementsAre("one (fading)"));
  queue_.advance(1ms);
  EXPECT_THAT(screen_.messages(), IsEmpty());
  screen_.frame.reset();
  banner_.show("Title", "two", 1s);
  EXPECT_EQ(screen_.shown.back()->frame, std::nullopt);
}

TEST_F(Toast, is_replaced_at_once_also_while_it_fades_and_the_new_one_stays_for_all_of_its_duration) {
  for (const auto since : {900ms, 1100ms}) {
    banner_.show("Title", "one", 1s);
    queue_.advance(since);
    banner_.show("Title", "two", 1s);
    EXPECT_THAT(screen_.messages(), ElementsAre("two"));
    queue_.advance(999ms);
    EXPECT_THAT(screen_.messages(), ElementsAre("two"));
    queue_.advance(1ms + 250ms);
    EXPECT_THAT(screen_.messages(), IsEmpty());
  }
}

TEST_F(Toast, goes_with_its_banner_while_it_fades) {
  {
    DesktopBanner going(queue_, screen_);
    going.show("Title", "one", 1s);
    queue_.advance(1s);
  }
  EXPECT_THAT(screen_.messages(), IsEmpty());
  queue_.advance(250ms);
}

}  // namespace
}  // namespace quibbly
