#pragma once

#include <array>
#include <string_view>

#include "engine/families/battery_conditions.h"
#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto batteryLowLines = std::to_array<std::string_view>({
    "{battery}% battery. Your energy strategy is faith-based.",
    "Battery at {battery}%. The charger is two metres away. Rooting for you.",
    "{battery}% left. Low Power Mode is not a personality — but it might become one.",
    "Power remaining: {battery}%. Bold. Reckless. On brand.",
    "{battery}% and climbing… wait, no. Just declining. With confidence.",
    "Battery {battery}%. Your outlet is not a suggestion.",
    "{battery}% left. The battery icon is doing interpretive dance.",
    "Power: {battery}%. This is how thrillers start.",
    "{battery}% remaining. Optimism is not a charging cable.",
    "{battery}%. Your Mac is packing a bag.",
    "{battery}%. Even the menu bar is nervous.",
    "Power level: {battery}%. You are speedrunning a shutdown.",
    "{battery}% battery. The red zone is not a fashion choice.",
    "Only {battery}% left. Plug in or write the apology email now.",
    "{battery}%. The charger misses you. Allegedly.",
    "{battery}%. Your Mac has entered ‘final boss’ energy.",
});
static_assert(batteryLowLines.size() == 16 && placeholdersAreKnown(batteryLowLines) && isTypographic(batteryLowLines));

/// A nearly empty battery with no charger in sight. Left out whole on a machine without a battery.
inline constexpr Family batteryLow{
    .category = "battery",
    .ruleId = "battery_low",
    .idPrefix = "battery_",
    .priority = 95,
    .lines = batteryLowLines,
    .matches = [](const SystemSnapshot& s) { return *s.batteryLevel < 15 && isDischarging(s); },
    .exists = hasBattery};

}  // namespace quibbly
