#pragma once

#include <nlohmann/json.hpp>

#include "records/mac_mood.h"
#include "records/system_snapshot.h"

namespace quibbly {

/// The sample under the names of its fields, and the mood under "mood". Absent values are left out.
[[nodiscard]] nlohmann::json sampleJson(const SystemSnapshot& snapshot, const MacMood& mood);

}  // namespace quibbly
