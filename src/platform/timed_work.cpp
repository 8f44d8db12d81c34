#include "platform/timed_work.h"

namespace quibbly {

MainQueue::TimerId TimedWork::add(ContinuousClock::time_point deadline, MainQueue::Work work) {
  const MainQueue::TimerId timer{++lastTimer_};
  work_.emplace(Place{deadline, timer}, std::move(work));
  deadlines_.emplace(timer, deadline);
  return timer;
}

void TimedWork::cancel(MainQueue::TimerId timer) {
  const auto found = deadlines_.find(timer);
  if (found == deadlines_.end()) return;
  const Place place{found->second, timer};
  deadlines_.erase(found);
  // The work is dropped last: what it owns may cancel other timers.
  const auto dropped = work_.extract(place);
}

std::optional<ContinuousClock::time_point> TimedWork::nextDeadline() const {
  if (work_.empty()) return std::nullopt;
  return work_.begin()->first.first;
}

std::optional<MainQueue::Work> TimedWork::takeDue(ContinuousClock::time_point now) {
  if (work_.empty() || work_.begin()->first.first > now) return std::nullopt;
  auto due = work_.extract(work_.begin());
  deadlines_.erase(due.key().second);
  return std::move(due.mapped());
}

}  // namespace quibbly
