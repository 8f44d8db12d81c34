#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "platform/main_queue.h"

namespace quibbly {

/// Scheduled work by deadline; the part that every implementation of `MainQueue` shares. One thread.
class TimedWork {
 public:
  MainQueue::TimerId add(ContinuousClock::time_point deadline, MainQueue::Work work);
  void cancel(MainQueue::TimerId timer);

  /// The earliest deadline; absent when nothing is scheduled.
  [[nodiscard]] std::optional<ContinuousClock::time_point> nextDeadline() const;

  /// How much is scheduled.
  [[nodiscard]] std::size_t size() const { return work_.size(); }

  /// Takes the first work whose deadline is not after `now`; absent when there is none.
  [[nodiscard]] std::optional<MainQueue::Work> takeDue(ContinuousClock::time_point now);

 private:
  using Place = std::pair<ContinuousClock::time_point, MainQueue::TimerId>;

  std::map<Place, MainQueue::Work> work_;
  std::map<MainQueue::TimerId, ContinuousClock::time_point> deadlines_;
  std::uint64_t lastTimer_ = 0;
};

}  // namespace quibbly
