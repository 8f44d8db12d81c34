#include "monitor/system_monitor.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_machine.h"

namespace quibbly {
namespace {

using ::testing::ElementsAre;

constexpr auto full = std::numeric_limits<std::uint32_t>::max();

class Monitor : public ::testing::Test {
 protected:
  SystemSnapshot capture() { return monitor_.captureSnapshot().get(); }

  double loadBetween(const ProcessorTicks& first, const ProcessorTicks& second) {
    machine_.processor = first;
    (void)capture();
    machine_.processor = second;
    return capture().cpuUsage;
  }

  fakes::FakeMachine machine_;
  SystemMonitor monitor_{machine_.clock, machine_, machine_, machine_, machine_,
                         machine_,       machine_, machine_, machine_};
};

TEST_F(Monitor, asks_each_service_once_on_a_thread_of_its_own_and_one_that_tells_nothing_gives_a_neutral_sample) {
  SystemSnapshot neutral;
  neutral.capturedAt = machine_.clock.time;
  EXPECT_EQ(capture(), neutral);
  EXPECT_THAT(machine_.asked,
              ElementsAre("processor", "memory", "volume", "power", "applications", "thermal", "uptime", "low power"));
  EXPECT_NE(machine_.askedOn, std::this_thread::get_id());
}

TEST_F(Monitor, fills_every_field_from_its_service) {
  using namespace std::chrono_literals;
  machine_.memory = {.use = MemoryUse{.activeBytes = 20, .wiredBytes = 10, .compressorBytes = 5, .physicalBytes = 70},
                     .swapUsedBytes = 7};
  machine_.volume = VolumeCapacity{.availableBytes = 11, .totalBytes = 22};
  machine_.power = {{.type = "UPS", .currentCapacity = 1, .maxCapacity = 100, .state = "AC Power"},
                    {.type = "InternalBattery", .currentCapacity = 45, .maxCapacity = 90, .state = "Battery Power"},
                    {.type = "InternalBattery", .currentCapacity = 2, .maxCapacity = 100}};
  machine_.applications = ApplicationsReading{
      .running = {{.bundleIdentifier = "org.mozilla.firefox"},
                  {.bundleIdentifier = "org.mozilla.firefox"},
                  {.policy = ActivationPolicy::accessory, .bundleIdentifier = "com.google.Chrome"},
                  {.bundleIdentifier = "com.spotify.client"},
                  {.bundleIdentifier = "com.Spotify.Client"},
                  {.bundleIdentifier = std::nullopt}},
      .frontmost = FrontmostApplication{.localizedName = "Feuerfuchs", .bundleIdentifier = std::nullopt}};
  machine_.thermal = 3;
  machine_.up = 90s;
  machine_.lowPower = true;

  SystemSnapshot expected;
  expected.capturedAt = machine_.clock.time;
  expected.memoryUtilizationEstimate = 0.5;
  expected.swapUsedBytes = 7;
  expected.diskFreeBytes = 11;
  expected.diskTotalBytes = 22;
  expected.batteryLevel = 50;
  expected.isCharging = false;
  expected.uptimeSeconds = 90;
  expected.runningAppCount = 5;
  expected.browserCount = 2;
  expected.electronAppCount = 1;
  expected.frontmostAppName = "Feuerfuchs";
  expected.thermalState = RoastThermalState::critical;
  expected.lowPowerMode = true;
  EXPECT_EQ(capture(), expected);
}

TEST_F(Monitor, load_is_the_share_of_ticks_that_were_not_idle) {
  struct Case {
    const char* what;
    ProcessorTicks first, second;
    double load;
  };
  const Case cases[] = {
      {"half busy, nice counts", {0, 0, 0, 0}, {30, 10, 50, 10}, 0.5},
      {"nothing passed", {5, 5, 5, 5}, {5, 5, 5, 5}, 0.0},
      {"a counter wrapped", {full - 9, 0, 0, 0}, {10, 0, 20, 0}, 0.5},
      {"idle time stepped back", {0, 0, 100, 0}, {50, 0, 99, 0}, 1.0},
  };
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(loadBetween(c.first, c.second), c.load) << c.what;
  }
}

TEST_F(Monitor, the_first_sample_has_no_load_and_a_failed_tick_read_measures_from_the_last_good_one) {
  machine_.processor = ProcessorTicks{100, 0, 100, 0};
  EXPECT_EQ(capture().cpuUsage, 0.0);
  machine_.processor.reset();
  EXPECT_EQ(capture().cpuUsage, 0.0);
  machine_.processor = ProcessorTicks{130, 0, 110, 0};
  EXPECT_DOUBLE_EQ(capture().cpuUsage, 0.75);
}

TEST_F(Monitor, figures_without_a_meaning_are_neutral_or_as_large_as_may_be) {
  machine_.memory.use = MemoryUse{.activeBytes = 50, .wiredBytes = 0, .compressorBytes = 0, .physicalBytes = 0};
  machine_.thermal = -1;
  SystemSnapshot sample = capture();
  EXPECT_EQ(sample.memoryUtilizationEstimate, 0.0);
  EXPECT_EQ(sample.thermalState, RoastThermalState::nominal);
  machine_.memory.use->physicalBytes = 40;
  machine_.thermal = 2;
  EXPECT_EQ(capture().thermalState, RoastThermalState::serious);
  machine_.thermal = 4;
  sample = capture();
  EXPECT_EQ(sample.memoryUtilizationEstimate, 1.0);
  EXPECT_EQ(sample.thermalState, RoastThermalState::nominal);
}

TEST_F(Monitor, the_battery_is_read_from_whatever_it_tells) {
  struct Case {
    const char* what;
    PowerSource source;
    std::optional<std::int64_t> level;
    std::optional<bool> charging;
  };
  const std::string battery = "InternalBattery";
  const Case cases[] = {
      {"no maximum", {.type = battery, .currentCapacity = 45}, 45, {}},
      {"a maximum of nothing", {.type = battery, .currentCapacity = 45, .maxCapacity = 0}, 45, {}},
      {"half a percent", {.type = battery, .currentCapacity = 1, .maxCapacity = 200}, 1, {}},
      {"only a maximum", {.type = battery, .maxCapacity = 200}, {}, {}},
      {"external power", {.type = battery, .state = "AC Power", .isCharging = false}, {}, true},
      {"any other state wins over charging", {.type = battery, .state = "Off Line", .isCharging = true}, {}, false},
      {"charging, no state", {.type = battery, .isCharging = true}, {}, true},
      {"no type", {.currentCapacity = 45, .isCharging = true}, {}, {}},
  };
  for (const Case& c : cases) {
    machine_.power = {c.source};
    const SystemSnapshot sample = capture();
    EXPECT_EQ(sample.batteryLevel, c.level) << c.what;
    EXPECT_EQ(sample.isCharging, c.charging) << c.what;
  }
}

}  // namespace
}  // namespace quibbly
