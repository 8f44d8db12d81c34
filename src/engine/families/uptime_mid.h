#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"
#include "records/units.h"

namespace quibbly {

inline constexpr auto uptimeMidLines = std::to_array<std::string_view>({
    "Uptime {days} days. Warming up to a real streak.",
    "{days} days without restart. Casual defiance.",
    "Awake {days}d. Respectable. Concerning. Both.",
    "{days} days up. The plot is still early.",
    "Uptime {days} days. Not legendary. Not innocent.",
    "{days}d without reboot. Building character.",
});
static_assert(uptimeMidLines.size() == 6 && placeholdersAreKnown(uptimeMidLines) && isTypographic(uptimeMidLines));

/// A few days without a restart.
inline constexpr Family uptimeMid{.category = "uptime",
                                  .ruleId = "uptime_mid",
                                  .idPrefix = "uptime_m",
                                  .priority = 30,
                                  .lines = uptimeMidLines,
                                  .matches = [](const SystemSnapshot& s) {
                                    return wholeDays(s.uptimeSeconds) >= 3 && wholeDays(s.uptimeSeconds) < 7;
                                  }};

}  // namespace quibbly
