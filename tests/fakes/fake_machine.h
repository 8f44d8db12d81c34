#pragma once

#include <string>
#include <thread>
#include <vector>

#include "fakes/fixed_clock.h"
#include "platform/home_volume.h"
#include "platform/low_power_mode.h"
#include "platform/memory_statistics.h"
#include "platform/power_sources.h"
#include "platform/processor_statistics.h"
#include "platform/running_applications.h"
#include "platform/thermal_pressure.h"
#include "platform/uptime.h"

namespace quibbly::fakes {

/// Every service that a sample asks, with answers as the test sets them and a note of who was asked and on which thread.
struct FakeMachine final : ProcessorStatistics,
                           MemoryStatistics,
                           HomeVolume,
                           PowerSources,
                           RunningApplications,
                           ThermalPressure,
                           Uptime,
                           LowPowerMode {
  FixedClock clock;
  std::optional<ProcessorTicks> processor;
  MemoryReading memory;
  std::optional<VolumeCapacity> volume;
  std::optional<std::vector<PowerSource>> power;
  std::optional<ApplicationsReading> applications;
  int thermal = 0;
  std::chrono::duration<double> up{0};
  std::optional<bool> lowPower;

  std::vector<std::string> asked;
  std::thread::id askedOn;

  std::optional<ProcessorTicks> ticks() override { return note("processor", processor); }
  MemoryReading statistics() override { return note("memory", memory); }
  std::optional<VolumeCapacity> capacity() override { return note("volume", volume); }
  std::optional<std::vector<PowerSource>> sources() override { return note("power", power); }
  std::optional<ApplicationsReading> running() override { return note("applications", applications); }
  int state() override { return note("thermal", thermal); }
  std::chrono::duration<double> sinceBoot() override { return note("uptime", up); }
  std::optional<bool> enabled() override { return note("low power", lowPower); }

 private:
  template <typename Answer>
  Answer note(const char* service, const Answer& answer) {
    asked.emplace_back(service);
    askedOn = std::this_thread::get_id();
    return answer;
  }
};

}  // namespace quibbly::fakes
