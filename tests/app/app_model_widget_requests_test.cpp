#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WidgetRequests : public AppTest {
 protected:
  WidgetRequests() {
    home_.group.store.publish(LastRoast{.text = "Published."}, {});
    home_.launchApp().start();
    advance(reloads);
    model().lastRoast = std::nullopt;
  }
  std::string requestOutcome() {
    leaveRequest();
    advance(400ms + reloads);
    EXPECT_FALSE(home_.group.storage.readText("roastRequest.json"));
    return status();
  }
  std::string notifyOutcome(const std::string& body) {
    leaveNotification(body);
    advance(400ms + reloads);
    EXPECT_FALSE(home_.group.storage.readText("pendingNotify.json"));
    return status();
  }
};

TEST_F(WidgetRequests, a_request_makes_a_roast_within_the_limits_and_is_gone_in_any_case) {
  EXPECT_EQ(requestOutcome(), "Desktop toast + notification (1/3 today).");
  model().setDailyRoastLimit(1);
  EXPECT_EQ(requestOutcome(), "Daily roast limit reached (1/1).");
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(WidgetRequests, the_application_sleeps_while_the_mailboxes_are_empty_and_nowhere_else) {
  const auto container = *home_.group.container.url();
  const auto sleeps = [&] { return home_.queue.untilNext() > 400ms; };
  home_.queue.advance(10s);
  EXPECT_TRUE(sleeps());
  tree_.add("group/roastRequest.json", "no request");
  run();
  EXPECT_FALSE(sleeps()) << "what cannot be read is read again";
  leaveRequest();
  advance(400ms);
  EXPECT_EQ(roastsMade(), 1U);
  advance(reloads);
  EXPECT_TRUE(sleeps());
  std::filesystem::remove_all(container);
  run();
  EXPECT_FALSE(sleeps()) << "without its directory";
  leaveRequest();
  advance(400ms + reloads);
  EXPECT_EQ(roastsMade(), 1U) << "the history went with the container";
  EXPECT_TRUE(sleeps());
  model().stop();
  leaveRequest();
  advance(10s);
  EXPECT_TRUE(home_.group.storage.readText("roastRequest.json"));
}

TEST_F(WidgetRequests, more_than_can_be_answered_are_taken_and_leave_the_application_as_it_was) {
  model().setDailyRoastLimit(256);
  for (int i = 0; i < 1000; ++i) {
    leaveRequest();
    leaveNotification("Body " + std::to_string(i));
    advance(6ms);
  }
  advance(1min);
  EXPECT_TRUE(home_.requests.isEmpty());
  EXPECT_TRUE(home_.pending.isEmpty());
  EXPECT_LE(announced().size(), 256U);
  const auto before = home_.group.store.lastRoast();
  model().roastMeNow(false, false);
  run();
  EXPECT_NE(home_.group.store.lastRoast()->text, before->text);
}

TEST_F(WidgetRequests, the_notification_between_processes_is_answered_at_once) {
  advance(100ms);
  leaveRequest();
  home_.crossProcess.post(RoastRequestQueue::darwinName);
  run();
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(WidgetRequests, a_pending_notification_is_posted_whatever_the_count) {
  EXPECT_EQ(notifyOutcome("one"), "Desktop toast + notification (1/3 today).");
  EXPECT_EQ((*model().lastRoast)->text, "Published.");
  model().setDailyRoastLimit(1);
  EXPECT_EQ(notifyOutcome("two"), "Desktop toast + notification (1/1 today).");
  model().setDailyRoastLimit(0);
  EXPECT_EQ(notifyOutcome("three"), "Desktop toast + notification (1/0 today).");
  EXPECT_THAT(announced(), ElementsAre("one", "two", "three"));
  EXPECT_EQ(home_.center.delivered[0].title, "Title");
  EXPECT_EQ(notifyOutcome(" THREE"), "Widget roast updated (duplicate system notification skipped).");
  home_.center.now.authorizationStatus = AuthorizationStatus::denied;
  EXPECT_EQ(notifyOutcome("four"), "Notifications denied. System Settings → Notifications → quibbly.");
}

TEST_F(WidgetRequests, the_status_names_the_roast_until_it_is_posted) {
  std::vector<std::string> told;
  const Observers::Token token = model().observe([&] {
    if (told.empty() || told.back() != status()) told.push_back(status());
  });
  leaveNotification("Your RAM.");
  advance(400ms);
  ASSERT_GE(told.size(), 2U);
  EXPECT_EQ(told[told.size() - 2], "Widget roast: Your RAM.");
  EXPECT_EQ(told.back(), "Desktop toast + notification (1/3 today).");
}

TEST_F(WidgetRequests, a_pending_notification_while_paused_only_brings_the_roast_up_to_date) {
  model().pauseRoasts(3600);
  model().statusMessage = std::nullopt;
  EXPECT_EQ(notifyOutcome("one"), "Paused until 17 Nov 2026, 11:00");
  EXPECT_EQ((*model().lastRoast)->text, "Published.");
  EXPECT_THAT(announced(), IsEmpty());
  EXPECT_EQ(*model().roastsSentToday, 0);
}

TEST_F(WidgetRequests, a_request_comes_before_a_notification_in_the_same_pass) {
  leaveRequest();
  // Without the notification between processes, which has the request dealt with apart from the pass.
  const PendingNotify pending{.title = "Title", .body = "pending", .category = "ram", .createdAt = {}};
  ASSERT_FALSE(home_.group.storage.write(pending, "pendingNotify.json"));
  advance(20s);
  ASSERT_EQ(announced().size(), 2U);
  EXPECT_EQ(announced().back(), "pending");
}

TEST_F(WidgetRequests, an_entry_that_cannot_be_read_stays_until_it_can) {
  ASSERT_FALSE(home_.group.storage.writeText("{", "roastRequest.json"));
  advance(10s);
  EXPECT_EQ(home_.group.storage.readText("roastRequest.json"), "{");
  EXPECT_EQ(requestOutcome(), "Desktop toast + notification (1/3 today).");
}

}  // namespace
}  // namespace quibbly
