#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto ramMidLines = std::to_array<std::string_view>({
    "RAM ~{ram}%. Warming up for worse decisions.",
    "Memory {ram}%. Comfortably full, spiritually empty.",
    "{ram}% RAM. Not a crisis. Not a flex.",
    "RAM estimate {ram}%. Room for one more mistake.",
    "{ram}% used. The slope is visible from here.",
    "Memory {ram}%. Your Mac is politely concerned.",
    "{ram}%. Mid-tier chaos. Respectable.",
    "RAM ~{ram}%. Still time to close something. You won’t.",
});
static_assert(ramMidLines.size() == 8 && placeholdersAreKnown(ramMidLines) && isTypographic(ramMidLines));

/// Memory filling up.
inline constexpr Family ramMid{.category = "ram",
                               .ruleId = "ram_mid",
                               .idPrefix = "ram_m",
                               .priority = 35,
                               .lines = ramMidLines,
                               .matches = [](const SystemSnapshot& s) {
                                 return s.memoryUtilizationEstimate > 0.7 && s.memoryUtilizationEstimate <= 0.85;
                               }};

}  // namespace quibbly
