#pragma once

#include <string>

#include "records/mac_mood.h"
#include "records/system_snapshot.h"

namespace quibbly {

/// Every field of the sample and the mood for people: one line each, names and values aligned, units named, a dash for
/// what is absent.
[[nodiscard]] std::string sampleText(const SystemSnapshot& snapshot, const MacMood& mood);

}  // namespace quibbly
