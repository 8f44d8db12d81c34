#pragma once

#include <utility>

#include "platform/main_queue.h"

namespace quibbly {

/// What all coroutines of one chain of awaits share: the queue they run on and whether they were cancelled. Main thread.
class TaskContext {
 public:
  explicit TaskContext(MainQueue& queue) : queue_(queue) {}

  [[nodiscard]] MainQueue& queue() { return queue_; }
  [[nodiscard]] bool cancelled() const { return cancelled_; }

  /// Marks the chain and wakes the sleep that it is in.
  void cancel() {
    cancelled_ = true;
    if (auto wake = std::exchange(wake_, nullptr)) wake();
  }

  /// What a cancellation does to the sleep that begins; nothing when it has ended.
  void onCancel(MainQueue::Work wake) { wake_ = std::move(wake); }

 private:
  MainQueue& queue_;
  bool cancelled_ = false;
  MainQueue::Work wake_;
};

}  // namespace quibbly
