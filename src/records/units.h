#pragma once

#include <cstdint>
#include <string>

namespace quibbly {

inline constexpr double secondsPerDay = 86400.0;

/// Decimal gigabytes, the unit that free space is shown and compared in.
[[nodiscard]] constexpr double gigabytes(std::uint64_t bytes) { return static_cast<double>(bytes) / 1'000'000'000.0; }

/// The number without its fraction. A number too large for the integer gives the nearest one there is, and a number that
/// is none gives 0.
[[nodiscard]] std::int64_t truncatedToInteger(double number);

/// The nearest integer, halves away from zero; the same at the limits as `truncatedToInteger`.
[[nodiscard]] std::int64_t roundedToInteger(double number);

/// Whole days of a length of time, the started one left out; the same at the limits as `truncatedToInteger`.
[[nodiscard]] std::int64_t wholeDays(double seconds);

/// The number with one decimal and a point, whatever the locale.
[[nodiscard]] std::string oneDecimal(double number);

/// A fraction as whole percent, halves away from zero; the same at the limits as `truncatedToInteger`.
[[nodiscard]] std::int64_t wholePercent(double fraction);

}  // namespace quibbly
