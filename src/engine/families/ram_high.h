#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto ramHighLines = std::to_array<std::string_view>({
    "RAM estimate {ram}%. {browsers} browsers open. The internet remains unchanged.",
    "{ram}% RAM. Your browsers are treating memory as communal property.",
    "Memory estimate {ram}%. Swap is doing unpaid overtime.",
    "{ram}% RAM used. You bought the chips; Chrome adopted them.",
    "RAM ~{ram}%. Somewhere a tab is essential. The other 200 are vibes.",
    "Memory pressure cosplay at {ram}%.",
    "{ram}% RAM. Your Mac is subletting itself to Electron.",
    "RAM {ram}%. The free list is a myth you tell at parties.",
    "{ram}% full. Swap filed for hazard pay.",
    "Memory at {ram}%. Please stop opening ‘just one more’ app.",
    "{ram}% RAM. Your machine is buffering reality.",
    "RAM estimate {ram}%. The kernel is taking deep breaths.",
    "{ram}%. This is how civilizations decline: one tab at a time.",
    "Memory {ram}%. Your Mac would like a smaller internet.",
    "{ram}% used. Activity Monitor is judging you silently.",
    "RAM {ram}%. The pagefile is writing a novel.",
    "{ram}%. Free memory left the group chat.",
    "Memory estimate {ram}%. Bold strategy for a laptop.",
    "{ram}% RAM. Even Spotlight is tired.",
    "RAM ~{ram}%. You are stress-testing the price of unified memory.",
});
static_assert(ramHighLines.size() == 20 && placeholdersAreKnown(ramHighLines) && isTypographic(ramHighLines));

/// Memory all but full. Compares the fraction itself, not the rounded percentage of the line.
inline constexpr Family ramHigh{.category = "ram",
                                .ruleId = "ram_high",
                                .idPrefix = "ram_",
                                .priority = 90,
                                .lines = ramHighLines,
                                .matches = [](const SystemSnapshot& s) { return s.memoryUtilizationEstimate > 0.85; }};

}  // namespace quibbly
