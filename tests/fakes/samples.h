#pragma once

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

}  // namespace quibbly::fakes
