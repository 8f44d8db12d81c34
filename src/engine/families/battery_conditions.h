#pragma once

#include "records/system_snapshot.h"

namespace quibbly {

[[nodiscard]] constexpr bool hasBattery(const SystemSnapshot& s) { return s.batteryLevel.has_value(); }

/// Not known to be on external power.
[[nodiscard]] constexpr bool isDischarging(const SystemSnapshot& s) { return s.isCharging != true; }

}  // namespace quibbly
