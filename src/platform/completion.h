#pragma once

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/task.h"

namespace quibbly {

/// Awaits an answer that comes by a call: `co_await Completion<int>(start)`. `start` is called at once with a function
/// that takes the answer; that function may be called on any thread, at once or later, and only its first call counts.
/// The task goes on from the queue's next turn, never inside the call. An answer to a task that is gone is dropped. A
/// cancellation does not end the wait: whoever answers must have a time limit of its own.
template <typename Answer>
class [[nodiscard]] Completion {
 public:
  using Answerer = std::function<void(Answer)>;
  using Start = std::move_only_function<void(Answerer)>;

  explicit Completion(Start start) : start_(std::move(start)) {}
  Completion(const Completion&) = delete;
  Completion& operator=(const Completion&) = delete;
  ~Completion() {
    if (waiting_) waiting_->waiter = nullptr;
  }

  [[nodiscard]] bool await_ready() const noexcept { return false; }
  template <typename Promise>
  void await_suspend(std::coroutine_handle<Promise> waiter) {
    waiting_ = std::make_shared<Waiting>();
    waiting_->waiter = waiter;
    MainQueue& queue = waiter.promise().context().queue();
    start_([waiting = waiting_, &queue](Answer answer) {
      queue.post([waiting, answer = std::move(answer)]() mutable { waiting->finish(std::move(answer)); });
    });
  }
  // NOLINTNEXTLINE(bugprone-unchecked-optional-access): it resumes with an answer or not at all
  [[nodiscard]] Answer await_resume() { return std::move(*waiting_->answer); }

 private:
  /// Touched on the main thread only.
  struct Waiting {
    std::coroutine_handle<> waiter;  // null once it was answered or is gone
    std::optional<Answer> answer;

    void finish(Answer given) {
      if (!waiter) return;
      answer = std::move(given);
      std::exchange(waiter, nullptr).resume();
    }
  };

  Start start_;
  std::shared_ptr<Waiting> waiting_;
};

}  // namespace quibbly
