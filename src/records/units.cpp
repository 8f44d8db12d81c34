#include "records/units.h"

#include <cmath>
#include <limits>

namespace quibbly {

std::int64_t truncatedToInteger(double number) {
  using Limits = std::numeric_limits<std::int64_t>;
  constexpr double firstTooLarge = 0x1p63;
  if (std::isnan(number)) return 0;
  if (number >= firstTooLarge) return Limits::max();
  if (number < -firstTooLarge) return Limits::min();
  return static_cast<std::int64_t>(number);
}

std::int64_t roundedToInteger(double number) { return truncatedToInteger(std::round(number)); }

std::int64_t wholeDays(double seconds) {
  constexpr double secondsPerDay = 86400.0;
  return truncatedToInteger(seconds / secondsPerDay);
}

std::int64_t wholePercent(double fraction) { return roundedToInteger(fraction * 100.0); }

}  // namespace quibbly
