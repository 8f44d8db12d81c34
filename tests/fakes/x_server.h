#pragma once

#include <fcntl.h>
#include <iterator>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace quibbly::fakes {

/// A virtual X server of a test's own, without a window manager; it ends with the object, and with its last client.
class XServer {
 public:
  XServer() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return;
    start(ends[1]);
    ::close(ends[1]);
    if (process_ > 0) awaitDisplay(ends[0]);
    ::close(ends[0]);
  }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;
  ~XServer() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }

  /// As when it crashes.
  void kill() const { ::kill(process_, SIGKILL); }
  /// Whether the machine has the program.
  [[nodiscard]] bool installed() const { return process_ > 0; }
  /// From now on it takes connections and answers nothing, until it resumes.
  void hang() const { ::kill(process_, SIGSTOP); }
  void resume() const { ::kill(process_, SIGCONT); }
  /// Such as ":99"; empty when the server did not start.
  [[nodiscard]] const std::string& display() const { return display_; }

 private:
  void start(int displayPipe) {
    constexpr int childPipe = 3;
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, displayPipe, childPipe);
    std::string words[] = {"Xvfb", "-displayfd", "3", "-terminate", "-nolisten", "tcp", "-screen", "0", "640x480x24"};
    char* arguments[std::size(words) + 1] = {};
    for (std::size_t i = 0; i < std::size(words); ++i) arguments[i] = words[i].data();
    if (::posix_spawnp(&process_, arguments[0], &actions, nullptr, arguments, environ) != 0) process_ = 0;
    ::posix_spawn_file_actions_destroy(&actions);
  }

  /// The server writes its number and a line end once it takes connections.
  void awaitDisplay(int pipe) {
    constexpr int patience = 30'000;
    std::string number;
    pollfd ready{.fd = pipe, .events = POLLIN, .revents = 0};
    char c = 0;
    while (::poll(&ready, 1, patience) == 1 && ::read(pipe, &c, 1) == 1 && c != '\n') number += c;
    if (c == '\n') display_ = ":" + number;
  }

  pid_t process_ = 0;
  std::string display_;
};

}  // namespace quibbly::fakes
