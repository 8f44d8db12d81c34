#pragma once

#include <chrono>

namespace quibbly {

/// Moments of the clock that counts on while the machine sleeps and is never set: what deadlines are made of.
struct ContinuousClock {
  using duration = std::chrono::nanoseconds;
  using rep = duration::rep;
  using period = duration::period;
  using time_point = std::chrono::time_point<ContinuousClock>;
  static constexpr bool is_steady = true;
};

}  // namespace quibbly
