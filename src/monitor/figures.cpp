#include "monitor/figures.h"

#include <algorithm>
#include <cmath>

#include "records/units.h"

namespace quibbly {

double busyFraction(const ProcessorTicks& previous, const ProcessorTicks& current) {
  // Unsigned differences wrap as the counters do.
  const double user = current.user - previous.user;
  const double system = current.system - previous.system;
  const double idle = current.idle - previous.idle;
  const double nice = current.nice - previous.nice;
  const double total = user + system + idle + nice;
  if (!(total > 0.0)) return 0.0;
  return std::clamp((user + system + nice) / total, 0.0, 1.0);
}

double utilization(const MemoryUse& use) {
  if (use.physicalBytes == 0) return 0.0;
  const std::uint64_t usedBytes = use.activeBytes + use.wiredBytes + use.compressorBytes;
  return std::min(static_cast<double>(usedBytes) / static_cast<double>(use.physicalBytes), 1.0);
}

std::optional<std::int64_t> batteryLevel(const PowerSource& source) {
  if (!source.currentCapacity || source.maxCapacity.value_or(0) < 1) return source.currentCapacity;
  return wholePercent(static_cast<double>(*source.currentCapacity) / static_cast<double>(*source.maxCapacity));
}

std::optional<bool> isCharging(const PowerSource& source) {
  if (source.state) return *source.state == PowerSource::acPowerState;
  return source.isCharging;
}

RoastThermalState thermalState(int raw) {
  constexpr auto states = allCases<RoastThermalState>();
  const auto index = static_cast<std::size_t>(raw);
  return raw >= 0 && index < states.size() ? states[index] : RoastThermalState::nominal;
}

}  // namespace quibbly
