#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "platform/linux/thermal_level_tracker.h"
#include "platform/thermal_pressure.h"

namespace quibbly::linux_services {

/// Whether a total of milliseconds spent throttled says that the processor is throttled now: it grew by more than a
/// second between two samples, so samples closer than that never show it. A total that is missing or went backwards says
/// nothing. Only the first processor's counter is read: all cores of a package share its total.
[[nodiscard]] bool isThrottled(std::optional<std::int64_t> before, std::optional<std::int64_t> now);

/// The processor's temperature sensors, trip points and throttling below ROOT/sys. One call is one sample, and a level
/// above nominal takes two of them.
class ThermalSensors : public ThermalPressure {
 public:
  explicit ThermalSensors(std::filesystem::path root = "/");
  [[nodiscard]] int state() override;

 private:
  [[nodiscard]] bool sampleThrottling();

  std::filesystem::path root_;
  std::optional<std::int64_t> throttledMilliseconds_;
  ThermalLevelTracker tracker_;
};

}  // namespace quibbly::linux_services
