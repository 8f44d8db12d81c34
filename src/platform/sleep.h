#pragma once

#include <coroutine>

#include "platform/task.h"

namespace quibbly {

/// What `sleepFor` gives to `co_await`.
class [[nodiscard]] Sleep {
 public:
  explicit Sleep(ContinuousClock::duration duration) : duration_(duration) {}
  Sleep(const Sleep&) = delete;
  Sleep& operator=(const Sleep&) = delete;
  ~Sleep() { end(); }

  [[nodiscard]] bool await_ready() const noexcept { return false; }
  template <typename Promise>
  bool await_suspend(std::coroutine_handle<Promise> sleeper) {
    return begin(sleeper.promise().context(), sleeper);
  }
  void await_resume() { end(); }

 private:
  /// False when there is nothing to wait for.
  bool begin(TaskContext& context, std::coroutine_handle<> sleeper);
  void end();

  ContinuousClock::duration duration_;
  TaskContext* context_ = nullptr;  // while asleep
  MainQueue::TimerId timer_{};
};

/// Suspends the task for a duration of the continuous clock. A cancellation ends the sleep early, and a task that was
/// cancelled before does not sleep at all.
inline Sleep sleepFor(ContinuousClock::duration duration) { return Sleep(duration); }

/// What `isCancelled` gives to `co_await`.
class [[nodiscard]] CancellationQuery {
 public:
  CancellationQuery() {}
  [[nodiscard]] bool await_ready() const noexcept { return false; }
  template <typename Promise>
  bool await_suspend(std::coroutine_handle<Promise> asker) {
    cancelled_ = asker.promise().context().cancelled();
    return false;
  }
  [[nodiscard]] bool await_resume() const noexcept { return cancelled_; }

 private:
  bool cancelled_ = false;
};

/// Whether the task was cancelled; loops ask at the top of each pass. Does not suspend.
inline CancellationQuery isCancelled() { return {}; }

}  // namespace quibbly
