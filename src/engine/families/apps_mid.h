#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto appsMidLines = std::to_array<std::string_view>({
    "{apps} apps. Manageable chaos. For now.",
    "App count {apps}. Mid-tier open-window lifestyle.",
    "{apps} apps running. Room for one more bad idea.",
    "{apps} open. Not a circus. Not a zen garden.",
    "Running {apps}. Soft multitasking era.",
    "{apps} apps. The calm before 30.",
});
static_assert(appsMidLines.size() == 6 && placeholdersAreKnown(appsMidLines) && isTypographic(appsMidLines));

/// A small crowd of applications.
inline constexpr Family appsMid{
    .category = "apps",
    .ruleId = "apps_mid",
    .idPrefix = "apps_m",
    .priority = 28,
    .lines = appsMidLines,
    .matches = [](const SystemSnapshot& s) { return s.runningAppCount >= 12 && s.runningAppCount < 20; }};

}  // namespace quibbly
