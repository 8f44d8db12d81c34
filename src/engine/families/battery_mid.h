#pragma once

#include <array>
#include <string_view>

#include "engine/families/battery_conditions.h"
#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto batteryMidLines = std::to_array<std::string_view>({
    "Battery {battery}%. Not emergency. Not smart either.",
    "{battery}% — the awkward middle of battery denial.",
    "Power at {battery}%. Still time to pretend this is fine.",
    "{battery}% remaining. Future-you will be annoyed.",
    "{battery}%. The plot thickens slowly.",
    "{battery}%. A gentle reminder that physics exists.",
    "Power {battery}%. Consider an outlet before it becomes content.",
    "{battery}% left. Not heroic. Just predictable.",
});
static_assert(batteryMidLines.size() == 8 && placeholdersAreKnown(batteryMidLines) && isTypographic(batteryMidLines));

/// A half-empty battery. Left out whole on a machine without a battery.
inline constexpr Family batteryMid{
    .category = "battery",
    .ruleId = "battery_mid",
    .idPrefix = "battery_m",
    .priority = 40,
    .lines = batteryMidLines,
    .matches =
        [](const SystemSnapshot& s) { return *s.batteryLevel >= 15 && *s.batteryLevel < 30 && isDischarging(s); },
    .exists = hasBattery};

}  // namespace quibbly
