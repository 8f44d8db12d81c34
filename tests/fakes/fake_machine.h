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

/// Answers of every service that a sample asks, as the test sets them, with a note of who was asked and on which thread.
struct FakeMachine {
  FixedClock clock;
  std::optional<ProcessorTicks> ticks;
  MemoryReading memory;
  std::optional<VolumeCapacity> volume;
  std::optional<std::vector<PowerSource>> powerSources;
  std::optional<ApplicationsReading> applications;
  int thermal = 0;
  std::chrono::duration<double> up{0};
  std::optional<bool> lowPower;

  std::vector<std::string> asked;
  std::thread::id askedOn;

  template <typename Answer>
  Answer note(const char* service, const Answer& answer) {
    asked.emplace_back(service);
    askedOn = std::this_thread::get_id();
    return answer;
  }
};

/// One service of the fake machine.
template <typename Service>
struct FakeService : Service {
  explicit FakeService(FakeMachine& m) : machine(m) {}
  FakeMachine& machine;
};

struct FakeProcessor : FakeService<ProcessorStatistics> {
  using FakeService::FakeService;
  std::optional<ProcessorTicks> ticks() override { return machine.note("processor", machine.ticks); }
};

struct FakeMemory : FakeService<MemoryStatistics> {
  using FakeService::FakeService;
  MemoryReading read() override { return machine.note("memory", machine.memory); }
};

struct FakeVolume : FakeService<HomeVolume> {
  using FakeService::FakeService;
  std::optional<VolumeCapacity> capacity() override { return machine.note("volume", machine.volume); }
};

struct FakePower : FakeService<PowerSources> {
  using FakeService::FakeService;
  std::optional<std::vector<PowerSource>> sources() override { return machine.note("power", machine.powerSources); }
};

struct FakeApplications : FakeService<RunningApplications> {
  using FakeService::FakeService;
  std::optional<ApplicationsReading> read() override { return machine.note("applications", machine.applications); }
};

struct FakeThermal : FakeService<ThermalPressure> {
  using FakeService::FakeService;
  int state() override { return machine.note("thermal", machine.thermal); }
};

struct FakeUptime : FakeService<Uptime> {
  using FakeService::FakeService;
  std::chrono::duration<double> sinceBoot() override { return machine.note("uptime", machine.up); }
};

struct FakeLowPower : FakeService<LowPowerMode> {
  using FakeService::FakeService;
  std::optional<bool> enabled() override { return machine.note("low power", machine.lowPower); }
};

}  // namespace quibbly::fakes
