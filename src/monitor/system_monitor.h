#pragma once

#include <future>
#include <optional>

#include "monitor/snapshot_source.h"
#include "platform/home_volume.h"
#include "platform/low_power_mode.h"
#include "platform/memory_statistics.h"
#include "platform/power_sources.h"
#include "platform/processor_statistics.h"
#include "platform/running_applications.h"
#include "platform/serial_queue.h"
#include "platform/thermal_pressure.h"
#include "platform/uptime.h"
#include "platform/wall_clock.h"
#include "records/system_snapshot.h"

namespace quibbly {

/// Takes samples of the machine, one at a time, on a thread of its own. It is the only caller of the services it is
/// handed, and calls them on that thread only.
class SystemMonitor final : public SnapshotSource {
 public:
  SystemMonitor(const WallClock& clock, ProcessorStatistics& processor, MemoryStatistics& memory, HomeVolume& home,
                PowerSources& power, RunningApplications& applications, ThermalPressure& thermal, Uptime& uptime,
                LowPowerMode& lowPower);

  /// What a service does not tell is 0 or absent. The first sample's `cpuUsage` is 0, later ones measure since the last
  /// tick reading that worked.
  void captureSnapshot(Answer answer) override;
  /// The same for a thread that may wait. A sample that is never taken leaves a broken promise.
  [[nodiscard]] std::future<SystemSnapshot> captureSnapshot();

 private:
  [[nodiscard]] SystemSnapshot capture();
  [[nodiscard]] double sampleCPUUsage();
  void sampleMemoryUtilization(SystemSnapshot& snapshot);
  void sampleDisk(SystemSnapshot& snapshot);
  void sampleBattery(SystemSnapshot& snapshot);
  void sampleApplications(SystemSnapshot& snapshot);

  const WallClock& clock_;
  ProcessorStatistics& processor_;
  MemoryStatistics& memory_;
  HomeVolume& home_;
  PowerSources& power_;
  RunningApplications& applications_;
  ThermalPressure& thermal_;
  Uptime& uptime_;
  LowPowerMode& lowPower_;
  std::optional<ProcessorTicks> previousCPUTicks_;
  SerialQueue queue_;  // last: its thread is gone before anything that it uses
};

}  // namespace quibbly
