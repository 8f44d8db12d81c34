#include "platform/linux/thermal_sensors.h"

#include <utility>

#include "platform/linux/small_files.h"
#include "platform/linux/thermal_readings.h"

namespace quibbly::linux_services {

bool isThrottled(std::optional<std::int64_t> before, std::optional<std::int64_t> now) {
  constexpr std::int64_t second = 1000;
  return before && now && *before >= 0 && *now > *before && *now - *before > second;
}

ThermalSensors::ThermalSensors(std::filesystem::path root) : root_(std::move(root)) {}

int ThermalSensors::state() {
  ThermalFigures figures = readTemperatures(root_);
  figures.throttled = sampleThrottling();
  return std::to_underlying(tracker_.next(figures));
}

bool ThermalSensors::sampleThrottling() {
  const auto now = readInteger(root_ / "sys/devices/system/cpu/cpu0/thermal_throttle/package_throttle_total_time_ms");
  return isThrottled(std::exchange(throttledMilliseconds_, now), now);
}

}  // namespace quibbly::linux_services
