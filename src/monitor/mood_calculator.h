#pragma once

#include "records/mac_mood.h"
#include "records/system_snapshot.h"

/// Turns a sample into a mood: a weighted mean of sub-scores for memory, heat, disk, uptime, applications and, where there
/// is one, the battery.
namespace quibbly::MoodCalculator {

/// Equal samples give bit-equal scores. Pure; any thread.
[[nodiscard]] MacMood score(const SystemSnapshot& snapshot);

}  // namespace quibbly::MoodCalculator
