#pragma once

#include <functional>
#include <vector>

#include "records/system_snapshot.h"

namespace quibbly::fakes {

/// A machine with nothing to complain about: every sub-score of its mood is 0 and no condition of a family holds.
inline SystemSnapshot quietSample() {
  SystemSnapshot sample;
  sample.memoryUtilizationEstimate = 0.5;
  sample.diskFreeBytes = 500'000'000'000;
  sample.diskTotalBytes = 1'000'000'000'000;
  sample.batteryLevel = 80;
  sample.isCharging = false;
  sample.uptimeSeconds = 86'400;
  sample.runningAppCount = 8;
  return sample;
}

/// What makes a sample less quiet: a row of a table names its changes.
using Change = std::function<void(SystemSnapshot&)>;

/// Sets a field.
template <typename Member, typename Value>
Change set(Member SystemSnapshot::* field, Value value) {
  return [=](SystemSnapshot& sample) { sample.*field = static_cast<Member>(value); };
}

inline Change all(std::vector<Change> changes) {
  return [=](SystemSnapshot& sample) {
    for (const Change& change : changes) change(sample);
  };
}

}  // namespace quibbly::fakes
