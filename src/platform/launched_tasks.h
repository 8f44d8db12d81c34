#pragma once

#include <list>
#include <memory>

#include "platform/task.h"

namespace quibbly {

/// Cancels a launched task. May be kept, copied and used after the task has ended; it does not own it. Main thread.
class TaskHandle {
 public:
  TaskHandle() = default;
  explicit TaskHandle(std::weak_ptr<TaskContext> context) : context_(std::move(context)) {}

  /// Wakes the sleep that the task is in, and lets every later one end at once. The task goes on to its own end.
  void cancel() const {
    if (const auto context = context_.lock()) context->cancel();
  }

 private:
  std::weak_ptr<TaskContext> context_;
};

/// The tasks that run on a queue for nobody but themselves. Main thread.
class LaunchedTasks {
 public:
  TaskHandle add(MainQueue& queue, Task<> task);
  /// Destroys every task where it stands.
  void drop();

 private:
  struct Launched {
    std::shared_ptr<TaskContext> context;
    std::unique_ptr<Task<>> root;
  };
  using Place = std::list<Launched>::iterator;

  static Task<> run(LaunchedTasks& tasks, Place place, Task<> task);

  std::list<Launched> launched_;
};

/// Starts the task from the queue's next turn on. It ends by itself, or is destroyed with the queue.
inline TaskHandle launch(MainQueue& queue, Task<> task) { return queue.tasks().add(queue, std::move(task)); }

}  // namespace quibbly
