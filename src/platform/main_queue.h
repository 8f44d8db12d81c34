#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/continuous_clock.h"

namespace quibbly {

class LaunchedTasks;

/// The main thread's work, in order. All state of the model lives on it.
///
/// Posted work runs in the order of posting, timed work in the order of its deadlines, and among equal deadlines in the
/// order of scheduling. Work never runs inside the call that hands it over. Work that still waits when the queue goes is
/// dropped, and with it the tasks that were launched on the queue.
class MainQueue {
 public:
  using Work = std::move_only_function<void()>;
  /// Names scheduled work; never given twice.
  enum class TimerId : std::uint64_t {};

  MainQueue();
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;
  virtual ~MainQueue();

  /// Any thread.
  virtual void post(Work work) = 0;
  /// Runs the work once the deadline is reached; a deadline that has passed is reached. Main thread.
  virtual TimerId runAt(ContinuousClock::time_point deadline, Work work) = 0;
  /// Drops the work unless it ran already. Main thread.
  virtual void cancel(TimerId timer) = 0;
  /// Runs the work whenever the descriptor has something to read, until `unwatch`: the work must read it, or is run again.
  /// One watch a descriptor. Main thread.
  virtual void watch(int descriptor, std::function<void()> work) = 0;
  /// No call comes after this; also the work itself may say so. Main thread.
  virtual void unwatch(int descriptor) = 0;
  [[nodiscard]] virtual ContinuousClock::time_point now() const = 0;

  /// The tasks that live on this queue; see `launch`.
  [[nodiscard]] LaunchedTasks& tasks() { return *tasks_; }

 protected:
  /// To be called first by the destructor of every implementation: tasks that go may still cancel their timers.
  void dropTasks();

 private:
  std::unique_ptr<LaunchedTasks> tasks_;
};

}  // namespace quibbly
