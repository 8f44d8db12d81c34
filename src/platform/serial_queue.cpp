#include "platform/serial_queue.h"

#include <utility>

namespace quibbly {

SerialQueue::SerialQueue() : thread_([this](const std::stop_token& stop) { run(stop); }) {}

SerialQueue::~SerialQueue() = default;  // thread_ stands last: it is stopped and joined before the rest goes

void SerialQueue::post(Work work) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(work));
  }
  changed_.notify_one();
}

void SerialQueue::run(const std::stop_token& stop) {
  while (true) {
    Work work;
    {
      std::unique_lock lock(mutex_);
      if (!changed_.wait(lock, stop, [this] { return !waiting_.empty(); }) || stop.stop_requested()) return;
      work = std::move(waiting_.front());
      waiting_.pop_front();
    }
    work();
  }
}

}  // namespace quibbly
