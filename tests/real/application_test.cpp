// The built application on a bus with a notification server, as a user's session has them.

#include <chrono>
#include <pty.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/dbus_cross_process_center.h"
#include "real/application_session.h"
#include "shared/pending_notify_queue.h"
#include "shared/roast_request_queue.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;
using fakes::Process;
using linux_services::SessionBus;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using Application = fakes::ApplicationSession;

TEST_F(Application, answers_widgets_and_urls_within_the_limits_and_goes_on_after_a_crash) {
  ASSERT_EQ(run("prefs dailyRoastLimit 1 --int"), 0);
  auto application = std::make_unique<Process>(start(""));
  ASSERT_TRUE(untilSaid("Notify budget: 0/1 today"));

  SessionBus bus(queue_, daemon_.address());
  linux_services::DBusCrossProcessCenter center(bus);
  PendingNotifyQueue(home_.storage, home_.files, center, home_.clock).enqueue("A title", "From <a> widget", "ram");
  ASSERT_TRUE(untilSaid("Desktop toast + notification (1/1 today)."));
  ASSERT_EQ(server_.onScreen.size(), 1U);
  EXPECT_EQ(server_.onScreen[0].summary, "A title");
  EXPECT_EQ(server_.onScreen[0].body, "From &lt;a&gt; widget");
  EXPECT_EQ(server_.onScreen[0].hints["category"], "device");

  ASSERT_FALSE(
      home_.storage.write(RoastRequest{.createdAt = home_.clock.now(), .source = "test"}, "roastRequest.json"));
  center.post(RoastRequestQueue::darwinName);
  ASSERT_TRUE(untilSaid("Daily roast limit reached (1/1)."));

  ASSERT_EQ(run("prefs dailyRoastLimit 2 --int"), 0);
  EXPECT_EQ(run("quibbly://roast"), 0);
  ASSERT_TRUE(untilSaid("Desktop toast + notification (2/2 today)."));
  ASSERT_EQ(server_.onScreen.size(), 2U);
  EXPECT_EQ(server_.onScreen[1].summary, "Your Mac would like a word");
  EXPECT_EQ(server_.onScreen[1].body, home_.store.lastRoast()->text);

  ASSERT_EQ(run("prefs pauseRoastsUntil 4102444800 --double"), 0);
  EXPECT_EQ(run("quibbly://roast"), 0);
  ASSERT_TRUE(untilSaid("Paused until 1 Jan 2100, 00:00"));

  EXPECT_EQ(run(""), 0);
  EXPECT_THAT(output(), HasSubstr("quibbly is running already"));
  application->end(SIGKILL);
  application = std::make_unique<Process>(start(""));
  EXPECT_TRUE(untilSaid("Notify budget: 2/2 today"));
  const auto told = std::chrono::steady_clock::now();
  EXPECT_EQ(application->end(SIGTERM), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - told, 1s);
}

TEST_F(Application, goes_on_after_its_bus_and_its_container_were_lost) {
  Process application(start(""));
  ASSERT_TRUE(untilSaid("Notify budget: 0/3 today"));
  daemon_.kill();
  std::error_code ignored;
  std::filesystem::remove_all(home_.containerURL, ignored);
  daemon_.start();
  fakes::NotificationServer server(daemon_.address());
  const auto untilShown = [&](std::size_t count) {
    return until([&] {
      server.serve();
      return server.onScreen.size() == count;
    });
  };
  // It finds its way back to the bus when it next says something there.
  ASSERT_TRUE(until([&] { return std::filesystem::exists(home_.containerURL); }));
  const PendingNotify pending{.title = "A title", .body = "A body", .category = "ram", .createdAt = home_.clock.now()};
  ASSERT_FALSE(home_.storage.write(pending, "pendingNotify.json"));
  ASSERT_TRUE(untilShown(1)) << output();
  EXPECT_EQ(run("quibbly://roast"), 0);
  ASSERT_TRUE(untilShown(2)) << output();
  EXPECT_EQ(server.onScreen[1].body, home_.store.lastRoast()->text);
  EXPECT_EQ(application.end(SIGTERM), 0);
}

TEST_F(Application, without_a_bus_runs_alone_and_keeps_the_second_out) {
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
  Process application(start(""));
  ASSERT_TRUE(untilSaid("Mac Mood: "));
  EXPECT_EQ(run(""), 1);
  EXPECT_THAT(output(), HasSubstr("quibbly: another quibbly is running"));
  const PendingNotify pending{.title = "A title", .body = "body", .category = "ram", .createdAt = home_.clock.now()};
  ASSERT_FALSE(home_.storage.write(pending, "pendingNotify.json"));
  EXPECT_TRUE(untilSaid("Notifications denied. System Settings → Notifications → quibbly."));
  EXPECT_EQ(application.end(SIGINT), 0);
}

TEST_F(Application, the_program_for_widgets_tells_the_bus_once_and_redraws_five_times) {
  SessionBus bus(queue_, daemon_.address());
  int requests = 0;
  int redraws = 0;
  bool ready = false;
  bus.subscribe("type='signal',interface='org.quibbly.Quibbly',member='roastRequest'", [&] { ++requests; });
  bus.subscribe("type='signal',interface='org.quibbly.WidgetCenter1',member='ReloadAllTimelines'", [&] { ++redraws; });
  bus.call(bus.newCall("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId"),
           [&](sd_bus_message*) { ready = true; });
  ASSERT_TRUE(until([&] { return ready; }));
  EXPECT_EQ(Process(start("--verbose", "", QUIBBLY_ROAST_ME)).wait(), 0);
  EXPECT_TRUE(until([&] { return requests == 1 && redraws == 5; })) << requests << " and " << redraws;
  EXPECT_EQ(output(), home_.store.lastRoast()->text + "\n");
}

TEST_F(Application, says_that_nobody_can_read_its_output) {
  EXPECT_EQ(run("", ">/dev/full"), 1);
  EXPECT_THAT(output(), StartsWith("quibbly: cannot write to standard output"));
}

TEST_F(Application, is_a_terminals_where_the_display_that_is_wished_for_is_not_there) {
  for (const char* wish : {"xcb", "wayland", "wayland;xcb"}) {
    ::setenv("QT_QPA_PLATFORM", wish, 1);
    Process application(start(""));
    EXPECT_TRUE(untilSaid("Published before.")) << wish;
    EXPECT_EQ(application.end(SIGTERM), 0) << output();
    std::filesystem::remove(path("output"));
  }
  ::unsetenv("QT_QPA_PLATFORM");
}

TEST_F(Application, is_used_by_keys_on_a_terminal) {
  int user = -1;
  const pid_t child = ::forkpty(&user, nullptr, nullptr, nullptr);
  if (child == 0) {
    ::execl(QUIBBLY_PROGRAM, QUIBBLY_PROGRAM, "--terminal", nullptr);
    ::_exit(127);
  }
  Process application(child);
  std::string screen;
  const auto see = [&](const std::string& text) {
    screen.clear();
    return until([&] {
      char bytes[4096];
      pollfd asked{.fd = user, .events = POLLIN, .revents = 0};
      if (::poll(&asked, 1, 0) > 0) {
        const ssize_t got = ::read(user, bytes, sizeof bytes);
        if (got > 0) screen.append(bytes, static_cast<std::size_t>(got));
      }
      return screen.find(text) != std::string::npos;
    });
  };
  const auto type = [&](char key) { EXPECT_EQ(::write(user, &key, 1), 1); };
  EXPECT_TRUE(see("Notify budget: 0/3 today"));
  type('p');
  EXPECT_TRUE(see("Paused until "));
  type('u');
  EXPECT_TRUE(see("Roasts resumed."));
  type('c');
  EXPECT_TRUE(see("Copied."));
  type('q');
  EXPECT_TRUE(see("\x1b[?1049l"));
  EXPECT_EQ(application.wait(), 0);
  ::close(user);
}

}  // namespace
}  // namespace quibbly
