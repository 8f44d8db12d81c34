#include "records/units.h"

#include <array>
#include <charconv>
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

std::int64_t wholeDays(double seconds) { return truncatedToInteger(seconds / secondsPerDay); }

std::string oneDecimal(double number) {
  constexpr std::size_t longest = std::numeric_limits<double>::max_exponent10 + 5;  // sign, digits, point, decimal
  std::array<char, longest> digits{};
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed, 1).ptr;
  return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

std::int64_t wholePercent(double fraction) { return roundedToInteger(fraction * 100.0); }

}  // namespace quibbly
