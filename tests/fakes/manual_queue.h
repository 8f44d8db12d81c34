#pragma once

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <poll.h>
#include <utility>

#include "fakes/until.h"
#include "platform/main_queue.h"
#include "platform/timed_work.h"

namespace quibbly::fakes {

/// A main queue whose clock stands still until the test moves it.
class ManualQueue : public MainQueue {
 public:
  ~ManualQueue() override {
    dropTasks();
    for (bool isLeft = true; isLeft;) {
      const auto posted = std::exchange(posted_, {});
      const auto timed = timed_.takeDue(ContinuousClock::time_point::max());
      isLeft = !posted.empty() || timed;
    }
  }

  void post(Work work) override {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
  }
  TimerId runAt(ContinuousClock::time_point deadline, Work work) override {
    return timed_.add(deadline, std::move(work));
  }
  void cancel(TimerId timer) override { timed_.cancel(timer); }
  void watch(int descriptor, std::function<void()> work) override { watches_[descriptor] = std::move(work); }
  void unwatch(int descriptor) override { watches_.erase(descriptor); }
  [[nodiscard]] ContinuousClock::time_point now() const override { return now_; }

  /// How long there is nothing to do, if nothing is posted and nothing comes to be read.
  [[nodiscard]] std::optional<ContinuousClock::duration> untilNext() const {
    const auto next = timed_.nextDeadline();
    return next ? std::optional(*next - now_) : std::nullopt;
  }

  /// How much waits for its turn or its time.
  [[nodiscard]] std::size_t waiting() const { return posted_.size() + timed_.size(); }

  /// Runs what is posted, due or can be read, until nothing of it is left.
  void run() {
    while (runPosted() || runDue() || runReadable()) {
    }
  }

  /// Runs, in real time, until something holds that another process or thread brings about; false when it never does.
  bool until(const std::function<bool()>& holds) {
    return fakes::until([&] {
      run();
      return holds();
    });
  }

  /// Moves the clock from deadline to deadline up to the duration's end, running what comes due on the way.
  void advance(ContinuousClock::duration duration) {
    const auto end = now_ + duration;
    run();
    while (timed_.nextDeadline() && *timed_.nextDeadline() <= end) {
      now_ = std::max(now_, *timed_.nextDeadline());
      run();
    }
    now_ = end;
  }

  /// Moves the clock in one jump, as a machine does that slept, and only then runs what is overdue.
  void jump(ContinuousClock::duration duration) {
    now_ += duration;
    run();
  }

 private:
  bool runPosted() {
    std::unique_lock lock(mutex_);
    if (posted_.empty()) return false;
    auto turn = std::exchange(posted_, {});
    lock.unlock();
    for (auto& work : turn) work();
    return true;
  }
  bool runDue() {
    auto work = timed_.takeDue(now_);
    if (work) (*work)();
    return work.has_value();
  }

  bool runReadable() {
    for (const auto& [descriptor, work] : std::map(watches_)) {
      pollfd asked{.fd = descriptor, .events = POLLIN, .revents = 0};
      if (::poll(&asked, 1, 0) != 1 || !watches_.contains(descriptor)) continue;
      work();
      return true;
    }
    return false;
  }

  std::map<int, std::function<void()>> watches_;
  std::mutex mutex_;
  std::deque<Work> posted_;
  TimedWork timed_;
  ContinuousClock::time_point now_{};
};

}  // namespace quibbly::fakes
