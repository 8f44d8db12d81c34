#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <utility>

#include "platform/task_context.h"

namespace quibbly {

template <typename Result>
class Task;

namespace detail {

/// What the promises of all tasks have: the chain they belong to and the coroutine that awaits them.
class TaskPromiseBase {
 public:
  /// Hands over to whoever awaits, or to nobody.
  struct FinalAwaiter {
    FinalAwaiter() noexcept {}
    [[nodiscard]] bool await_ready() const noexcept { return false; }
    template <typename Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> self) const noexcept {
      const std::coroutine_handle<> continuation = self.promise().continuation_;
      return continuation ? continuation : std::noop_coroutine();
    }
    void await_resume() const noexcept {}
  };

  [[nodiscard]] std::suspend_always initial_suspend() const noexcept { return {}; }
  [[nodiscard]] FinalAwaiter final_suspend() const noexcept { return {}; }
  /// Failures are values here; an exception that gets this far is a fault of ours.
  [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }

  [[nodiscard]] TaskContext& context() const { return *context_; }
  void setContext(TaskContext& context) { context_ = &context; }
  void setContinuation(std::coroutine_handle<> continuation) { continuation_ = continuation; }

 private:
  TaskContext* context_ = nullptr;
  std::coroutine_handle<> continuation_;
};

template <typename Result>
class TaskPromise : public TaskPromiseBase {
 public:
  [[nodiscard]] Task<Result> get_return_object();
  void return_value(Result result) { result_ = std::move(result); }
  // NOLINTNEXTLINE(bugprone-unchecked-optional-access): asked once the coroutine has returned
  [[nodiscard]] Result takeResult() { return std::move(*result_); }

 private:
  std::optional<Result> result_;
};

template <>
class TaskPromise<void> : public TaskPromiseBase {
 public:
  [[nodiscard]] Task<void> get_return_object();
  void return_void() const {}
  void takeResult() const {}
};

}  // namespace detail

/// A coroutine on the main queue. It starts when it is awaited or launched, belongs to whoever holds it, and is destroyed
/// with its owner wherever it stands. It must be awaited on the main thread, once.
///
/// g++ 12 destroys some temporaries of a coroutine call twice: name arguments that are made of braces, lambdas or a
/// conditional expression first, then move them into the call.
template <typename Result = void>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::TaskPromise<Result>;
  using Handle = std::coroutine_handle<promise_type>;

  explicit Task(Handle coroutine) : coroutine_(coroutine) {}
  Task(Task&& other) noexcept : coroutine_(std::exchange(other.coroutine_, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    std::swap(coroutine_, other.coroutine_);
    return *this;
  }
  ~Task() {
    if (coroutine_) coroutine_.destroy();
  }

  class Awaiter {
   public:
    explicit Awaiter(Handle child) : child_(child) {}
    [[nodiscard]] bool await_ready() const noexcept { return false; }
    template <typename Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> parent) {
      child_.promise().setContext(parent.promise().context());
      child_.promise().setContinuation(parent);
      return child_;
    }
    Result await_resume() { return child_.promise().takeResult(); }

   private:
    Handle child_;
  };

  [[nodiscard]] Awaiter operator co_await() && { return Awaiter(coroutine_); }

  /// For `launch`: the coroutine, still owned by the task.
  [[nodiscard]] Handle coroutine() const { return coroutine_; }

 private:
  Handle coroutine_;
};

template <typename Result>
Task<Result> detail::TaskPromise<Result>::get_return_object() {
  return Task<Result>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

inline Task<void> detail::TaskPromise<void>::get_return_object() {
  return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

}  // namespace quibbly
