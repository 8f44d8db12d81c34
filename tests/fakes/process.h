#pragma once

#include <csignal>
#include <sys/types.h>
#include <sys/wait.h>
#include <utility>

namespace quibbly::fakes {

/// A program that was started, killed with this object unless it was waited for. What `fork` gave for a failure is a
/// process that never ran.
class Process {
 public:
  explicit Process(pid_t pid) : pid_(pid) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() { (void)end(SIGKILL); }

  /// Not above 0 once it was waited for.
  [[nodiscard]] pid_t pid() const { return pid_; }
  [[nodiscard]] bool runs() const {
    siginfo_t ended{};
    return pid_ > 0 && ::waitid(P_PID, static_cast<id_t>(pid_), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           ended.si_pid == 0;
  }
  void tell(int signal) const {
    if (pid_ > 0) (void)::kill(pid_, signal);
  }
  /// Waits for its end; the exit status, or the signal's number below zero.
  int wait() {
    int status = -1;
    if (pid_ > 0) (void)::waitpid(std::exchange(pid_, 0), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }
  int end(int signal) {
    tell(signal);
    return wait();
  }

 private:
  pid_t pid_;
};

}  // namespace quibbly::fakes
