#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"
#include "records/units.h"

namespace quibbly {

inline constexpr auto uptimeLongLines = std::to_array<std::string_view>({
    "{days} days without a restart. Stability or update dread?",
    "Uptime: {days} days. Restarting is not a moral failure.",
    "{days} days awake. This Mac remembers when the project was ‘simple’.",
    "{days}-day streak. The kernel has Stockholm syndrome.",
    "{days} days. Updates are stacking like unread messages.",
    "Uptime {days}d. Your Mac has seen things.",
    "{days} days without rest. Heroes rest. You don’t.",
    "Still up for {days} days. The reboot button is lonely.",
    "{days}-day uptime. Legend, or liability.",
    "Awake {days} days. Memory leaks are writing poetry.",
    "{days} days. Even the clock feels judgmental.",
    "Uptime: {days} days. Fresh start is free. Emotionally expensive.",
    "{days} days online. Your Mac deserves a spa day.",
    "No restart in {days} days. Bold energy.",
    "{days}d uptime. The loginwindow has tenure.",
    "Still going: {days} days. Patch Tuesday is a suggestion.",
});
static_assert(uptimeLongLines.size() == 16 && placeholdersAreKnown(uptimeLongLines) && isTypographic(uptimeLongLines));

/// A week or more without a restart.
inline constexpr Family uptimeLong{.category = "uptime",
                                   .ruleId = "uptime_long",
                                   .idPrefix = "uptime_",
                                   .priority = 70,
                                   .lines = uptimeLongLines,
                                   .matches = [](const SystemSnapshot& s) { return wholeDays(s.uptimeSeconds) > 6; }};

}  // namespace quibbly
