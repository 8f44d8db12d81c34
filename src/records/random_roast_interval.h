#pragma once

#include <array>
#include <cstdint>

#include "records/raw_values.h"

namespace quibbly {

/// How often the random roast timer fires. The raw value is minutes, and is stored.
enum class RandomRoastInterval { off, oneMinute, fiveMinutes, fifteenMinutes, thirtyMinutes, sixtyMinutes };

template <>
inline constexpr auto rawValues<RandomRoastInterval> = std::to_array<RawValue<RandomRoastInterval, std::int64_t>>({
    {RandomRoastInterval::off, 0, "Off"},
    {RandomRoastInterval::oneMinute, 1, "Every 1 minute"},
    {RandomRoastInterval::fiveMinutes, 5, "Every 5 minutes"},
    {RandomRoastInterval::fifteenMinutes, 15, "Every 15 minutes"},
    {RandomRoastInterval::thirtyMinutes, 30, "Every 30 minutes"},
    {RandomRoastInterval::sixtyMinutes, 60, "Every 60 minutes"},
});

/// The interval that a stored number of minutes means; `off` for a number that is none of the raw values.
[[nodiscard]] constexpr RandomRoastInterval randomRoastIntervalFromStored(std::int64_t minutes) {
  return fromRawValue<RandomRoastInterval>(minutes).value_or(RandomRoastInterval::off);
}

}  // namespace quibbly
