#include "monitor/figures.h"

#include <algorithm>

#include "records/units.h"

namespace quibbly {
namespace {

/// Unsigned differences wrap as the counters do. One of more than half the range is a counter that stepped back a little,
/// as the kernel's waiting time does: it did not grow.
double growth(std::uint32_t previous, std::uint32_t current) {
  constexpr std::uint32_t halfRange = 0x8000'0000;
  const std::uint32_t difference = current - previous;
  return difference < halfRange ? difference : 0;
}

}  // namespace

double busyFraction(const ProcessorTicks& previous, const ProcessorTicks& current) {
  const double user = growth(previous.user, current.user);
  const double system = growth(previous.system, current.system);
  const double idle = growth(previous.idle, current.idle);
  const double nice = growth(previous.nice, current.nice);
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
  const std::int64_t whole = source.maxCapacity.value_or(0);
  if (!source.currentCapacity || whole < 1) return source.currentCapacity;
  return wholePercent(static_cast<double>(*source.currentCapacity) / static_cast<double>(whole));
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
