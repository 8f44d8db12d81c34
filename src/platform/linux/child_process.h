#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace quibbly::linux_services {

/// Another program, started from here. It runs in a session of its own, with no signal blocked or ignored that we block or
/// ignore, and with standard streams that lead nowhere: what it prints would spoil our own output.
///
/// It runs on when this object goes, and leaves no zombie when it ends. One thread.
class ChildProcess {
 public:
  static constexpr int nowhere = -1;

  /// Looks for the program, the first of the words, in the directories of a search path such as PATH; absent when none of
  /// them has it or it cannot be started. Its standard output may be a descriptor of ours.
  [[nodiscard]] static std::optional<ChildProcess> start(std::vector<std::string> words, std::string_view searchPath,
                                                         int output = nowhere);

  ChildProcess(ChildProcess&& other) noexcept : id_(std::exchange(other.id_, 0)) {}
  ChildProcess& operator=(ChildProcess&& other) noexcept {
    std::swap(id_, other.id_);
    return *this;
  }
  ~ChildProcess();

  /// Ends it and what it started, unless it has ended.
  void kill() const;

 private:
  explicit ChildProcess(pid_t id) : id_(id) {}

  pid_t id_;  // 0 when moved away
};

}  // namespace quibbly::linux_services
