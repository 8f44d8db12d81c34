#include "platform/launched_tasks.h"

namespace quibbly {

TaskHandle LaunchedTasks::add(MainQueue& queue, Task<> task) {
  const Place place = launched_.emplace(launched_.end(), std::make_shared<TaskContext>(queue), nullptr);
  place->root = std::make_unique<Task<>>(run(*this, place, std::move(task)));
  const auto coroutine = place->root->coroutine();
  coroutine.promise().setContext(*place->context);
  const std::weak_ptr<TaskContext> context = place->context;
  queue.post([context, coroutine] {
    if (!context.expired()) coroutine.resume();
  });
  return TaskHandle(context);
}

void LaunchedTasks::drop() {
  // A task that goes may hold the last reference to what launched another one.
  while (!launched_.empty()) launched_.pop_front();
}

Task<> LaunchedTasks::run(LaunchedTasks& tasks, Place place, Task<> task) {
  TaskContext& context = *place->context;
  co_await std::move(task);
  // A coroutine cannot destroy itself while it runs: its entry goes with the queue's next turn.
  context.queue().post([&tasks, place, alive = std::weak_ptr(place->context)] {
    if (!alive.expired()) tasks.launched_.erase(place);
  });
}

}  // namespace quibbly
