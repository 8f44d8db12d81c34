#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "records/date.h"
#include "records/roast_thermal_state.h"

namespace quibbly {

/// One sample of the machine. An absent value is one that the machine does not have or would not tell.
struct SystemSnapshot {
  /// When the sample was started.
  Date capturedAt;
  /// Fraction 0 to 1 of processor time that was busy since the previous sample.
  double cpuUsage = 0.0;
  /// Fraction 0 to 1 of physical memory in use.
  double memoryUtilizationEstimate = 0.0;
  /// Swap in use, bytes.
  std::optional<std::uint64_t> swapUsedBytes;
  /// Free space of the volume that holds the home directory, bytes; 0 when unknown.
  std::uint64_t diskFreeBytes = 0;
  /// Total size of that volume, bytes.
  std::optional<std::uint64_t> diskTotalBytes;
  /// Charge of the internal battery, percent, normally 0 to 100.
  std::optional<std::int64_t> batteryLevel;
  /// Whether the machine is on external power.
  std::optional<bool> isCharging;
  /// Seconds since boot.
  double uptimeSeconds = 0.0;
  /// Ordinary applications running: those that a person would say are open.
  std::int64_t runningAppCount = 0;
  /// How many of those are known web browsers.
  std::int64_t browserCount = 0;
  /// How many of those are known Electron-based applications.
  std::int64_t electronAppCount = 0;
  /// Display name of the application in front.
  std::optional<std::string> frontmostAppName;
  std::optional<std::string> frontmostBundleIdentifier;
  RoastThermalState thermalState = RoastThermalState::nominal;
  bool lowPowerMode = false;

  bool operator==(const SystemSnapshot&) const = default;
};

}  // namespace quibbly
