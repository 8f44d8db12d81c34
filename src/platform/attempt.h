#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace quibbly {

/// A question put on a thread of its own, for a service that may never answer and whose library has no time limit. Used
/// from one thread.
template <typename Answer>
class Attempt {
 public:
  /// Starts at once. The work owns everything it touches: when it hangs it outlives whoever asked.
  explicit Attempt(std::move_only_function<Answer()> work) {
    std::packaged_task<Answer()> task(std::move(work));
    answer_ = task.get_future();
    try {
      std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
      // No thread can be had now. The task is gone and its promise broken.
      answer_ = {};
    }
  }

  /// The answer, for which it waits at most this long; absent when there is none yet. To be called until it has come.
  [[nodiscard]] std::optional<Answer> within(std::chrono::milliseconds limit) {
    if (!answer_.valid() || answer_.wait_for(limit) != std::future_status::ready) return std::nullopt;
    return answer_.get();
  }

  /// Whether an answer may still come.
  [[nodiscard]] bool pending() const { return answer_.valid(); }

 private:
  std::future<Answer> answer_;
};

}  // namespace quibbly
