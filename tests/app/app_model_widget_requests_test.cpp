#include "app_test.h"
#include "fakes/quiet_watch.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

class WidgetRequests : public AppTest {
 protected:
  explicit WidgetRequests(std::unique_ptr<DirectoryWatch> watch = nullptr) : AppTest(std::move(watch)) {
    startPublished();
  }
};

/// The file alone does not tell the application.
class MissedRequests : public WidgetRequests {
 protected:
  MissedRequests() : WidgetRequests(std::make_unique<fakes::QuietWatch>()) {}
};

TEST_F(WidgetRequests, the_application_sleeps_while_the_mailboxes_are_empty_and_nowhere_else) {
  const auto container = *home_.group.container.url();
  const auto sleeps = [&] { return home_.queue.untilNext() > 400ms; };
  home_.queue.advance(10s);
  EXPECT_TRUE(sleeps());
  tree_.add("group/roastRequest.json", R"({"createdAt":"2026-11-17T10:00:00Z"})");
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
}

TEST_F(WidgetRequests, more_than_can_be_answered_are_taken_and_leave_the_application_as_it_was) {
  model().setDailyRoastLimit(256);
  const std::size_t waiting = home_.queue.waiting();
  for (int i = 0; i < 10'000; ++i) {
    leaveRequest();
    leaveNotification("Body " + std::to_string(i));
    advance(6ms);
  }
  advance(5min);
  EXPECT_TRUE(home_.requests.isEmpty());
  EXPECT_TRUE(home_.pending.isEmpty());
  EXPECT_EQ(home_.queue.waiting(), waiting);
  const auto before = home_.group.store.lastRoast();
  model().roastMeNow(false, false);
  run();
  EXPECT_NE(home_.group.store.lastRoast()->text, before->text);
}

TEST_F(MissedRequests, are_answered_as_soon_as_the_notification_between_processes_comes) {
  const auto post = [&] {
    leaveRequest();
    run();
    EXPECT_TRUE(requestIsLeft());
    home_.crossProcess.post(RoastRequestQueue::darwinName);
    run();
  };
  post();
  EXPECT_FALSE(requestIsLeft());
  EXPECT_EQ(roastsMade(), 1U);
  model().stop();
  post();
  EXPECT_TRUE(requestIsLeft());
  model().start();
  run();
  post();
  EXPECT_FALSE(requestIsLeft()) << "hears the notification again";
}

TEST(MissedRequest, is_taken_with_the_next_sample_or_soon_where_nothing_can_be_watched) {
  const std::pair<bool, std::chrono::milliseconds> cases[] = {{true, 15s - TestedApplication::reloads}, {false, 400ms}};
  for (const auto& [tells, until] : cases) {
    TestedApplication application(std::make_unique<fakes::QuietWatch>(tells));
    application.startPublished();
    application.leaveRequest();
    application.advance(until - 1ns);
    EXPECT_TRUE(application.requestIsLeft());
    application.advance(1ns);
    EXPECT_FALSE(application.requestIsLeft()) << until.count();
  }
}

TEST_F(WidgetRequests, a_request_comes_before_a_notification_in_the_same_pass) {
  leaveRequest();
  // Without the notification between processes, which has the request dealt with apart from the pass.
  const PendingNotify pending{.title = "Title", .body = "pending", .category = "ram", .createdAt = {}};
  ASSERT_FALSE(home_.group.storage.write(pending, "pendingNotify.json"));
  advance(20s);
  ASSERT_EQ(announced().size(), 2U);
  EXPECT_EQ(announced().back(), "pending");
  EXPECT_EQ(home_.center.delivered.back().title, "Title");
  EXPECT_EQ(home_.center.delivered.back().userInfo.at("category"), "ram");
}

}  // namespace
}  // namespace quibbly
