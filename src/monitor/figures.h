#pragma once

#include <cstdint>
#include <optional>

#include "platform/memory_statistics.h"
#include "platform/power_sources.h"
#include "platform/processor_statistics.h"
#include "records/roast_thermal_state.h"

namespace quibbly {

/// Fraction 0 to 1 of the ticks between two readings that were not idle; 0 when no tick passed. A counter far
/// below its last reading has wrapped; one a little below it counts as unchanged.
[[nodiscard]] double busyFraction(const ProcessorTicks& previous, const ProcessorTicks& current);

/// Fraction 0 to 1 of physical memory in use; 0 when its size is unknown.
[[nodiscard]] double utilization(const MemoryUse& use);

/// Percent of charge; absent when the source does not tell.
[[nodiscard]] std::optional<std::int64_t> batteryLevel(const PowerSource& source);

/// Whether the source says that the machine is on external power; absent when it does not tell.
[[nodiscard]] std::optional<bool> isCharging(const PowerSource& source);

/// The state that a number of `ThermalPressure` means.
[[nodiscard]] RoastThermalState thermalState(int raw);

}  // namespace quibbly
