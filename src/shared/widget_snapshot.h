#pragma once

#include <cstdint>
#include <optional>

#include "records/mac_mood.h"
#include "records/system_snapshot.h"

namespace quibbly {

/// The part of a sample that a widget shows, with the mood that was made from it. Units and meanings are those of
/// `SystemSnapshot`.
struct WidgetSnapshot {
  Date capturedAt;
  double cpuUsageEstimate = 0.0;
  double memoryUtilizationEstimate = 0.0;
  std::uint64_t diskFreeBytes = 0;
  std::optional<std::int64_t> batteryLevel;
  double uptimeSeconds = 0.0;
  std::int64_t runningAppCount = 0;
  RoastThermalState thermalState = RoastThermalState::nominal;
  MacMood mood;

  [[nodiscard]] static WidgetSnapshot from(const SystemSnapshot& snapshot, const MacMood& mood) {
    return {.capturedAt = snapshot.capturedAt,
            .cpuUsageEstimate = snapshot.cpuUsage,
            .memoryUtilizationEstimate = snapshot.memoryUtilizationEstimate,
            .diskFreeBytes = snapshot.diskFreeBytes,
            .batteryLevel = snapshot.batteryLevel,
            .uptimeSeconds = snapshot.uptimeSeconds,
            .runningAppCount = snapshot.runningAppCount,
            .thermalState = snapshot.thermalState,
            .mood = mood};
  }

  /// The sample that these figures were, as far as they tell.
  [[nodiscard]] SystemSnapshot toSystemSnapshot() const {
    SystemSnapshot snapshot;
    snapshot.capturedAt = capturedAt;
    snapshot.cpuUsage = cpuUsageEstimate;
    snapshot.memoryUtilizationEstimate = memoryUtilizationEstimate;
    snapshot.diskFreeBytes = diskFreeBytes;
    snapshot.batteryLevel = batteryLevel;
    snapshot.uptimeSeconds = uptimeSeconds;
    snapshot.runningAppCount = runningAppCount;
    snapshot.thermalState = thermalState;
    return snapshot;
  }

  bool operator==(const WidgetSnapshot&) const = default;
};

}  // namespace quibbly
