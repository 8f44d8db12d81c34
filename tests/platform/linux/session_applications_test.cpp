#include "platform/linux/session_applications.h"

#include "gtest/gtest.h"

namespace quibbly::linux_services {
namespace {

struct Scripted : RunningApplications {
  std::optional<ApplicationsReading> answer;

  std::optional<ApplicationsReading> running() override { return answer; }
};

TEST(SessionApplications, the_first_service_that_answers_is_believed_even_when_it_knows_of_nothing) {
  Scripted first, second;
  SessionApplications session({first, second});
  EXPECT_EQ(session.running(), std::nullopt);
  second.answer.emplace().running.emplace_back();
  EXPECT_EQ(session.running(), second.answer);
  first.answer.emplace();
  EXPECT_EQ(session.running(), first.answer);
}

TEST(SessionApplications, the_session_type_overrules_the_display_only_where_it_is_a_graphical_one) {
  EXPECT_TRUE(isWaylandSession({.waylandDisplay = "", .sessionType = "wayland"}));
  EXPECT_TRUE(isWaylandSession({.waylandDisplay = "wayland-1", .sessionType = "tty"}));
  EXPECT_FALSE(isWaylandSession({.waylandDisplay = "wayland-1", .sessionType = "x11"}));
  EXPECT_FALSE(isWaylandSession({.waylandDisplay = "", .sessionType = "tty"}));
}

}  // namespace
}  // namespace quibbly::linux_services
