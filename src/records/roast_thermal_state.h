#pragma once

#include <array>
#include <string_view>

#include "records/raw_values.h"

namespace quibbly {

/// Thermal pressure of the machine, in rising order. The raw value is also how roast lines print it.
enum class RoastThermalState { nominal, fair, serious, critical };

template <>
inline constexpr auto rawValues<RoastThermalState> = std::to_array<RawValue<RoastThermalState, std::string_view>>({
    {RoastThermalState::nominal, "nominal", "nominal"},
    {RoastThermalState::fair, "fair", "fair"},
    {RoastThermalState::serious, "serious", "serious"},
    {RoastThermalState::critical, "critical", "critical"},
});

}  // namespace quibbly
