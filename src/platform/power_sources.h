#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quibbly {

/// What the system tells of one power source; absent fields are those it does not tell.
struct PowerSource {
  static constexpr std::string_view internalBatteryType = "InternalBattery";
  static constexpr std::string_view upsType = "UPS";
  static constexpr std::string_view acPowerState = "AC Power";
  static constexpr std::string_view batteryPowerState = "Battery Power";

  std::optional<std::string> type;
  /// In the unit of `maxCapacity`; percent when that is absent.
  std::optional<std::int64_t> currentCapacity;
  std::optional<std::int64_t> maxCapacity;
  /// What the machine runs on, as this source sees it.
  std::optional<std::string> state;
  std::optional<bool> isCharging;

  bool operator==(const PowerSource&) const = default;
};

/// One reading of every power source; asked on the monitor's thread.
class PowerSources {
 public:
  virtual ~PowerSources() = default;
  /// Sources in the system's order; empty when there are none; absent when the system gives no answer.
  [[nodiscard]] virtual std::optional<std::vector<PowerSource>> sources() = 0;
};

}  // namespace quibbly
