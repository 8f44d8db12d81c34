#pragma once

#include <memory>

#include "platform/main_queue.h"

namespace quibbly::qt_services {

/// The main queue on Qt's event loop. Made on the main thread, while there is a QCoreApplication. Its clock counts on while
/// the machine sleeps; Qt's own timers would stop.
class QtMainQueue : public MainQueue {
 public:
  QtMainQueue();
  ~QtMainQueue() override;

  void post(Work work) override;
  TimerId runAt(ContinuousClock::time_point deadline, Work work) override;
  void cancel(TimerId timer) override;
  void watch(int descriptor, std::function<void()> work) override;
  void unwatch(int descriptor) override;
  [[nodiscard]] ContinuousClock::time_point now() const override;

 private:
  class Loop;
  std::unique_ptr<Loop> loop_;
};

}  // namespace quibbly::qt_services
