#include "platform/linux/thermal_level_tracker.h"

#include <algorithm>
#include <utility>

namespace quibbly::linux_services {

ThermalLevel ThermalLevelTracker::next(const ThermalFigures& figures) {
  constexpr MilliCelsius hysteresis = 3000;
  const ThermalLevel sample = levelOf(figures);
  const ThermalLevel shownTwice = std::min(sample, std::exchange(previousSample_, sample));
  // A warmer sample is never the milder one, so the bounds are in order.
  level_ = std::clamp(level_, shownTwice, levelOf(figures, hysteresis));
  return level_;
}

}  // namespace quibbly::linux_services
