#include "monitor/system_monitor.h"

#include <algorithm>
#include <utility>

#include "monitor/application_sets.h"
#include "monitor/figures.h"

namespace quibbly {

SystemMonitor::SystemMonitor(const WallClock& clock, ProcessorStatistics& processor, MemoryStatistics& memory,
                             HomeVolume& home, PowerSources& power, RunningApplications& applications,
                             ThermalPressure& thermal, Uptime& uptime, LowPowerMode& lowPower)
    : clock_(clock),
      processor_(processor),
      memory_(memory),
      home_(home),
      power_(power),
      applications_(applications),
      thermal_(thermal),
      uptime_(uptime),
      lowPower_(lowPower) {}

void SystemMonitor::captureSnapshot(Answer answer) {
  queue_.post([this, answer = std::move(answer)] { answer(capture()); });
}

std::future<SystemSnapshot> SystemMonitor::captureSnapshot() {
  std::packaged_task<SystemSnapshot()> task([this] { return capture(); });
  std::future<SystemSnapshot> snapshot = task.get_future();
  queue_.post(std::move(task));
  return snapshot;
}

SystemSnapshot SystemMonitor::capture() {
  SystemSnapshot snapshot;
  snapshot.capturedAt = clock_.now();
  snapshot.cpuUsage = sampleCPUUsage();
  sampleMemoryUtilization(snapshot);
  sampleDisk(snapshot);
  sampleBattery(snapshot);
  sampleApplications(snapshot);
  snapshot.thermalState = thermalState(thermal_.state());
  snapshot.uptimeSeconds = uptime_.sinceBoot().count();
  snapshot.lowPowerMode = lowPower_.enabled().value_or(false);
  return snapshot;
}

double SystemMonitor::sampleCPUUsage() {
  const auto current = processor_.ticks();
  if (!current) return 0.0;
  const auto previous = std::exchange(previousCPUTicks_, current);
  return previous ? busyFraction(*previous, *current) : 0.0;
}

void SystemMonitor::sampleMemoryUtilization(SystemSnapshot& snapshot) {
  const MemoryReading reading = memory_.statistics();
  snapshot.memoryUtilizationEstimate = reading.use ? utilization(*reading.use) : 0.0;
  snapshot.swapUsedBytes = reading.swapUsedBytes;
}

void SystemMonitor::sampleDisk(SystemSnapshot& snapshot) {
  const VolumeCapacity capacity = home_.capacity().value_or(VolumeCapacity{});
  snapshot.diskFreeBytes = capacity.availableBytes.value_or(0);
  snapshot.diskTotalBytes = capacity.totalBytes;
}

void SystemMonitor::sampleBattery(SystemSnapshot& snapshot) {
  const auto sources = power_.sources();
  if (!sources) return;
  const auto battery = std::ranges::find_if(
      *sources, [](const PowerSource& source) { return source.type == PowerSource::internalBatteryType; });
  if (battery == sources->end()) return;
  snapshot.batteryLevel = batteryLevel(*battery);
  snapshot.isCharging = isCharging(*battery);
}

void SystemMonitor::sampleApplications(SystemSnapshot& snapshot) {
  const auto reading = applications_.running();
  if (!reading) return;
  for (const RunningApplication& application : reading->running) {
    if (application.policy != ActivationPolicy::regular) continue;
    ++snapshot.runningAppCount;
    if (!application.bundleIdentifier) continue;
    if (isBrowser(*application.bundleIdentifier)) ++snapshot.browserCount;
    if (isElectron(*application.bundleIdentifier)) ++snapshot.electronAppCount;
  }
  if (!reading->frontmost) return;
  snapshot.frontmostAppName = reading->frontmost->localizedName;
  snapshot.frontmostBundleIdentifier = reading->frontmost->bundleIdentifier;
}

}  // namespace quibbly
