#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace quibbly {

/// A thread that runs what it is handed, one after the other, in the order of posting. Work still waiting when the queue
/// is destroyed is dropped; the work that is running is waited for.
class SerialQueue {
 public:
  using Work = std::move_only_function<void()>;

  SerialQueue();
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;
  ~SerialQueue();

  /// Any thread. The work must not throw.
  void post(Work work);

 private:
  void run(const std::stop_token& stop);

  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<Work> waiting_;
  std::jthread thread_;
};

}  // namespace quibbly
