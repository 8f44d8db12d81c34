#include "platform/sleep.h"

namespace quibbly {

bool Sleep::begin(TaskContext& context, std::coroutine_handle<> sleeper) {
  if (context.cancelled()) return false;
  context_ = &context;
  MainQueue& queue = context.queue();
  timer_ = queue.runAt(queue.now() + duration_, [sleeper] { sleeper.resume(); });
  context.onCancel([this, &queue, sleeper] {
    queue.cancel(timer_);
    timer_ = queue.runAt(queue.now(), [sleeper] { sleeper.resume(); });
  });
  return true;
}

void Sleep::end() {
  if (context_ == nullptr) return;
  context_->queue().cancel(timer_);
  context_->onCancel(nullptr);
  context_ = nullptr;
}

}  // namespace quibbly
