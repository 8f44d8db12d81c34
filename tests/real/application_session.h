#pragma once

#include <cstdlib>
#include <functional>
#include <string>
#include <unistd.h>
#include <utility>

#include <gtest/gtest.h>

#include "fakes/file_tree.h"
#include "fakes/manual_queue.h"
#include "fakes/notification_server.h"
#include "fakes/private_bus.h"
#include "fakes/process.h"
#include "fakes/published_home.h"

namespace quibbly::fakes {

/// A session of its own: a home that was used before, a bus, a desktop with notifications.
class ApplicationSession : public ::testing::Test {
 protected:
  ApplicationSession() {
    home_.store.publish(LastRoast{.text = "Published before."}, {});
    for (const auto& [name, value] : {std::pair{"XDG_DATA_HOME", path("data")},
                                      {"XDG_CONFIG_HOME", path("config")},
                                      {"XDG_RUNTIME_DIR", tree_.root().string()},
                                      {"DBUS_SESSION_BUS_ADDRESS", daemon_.address()},
                                      {"LC_ALL", std::string("en_GB.UTF-8")},
                                      {"TZ", std::string("Europe/London")},
                                      {"TERM", std::string("xterm")}}) {
      ::setenv(name, value.c_str(), 1);
    }
    ::unsetenv("DISPLAY");
  }

  [[nodiscard]] std::string path(const char* name) const { return (tree_.root() / name).string(); }
  [[nodiscard]] std::string output() const { return contentOf(tree_.root() / "output"); }

  pid_t start(const std::string& words, const std::string& to = "", const std::string& program = QUIBBLY_PROGRAM) {
    const std::string command = "exec '" + program + "' " + words + " >>" + path("output") + " 2>&1 </dev/null " + to;
    const pid_t child = ::fork();
    if (child == 0) {
      ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      ::_exit(127);
    }
    return child;
  }
  int run(const std::string& words, const std::string& to = "") { return Process(start(words, to)).wait(); }

  /// Lets the desktop work until something holds.
  bool until(const std::function<bool()>& holds) {
    return queue_.until([&] {
      server_.serve();
      return holds();
    });
  }
  bool untilSaid(const std::string& text) {
    const bool said = until([&] { return output().find(text) != std::string::npos; });
    EXPECT_TRUE(said) << text << "\n" << output();
    return said;
  }

  FileTree tree_;
  PrivateBus daemon_;
  PublishedHome home_{tree_.root()};
  NotificationServer server_{daemon_.address()};
  ManualQueue queue_;
};

}  // namespace quibbly::fakes
