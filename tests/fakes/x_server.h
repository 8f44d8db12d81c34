#pragma once

#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <string>
#include <unistd.h>

#include "fakes/process.h"

namespace quibbly::fakes {

/// A virtual X server of a test's own, without a window manager; it ends with the object, and with its last client.
class XServer {
 public:
  XServer() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return;
    const std::string command = "exec Xvfb -displayfd " + std::to_string(ends[1]) +
                                " -terminate -nolisten tcp -screen 0 640x480x24 2>/dev/null";
    server_.emplace(::fork());
    if (server_->pid() == 0) {
      (void)::fcntl(ends[1], F_SETFD, 0);
      ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(ends[1]);
    awaitDisplay(ends[0]);
    ::close(ends[0]);
  }

  /// As when it crashes.
  void kill() const { server_->tell(SIGKILL); }
  /// Whether the machine has the program, and it came up.
  [[nodiscard]] bool runs() const { return !display_.empty(); }
  /// From now on it takes connections and answers nothing, until it resumes.
  void hang() const { server_->tell(SIGSTOP); }
  void resume() const { server_->tell(SIGCONT); }
  /// Such as ":99"; empty when the server did not start.
  [[nodiscard]] const std::string& display() const { return display_; }

 private:
  /// The server writes its number and a line end once it takes connections.
  void awaitDisplay(int pipe) {
    constexpr int patience = 30'000;
    std::string number;
    pollfd ready{.fd = pipe, .events = POLLIN, .revents = 0};
    char c = 0;
    while (::poll(&ready, 1, patience) == 1 && ::read(pipe, &c, 1) == 1 && c != '\n') number += c;
    if (c == '\n') display_ = ":" + number;
  }

  std::optional<Process> server_;
  std::string display_;
};

}  // namespace quibbly::fakes
