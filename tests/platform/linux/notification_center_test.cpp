// What every notification center must do, on the fake and on a real server on a real bus; and what the latter makes of
// servers of all kinds.

#include <chrono>
#include <csignal>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_notification_center.h"
#include "fakes/file_tree.h"
#include "fakes/manual_queue.h"
#include "fakes/notification_server.h"
#include "platform/linux/dbus_notification_center.h"
#include "platform/linux/small_files.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;
using Added = NotificationCenter::Added;
using Settings = NotificationSettings;

constexpr Settings allowed{AuthorizationStatus::authorized, AlertSetting::enabled};
constexpr Settings denied{};

/// A center, what a user sees of it, and how it goes wrong.
class Stage {
 public:
  virtual ~Stage() = default;
  virtual NotificationCenter& center() = 0;
  virtual std::vector<std::string> titlesOnScreen() = 0;
  virtual void refuse(const std::string& why) = 0;
  virtual void deny() = 0;
  virtual void work() { queue.run(); }

  /// Lets everything run, in real time, until something holds.
  bool until(const std::function<bool()>& holds) {
    return fakes::until([&] {
      work();
      return holds();
    });
  }

  fakes::ManualQueue queue;
};

class FakeStage : public Stage {
 public:
  NotificationCenter& center() override { return center_; }
  std::vector<std::string> titlesOnScreen() override {
    std::vector<std::string> titles;
    for (const auto& request : center_.delivered) titles.push_back(request.title);
    return titles;
  }
  void refuse(const std::string& why) override { center_.refusal = why; }
  void deny() override {
    center_.now = denied;
    center_.userGrants = false;
  }

 private:
  fakes::FakeNotificationCenter center_{queue};
};

class BusStage : public Stage {
 public:
  NotificationCenter& center() override { return *onBus; }
  std::vector<std::string> titlesOnScreen() override {
    std::vector<std::string> titles;
    for (const auto& note : server->onScreen) titles.push_back(note.summary);
    return titles;
  }
  void refuse(const std::string& why) override { server->refusal = why; }
  void deny() override { server->die(); }
  void work() override {
    queue.run();
    server->serve();
  }
  void restart() { server = std::make_unique<fakes::NotificationServer>(daemon.address()); }

  fakes::PrivateBus daemon;
  fakes::FileTree programs;
  SessionBus bus{queue, daemon.address()};
  std::unique_ptr<fakes::NotificationServer> server = std::make_unique<fakes::NotificationServer>(daemon.address());
  std::unique_ptr<DBusNotificationCenter> onBus =
      std::make_unique<DBusNotificationCenter>(queue, bus, programs.root().string());
};

/// Asks, and waits for the first answer. None may come inside the call, and none a second time.
template <typename Answer>
Answer answerOf(Stage& stage, const std::function<void(std::function<void(Answer)>)>& ask) {
  const auto answers = std::make_shared<std::vector<Answer>>();
  ask([answers](Answer answer) {
    EXPECT_THAT(*answers, IsEmpty()) << "answered twice";
    answers->push_back(std::move(answer));
  });
  EXPECT_THAT(*answers, IsEmpty()) << "answered inside the call";
  EXPECT_TRUE(stage.until([&] { return !answers->empty(); }));
  return answers->at(0);
}
Settings settingsOf(Stage& stage) {
  return answerOf<Settings>(stage, [&](auto answer) { stage.center().settings(answer); });
}
Added addTo(Stage& stage, NotificationRequest request) {
  return answerOf<Added>(stage, [&](auto answer) { stage.center().add(std::move(request), answer); });
}
bool isGranted(Stage& stage) {
  const auto ask = [&](auto answer) { stage.center().requestAuthorization({.alert = true}, answer); };
  return answerOf<NotificationCenter::Granted>(stage, ask).value();
}
NotificationRequest titled(std::string title) { return {.identifier = "id of " + title, .title = std::move(title)}; }

struct Delegate : NotificationCenterDelegate {
  PresentationOptions options{.banner = true};
  std::vector<std::string> asked;
  PresentationOptions willPresent(const NotificationRequest& request) override {
    asked.push_back(request.title);
    return options;
  }
};

class NotificationCenterContract : public ::testing::TestWithParam<std::unique_ptr<Stage> (*)()> {
 protected:
  std::unique_ptr<Stage> stage_ = GetParam()();
};

TEST_P(NotificationCenterContract, what_is_posted_is_on_the_screen_until_it_is_withdrawn) {
  EXPECT_EQ(settingsOf(*stage_), allowed);
  EXPECT_TRUE(isGranted(*stage_));
  for (const char* title : {"one", "two"}) EXPECT_EQ(addTo(*stage_, titled(title)), Added());
  EXPECT_THAT(stage_->titlesOnScreen(), ElementsAre("one", "two"));
  for (const char* title : {"one", "one", "never posted"}) {
    stage_->center().removeDelivered("id of " + std::string(title));
  }
  EXPECT_EQ(settingsOf(*stage_), allowed);
  EXPECT_THAT(stage_->titlesOnScreen(), ElementsAre("two"));
}

TEST_P(NotificationCenterContract, a_delayed_one_comes_after_its_delay_and_the_delegate_is_asked_then) {
  Delegate delegate;
  std::vector<Added> answers;
  stage_->center().setDelegate(&delegate);
  NotificationRequest late = titled("late");
  late.delay = 350ms;
  stage_->center().add(late, [&](const Added& added) { answers.push_back(added); });
  EXPECT_TRUE(stage_->until([&] { return !answers.empty(); }));
  EXPECT_THAT(answers, ElementsAre(Added())) << "taken, for the time being";
  stage_->queue.advance(349ms);
  EXPECT_EQ(settingsOf(*stage_), allowed);
  EXPECT_THAT(delegate.asked, IsEmpty());
  stage_->queue.advance(1ms);
  EXPECT_TRUE(stage_->until([&] { return !stage_->titlesOnScreen().empty(); }));
  EXPECT_THAT(delegate.asked, ElementsAre("late"));
  EXPECT_THAT(stage_->titlesOnScreen(), ElementsAre("late"));
}

TEST_P(NotificationCenterContract, only_what_the_delegate_lists_or_shows_comes_up) {
  Delegate delegate;
  stage_->center().setDelegate(&delegate);
  const std::vector<std::pair<std::string, PresentationOptions>> cases{{"nothing", {}},
                                                                       {"sound", {.sound = true}},
                                                                       {"list", {.list = true}},
                                                                       {"banner", {.banner = true, .sound = true}}};
  for (const auto& [title, options] : cases) {
    delegate.options = options;
    EXPECT_EQ(addTo(*stage_, titled(title)), Added());
  }
  EXPECT_THAT(stage_->titlesOnScreen(), ElementsAre("list", "banner"));
}

TEST_P(NotificationCenterContract, a_refusal_comes_in_its_own_words_and_nothing_is_granted_when_denied) {
  stage_->refuse("Too many notifications.");
  EXPECT_EQ(addTo(*stage_, titled("one")), Added(std::unexpected("Too many notifications.")));
  EXPECT_THAT(stage_->titlesOnScreen(), IsEmpty());
  stage_->deny();
  EXPECT_FALSE(isGranted(*stage_));
  EXPECT_EQ(settingsOf(*stage_).authorizationStatus, AuthorizationStatus::denied);
}

INSTANTIATE_TEST_SUITE_P(Both, NotificationCenterContract,
                         ::testing::Values([]() -> std::unique_ptr<Stage> { return std::make_unique<FakeStage>(); },
                                           []() -> std::unique_ptr<Stage> { return std::make_unique<BusStage>(); }),
                         [](const auto& parameter) { return parameter.index == 0 ? "fake" : "bus"; });

class NotificationsOnTheBus : public ::testing::Test {
 protected:
  void install(const std::string& program, const std::string& script) {
    stage_.programs.add(program, "#!/bin/sh\n" + script + "\n");
    ASSERT_EQ(::chmod((stage_.programs.root() / program).c_str(), 0700), 0);
  }
  fakes::NotificationServer::Note posted(const NotificationRequest& request) {
    EXPECT_EQ(addTo(stage_, request), Added());
    return server().onScreen.back();
  }
  fakes::NotificationServer& server() { return *stage_.server; }

  BusStage stage_;
};

TEST_F(NotificationsOnTheBus, each_server_keeps_its_switch_in_a_place_of_its_own) {
  const std::string application = ".application:/org/gnome/desktop/notifications/application/org-quibbly-quibbly/";
  struct Case {
    const char* server;
    std::set<std::string> switches;
    std::string falseKey;
    AlertSetting expected;
  };
  using enum AlertSetting;
  const auto cases = std::to_array<Case>({
      {"Plasma", {}, "", enabled},
      {"Plasma", {"org.freedesktop.Notifications Inhibited"}, "", disabled},
      {"dunst", {"org.dunstproject.cmd0 paused"}, "", disabled},
      {"Plasma", {"org.dunstproject.cmd0 paused", "xfce4-notifyd /do-not-disturb"}, " show-banners", enabled},
      {"Xfce Notify Daemon", {"xfce4-notifyd /do-not-disturb"}, "", disabled},
      {"gnome-shell", {}, "", enabled},
      {"gnome-shell", {}, " show-banners", disabled},
      {"gnome-shell", {}, application + " enable", disabled},
  });
  for (const auto& [name, switches, falseKey, expected] : cases) {
    server().name = name;
    server().switches = switches;
    install("gsettings", "if [ \"$*\" = 'get org.gnome.desktop.notifications" + falseKey +
                             "' ]; then echo false; else echo true; fi");
    EXPECT_EQ(settingsOf(stage_), (Settings{AuthorizationStatus::authorized, expected})) << name << falseKey;
  }
  std::filesystem::remove(stage_.programs.root() / "gsettings");
  EXPECT_EQ(settingsOf(stage_), allowed) << "without gsettings";
}

TEST_F(NotificationsOnTheBus, a_gsettings_that_hangs_is_ended_after_a_second) {
  server().name = "gnome-shell";
  install("gsettings", "echo $$ >\"${0%/*}/$3\"; exec sleep 1000");
  std::vector<Settings> answers;
  stage_.center().settings([&](const Settings& settings) { answers.push_back(settings); });
  const auto processOf = [&](const char* key) {
    return static_cast<pid_t>(readInteger(stage_.programs.root() / key).value_or(0));
  };
  ASSERT_TRUE(stage_.until([&] { return processOf("show-banners") > 0 && processOf("enable") > 0; }));
  stage_.queue.advance(999ms);
  EXPECT_THAT(answers, IsEmpty());
  stage_.queue.advance(1ms);
  EXPECT_TRUE(stage_.until([&] { return !answers.empty(); }));
  EXPECT_THAT(answers, ElementsAre(allowed));
  for (const char* key : {"show-banners", "enable"}) {
    EXPECT_TRUE(stage_.until([&] { return ::kill(processOf(key), 0) != 0; })) << "still there, or a zombie";
  }
}

TEST_F(NotificationsOnTheBus, a_notification_arrives_whole_or_not_at_all) {
  const auto note = posted({.identifier = "1",
                            .title = "a < b",
                            .body = "\"1 < 2\" & <b>so on</b> …",
                            .categoryIdentifier = "never registered",
                            .userInfo = {{"kind", "roast"}},
                            .defaultSound = true});
  EXPECT_EQ(note.summary, "a < b");
  EXPECT_EQ(note.body, "\"1 &lt; 2\" &amp; &lt;b&gt;so on&lt;/b&gt; …");
  EXPECT_THAT(note.hints,
              UnorderedElementsAre(Pair("app_name", "quibbly"), Pair("app_icon", "org.quibbly.Quibbly"),
                                   Pair("replaces_id", "0"), Pair("actions", ""), Pair("expire_timeout", "-1"),
                                   Pair("urgency", "y 1"), Pair("category", "device"),
                                   Pair("desktop-entry", "org.quibbly.Quibbly"),
                                   Pair("sound-name", "message-new-instant"), Pair("x-quibbly-kind", "roast")));
  server().takesMarkup = false;
  EXPECT_EQ(posted({.body = "1 < 2 & 3"}).body, "1 < 2 & 3");
  EXPECT_FALSE(addTo(stage_, titled("\xff"))) << "what is not text does not cost us the bus";
  EXPECT_EQ(addTo(stage_, titled("text")), Added());
}

TEST_F(NotificationsOnTheBus, levels_are_urgencies_and_sound_needs_both_the_request_and_the_delegate) {
  using enum InterruptionLevel;
  for (const auto& [level, urgency] : {std::pair(passive, "y 0"), {timeSensitive, "y 1"}, {critical, "y 2"}}) {
    const auto hints = posted({.interruptionLevel = level}).hints;
    EXPECT_EQ(hints.at("urgency"), urgency);
    EXPECT_EQ(hints.at("suppress-sound"), "b true");
  }
  Delegate silent;
  stage_.center().setDelegate(&silent);
  const auto hints = posted({.defaultSound = true}).hints;
  EXPECT_EQ(hints.at("suppress-sound"), "b true");
  EXPECT_FALSE(hints.contains("sound-name"));
}

TEST_F(NotificationsOnTheBus, servers_go_wrong_in_many_ways) {
  const Added nobody = std::unexpected("There is no notification service.");
  const Added silence = std::unexpected("The notification service does not answer.");
  struct Case {
    const char* what;
    std::function<void()> happens;
    Added added;
    Settings settings;
  };
  const auto cases = std::to_array<Case>({
      {"dies while it is used", [&] { server().diesAfter = "GetCapabilities"; }, nobody, denied},
      {"talks nonsense",
       [&] {
         stage_.restart();
         server().talksNonsense = true;
       },
       std::unexpected("The notification service answers nonsense."), allowed},
      {"hangs", [&] { server().hangs = true; }, silence, allowed},
      {"is not there", [&] { server().die(); }, nobody, denied},
      {"fails to start", [&] { stage_.daemon.offer("org.freedesktop.Notifications", "/bin/false"); }, nobody, denied},
      {"has no bus", [&] { stage_.daemon.kill(); }, nobody, denied},
  });
  for (const auto& [what, happens, added, settings] : cases) {
    happens();
    EXPECT_EQ(addTo(stage_, titled(what)), added) << what;
    EXPECT_EQ(settingsOf(stage_), settings) << what;
  }
}

TEST_F(NotificationsOnTheBus, a_server_that_started_anew_is_not_asked_to_close_what_is_not_ours) {
  EXPECT_EQ(posted(titled("ours")).number, 1U);
  server().die();
  stage_.restart();
  EXPECT_EQ(posted(titled("a stranger's")).number, 1U);
  stage_.center().removeDelivered("id of ours");
  EXPECT_EQ(settingsOf(stage_), allowed);
  EXPECT_THAT(stage_.titlesOnScreen(), ElementsAre("a stranger's"));
}

TEST_F(NotificationsOnTheBus, nobody_hears_from_a_center_that_is_gone) {
  const auto askSettings = [&] { stage_.center().settings([](Settings) { ADD_FAILURE(); }); };
  const auto add = [&] { stage_.center().add(titled("late"), [](const Added&) { ADD_FAILURE(); }); };
  using Case = std::pair<std::function<void()>, const char*>;
  for (const auto& [ask, reached] : {Case(askSettings, ""),
                                     {askSettings, "GetServerInformation"},
                                     {askSettings, "Get"},
                                     {add, ""},
                                     {add, "GetCapabilities"},
                                     {add, "Notify"}}) {
    server().calls.clear();
    ask();
    EXPECT_TRUE(!*reached || stage_.until([&] { return std::ranges::count(server().calls, reached) > 0; })) << reached;
    stage_.onBus = std::make_unique<DBusNotificationCenter>(stage_.queue, stage_.bus, "");
    EXPECT_EQ(settingsOf(stage_), allowed);
  }
}

}  // namespace
}  // namespace quibbly::linux_services
