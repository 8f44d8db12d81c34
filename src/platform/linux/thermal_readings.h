#pragma once

#include <filesystem>

#include "platform/linux/thermal_level.h"

namespace quibbly::linux_services {

/// The processor's temperatures below ROOT/sys/class/{hwmon,thermal}. The sensor is the first with a believable reading
/// of: hwmon coretemp's package, k10temp's or zenpower's Tdie or Tctl (some processors add an offset to the latter),
/// cpu_thermal; the thermal zones x86_pkg_temp, cpu_thermal, acpitz. The zones are all those of the processor. Whether it
/// is throttled is not looked at.
[[nodiscard]] ThermalFigures readTemperatures(const std::filesystem::path& root);

}  // namespace quibbly::linux_services
