#include "platform/main_queue.h"

#include "platform/launched_tasks.h"

namespace quibbly {

MainQueue::MainQueue() : tasks_(std::make_unique<LaunchedTasks>()) {}
MainQueue::~MainQueue() = default;

void MainQueue::dropTasks() { tasks_->drop(); }

}  // namespace quibbly
