#include "notify/notification_manager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_desktop.h"
#include "fakes/fake_notification_center.h"
#include "fakes/file_tree.h"
#include "fakes/fixed_clock.h"
#include "fakes/group.h"
#include "fakes/manual_queue.h"
#include "fakes/memory_preference_store.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using Kind = NotificationPostError::Kind;

class Notifications : public ::testing::Test {
 protected:
  Notifications() { restart(); }

  /// "" when it was posted, else what the user is told.
  std::string post(const std::string& body) {
    std::string outcome = "no answer";
    launch(queue_, posted(body, outcome));
    queue_.advance(1s);
    return outcome;
  }
  Task<> posted(std::string body, std::string& outcome) {
    const auto result = co_await manager_->postRoast("Title", std::move(body), "ram");
    outcome = result ? std::string() : result.error().description();
  }
  void restart() {
    manager_ = std::make_unique<NotificationManager>(queue_, center_, desktop_, desktop_, banner_, recentRoasts_,
                                                     group_.userText, group_.random);
  }

  fakes::FileTree tree_;
  fakes::Group<fakes::FixedClock, fakes::MemoryPreferenceStore> group_{tree_.root()};
  RecentRoasts recentRoasts_{group_.storage};
  fakes::FakeDesktop desktop_;
  fakes::ManualQueue queue_;
  fakes::FakeNotificationCenter center_{queue_};
  fakes::FakeBannerScreen screen_{queue_};
  DesktopBanner banner_{queue_, screen_};
  std::unique_ptr<NotificationManager> manager_;
};

const std::string denied = NotificationPostError(Kind::denied).description();
const std::string duplicate = NotificationPostError(Kind::duplicate).description();
const std::string bannersDisabled = NotificationPostError(Kind::bannersDisabled).description();

TEST_F(Notifications, posts_one_complete_request_and_remembers_its_body) {
  recentRoasts_.remember(RecentRoastHistory::empty.recording("said", "ram_1"));
  EXPECT_EQ(post("Your RAM. "), "");
  ASSERT_EQ(center_.delivered.size(), 1U);
  NotificationRequest request = center_.delivered.front();
  EXPECT_THAT(request.identifier, MatchesRegex("roast-[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"));
  request.identifier.clear();
  EXPECT_EQ(request, (NotificationRequest{.identifier = "",
                                          .title = "Title",
                                          .body = "Your RAM. ",
                                          .categoryIdentifier = "roast.category",
                                          .userInfo = {{"kind", "roast"}, {"category", "ram"}},
                                          .defaultSound = true,
                                          .interruptionLevel = InterruptionLevel::active,
                                          .delay = std::nullopt}));
  EXPECT_THAT(center_.categories, ElementsAre("roast.category"));
  EXPECT_EQ(center_.shownAs, (PresentationOptions{.banner = true, .list = true, .sound = true}));
  EXPECT_THAT(desktop_.calls, IsEmpty());
  RecentRoastHistory expected = RecentRoastHistory::empty.recording("said", "ram_1");
  expected.lastNotificationBody = "Your RAM. ";
  EXPECT_EQ(recentRoasts_.history(), expected);
}

TEST_F(Notifications, tells_why_nothing_is_seen_but_shows_the_toast_in_any_case) {
  struct Case {
    NotificationSettings settings;
    NotificationCenter::Granted userGrants;
    std::optional<std::string> refusal;
    std::string outcome;
    std::size_t delivered;
  };
  using enum AuthorizationStatus;
  const auto cases = std::to_array<Case>({
      {{notDetermined, AlertSetting::enabled}, std::nullopt, {}, ::quibbly::denied, 0},
      {{notDetermined, AlertSetting::enabled}, true, {}, "", 1},
      {{provisional, AlertSetting::enabled}, true, {}, "", 1},
      {{ephemeral, AlertSetting::disabled}, true, {}, bannersDisabled, 1},
      {{authorized, AlertSetting::notSupported}, true, {}, bannersDisabled, 1},
      {{authorized, AlertSetting::enabled}, true, "The server is out.", "The server is out.", 0},
  });
  for (const Case& c : cases) {
    SCOPED_TRACE(&c - cases.data());
    restart();
    recentRoasts_.remember(RecentRoastHistory::empty);
    center_.now = c.settings;
    center_.userGrants = c.userGrants;
    center_.refusal = c.refusal;
    center_.delivered.clear();
    const std::string body = "body " + std::to_string(&c - cases.data());
    EXPECT_EQ(post(body), c.outcome);
    EXPECT_THAT(screen_.messages(), ElementsAre(body));
    EXPECT_EQ(center_.delivered.size(), c.delivered);
    EXPECT_EQ(recentRoasts_.history().lastNotificationBody.has_value(), c.delivered == 1);
  }
}

TEST_F(Notifications, asks_the_user_once_and_in_front_of_everything) {
  center_.now.authorizationStatus = AuthorizationStatus::notDetermined;
  center_.userGrants = false;
  EXPECT_EQ(post("one"), denied);
  EXPECT_EQ(post("two"), denied);
  EXPECT_EQ(center_.timesAsked, 1);
  EXPECT_THAT(desktop_.calls, ElementsAre("activate over others"));
}

TEST_F(Notifications, what_was_said_lately_is_not_announced_again) {
  EXPECT_EQ(post("Caf\u00e9 au RAM"), "");
  EXPECT_EQ(post(" \u00a0\n cafe\u0301 AU ram\u2028\r\n"), duplicate);
  EXPECT_THAT(screen_.messages(), ElementsAre(" \u00a0\n cafe\u0301 AU ram\u2028\r\n"));
  EXPECT_EQ(post("Cafe au RAM"), "");
  for (int i = 0; i < 7; ++i) EXPECT_EQ(post("other " + std::to_string(i)), "");
  EXPECT_EQ(post("caf\u00e9 AU ram"), "") << "nine bodies ago";
  EXPECT_EQ(post("other 0"), duplicate) << "eight bodies ago";
  restart();
  EXPECT_EQ(post("other 6"), "") << "a restart remembers only the last one";
  restart();
  EXPECT_EQ(post("Other 6"), duplicate);
}

TEST_F(Notifications, hides_a_program_in_front_until_the_notification_is_out) {
  desktop_.active = true;
  std::string outcome;
  launch(queue_, posted("body", outcome));
  queue_.run();
  EXPECT_THAT(desktop_.calls, ElementsAre("hide"));
  queue_.advance(349ms);
  EXPECT_THAT(center_.delivered, IsEmpty());
  queue_.advance(1ms);
  EXPECT_EQ(center_.delivered.size(), 1U);
  queue_.advance(849ms);
  EXPECT_THAT(desktop_.calls, ElementsAre("hide"));
  queue_.advance(1ms);
  EXPECT_THAT(desktop_.calls, ElementsAre("hide", "unhide", "activate"));

  center_.refusal = "no";
  EXPECT_EQ(post("another"), "no");
  EXPECT_THAT(desktop_.calls, ElementsAre("hide", "unhide", "activate", "hide", "unhide"));
}

TEST_F(Notifications, withdraws_a_notification_after_three_minutes_even_one_that_nobody_saw) {
  center_.now.alertSetting = AlertSetting::disabled;
  std::string outcome;
  launch(queue_, posted("body", outcome));
  queue_.run();
  ASSERT_EQ(center_.delivered.size(), 1U);
  queue_.advance(180s - 1ns);
  EXPECT_THAT(center_.removed, IsEmpty());
  queue_.advance(1ns);
  EXPECT_EQ(center_.removed.size(), 1U);
  EXPECT_THAT(center_.delivered, IsEmpty());

  manager_->scheduleRemoval("again", 10s);
  queue_.advance(9s);
  manager_->scheduleRemoval("again", 10s);
  queue_.advance(9s);
  EXPECT_EQ(center_.removed.size(), 1U) << "a new plan replaces the old one";
  manager_.reset();
  queue_.advance(1s);
  EXPECT_EQ(center_.removed.back(), "again") << "also when the manager is gone";
}

TEST_F(Notifications, opens_the_first_settings_page_that_there_is) {
  desktop_.openable = "x-apple.systempreferences:com.apple.preference.notifications";
  manager_->openSystemNotificationSettings();
  EXPECT_THAT(desktop_.calls, ElementsAre("x-apple.systempreferences:com.apple.Notifications-Settings.extension",
                                          "x-apple.systempreferences:com.apple.preference.notifications"));
  desktop_.openable.clear();
  manager_->openSystemNotificationSettings();
  EXPECT_EQ(desktop_.calls.back(), "x-apple.systempreferences:com.apple.settings.Notifications");
}

}  // namespace
}  // namespace quibbly
