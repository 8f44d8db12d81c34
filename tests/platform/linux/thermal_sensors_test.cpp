#include "platform/linux/thermal_sensors.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "gmock/gmock.h"

#include "fakes/file_tree.h"
#include "platform/linux/thermal_readings.h"

namespace quibbly::linux_services {
namespace {

using enum ThermalLevel;
using Trip = TripPoint::Kind;

TEST(ProcessorSensor, is_the_first_believable_one_in_order_of_trust) {
  struct Case {
    const char* files;
    std::optional<MilliCelsius> temperature = std::nullopt;
    std::optional<MilliCelsius> critical = std::nullopt;
  };
  const auto cases = std::to_array<Case>({
      {"hwmon/hwmon0/name: nvme | temp1_input: 90000\n"
       "hwmon/hwmon3/name: coretemp | temp1_label: Core 0 | temp1_input: 61000\n"
       "hwmon/hwmon3/temp2_label: Package id 0 | temp2_input: 62000 | temp2_crit: 105000\n"
       "thermal/thermal_zone1/type: x86_pkg_temp | temp: 63000",
       62000, 105000},
      {"hwmon/hwmon1/name: k10temp | temp1_label: Tctl | temp1_input: 95000 | temp2_label: Tdie | temp2_input: 68000",
       68000},
      {"hwmon/hwmon1/name: zenpower | temp1_label: Tctl | temp1_input: 50000", 50000},
      {"hwmon/hwmon0/name: cpu_thermal | temp1_input: 48312", 48312},
      {"thermal/thermal_zone1/type: cpu-thermal | temp: 49000", 49000},
      {"hwmon/hwmon0/name: coretemp | temp1_label: Package id 0 | temp1_input: -273000\n"
       "hwmon/hwmon1/name: coretemp | temp1_label: Package id 1 | temp1_input: 55000",
       55000},
      {"thermal/thermal_zone10/type: x86_pkg_temp | temp: 40000 | trip_point_0_type: passive | trip_point_0_temp: 0\n"
       "thermal/thermal_zone10/trip_point_1_type: critical | trip_point_1_temp: 95000",
       40000, 95000},
      {"thermal/thermal_zone1/type: iwlwifi_1 | temp: 40000", 27800},
      {"thermal/thermal_zone0/temp: 999999999999999999"},
  });
  for (const auto& [files, temperature, critical] : cases) {
    fakes::FileTree tree;
    tree.addListing("sys/class/thermal/thermal_zone0",
                    "type: acpitz | temp: 27800 | trip_point_0_type: critical | trip_point_0_temp: 20800");
    tree.addListing("sys/class", files);
    const auto sensor = readTemperatures(tree.root()).sensor;
    ASSERT_EQ(sensor.has_value(), temperature.has_value()) << files;
    if (!sensor) continue;
    EXPECT_EQ(sensor->temperature, temperature) << files;
    EXPECT_EQ(sensor->critical, critical) << files;
  }
}

ThermalFigures at(MilliCelsius temperature, std::optional<MilliCelsius> max = {},
                  std::optional<MilliCelsius> critical = {}) {
  return {.sensor = TemperatureSensor{temperature, max, critical}, .zones = {}, .throttled = false};
}

ThermalFigures tripAt(MilliCelsius temperature, Trip kind) {
  return {.sensor = std::nullopt, .zones = {{temperature, {{kind, temperature}}}}, .throttled = false};
}

TEST(ThermalLevel, begins_exactly_at_its_limit) {
  struct Case {
    ThermalFigures figures;
    ThermalLevel below;
    ThermalLevel on;
  };
  const auto cases = std::to_array<Case>({
      {at(90000), nominal, fair},
      {at(95000), fair, serious},
      {at(98000), serious, critical},
      {at(80000, 80000, 100000), nominal, fair},
      {at(90000, 80000, 100000), fair, serious},
      {at(95000, 100000, 105000), nominal, fair},  // a maximum too near the critical point
      {at(90000, 0, 20800), nominal, fair},        // limits of nobody's processor
      {at(90000, {}, 65'261'850), nominal, fair},
      {tripAt(85000, Trip::passive), nominal, serious},
      {tripAt(95000, Trip::hot), nominal, critical},
      {tripAt(60000, Trip::critical), nominal, critical},
      {tripAt(59999, Trip::critical), nominal, nominal},
  });
  for (std::size_t i = 0; i < cases.size(); ++i) {
    EXPECT_EQ(levelOf(cases[i].figures, -1), cases[i].below) << "case " << i;
    EXPECT_EQ(levelOf(cases[i].figures), cases[i].on) << "case " << i;
  }
}

TEST(ThermalLevel, rises_on_a_second_sample_and_falls_past_three_degrees) {
  // A temperature and the level after it: fair from 90 degrees, serious from 95, critical from 98.
  using Samples = std::vector<std::pair<MilliCelsius, ThermalLevel>>;
  const auto runs = std::to_array<Samples>({
      {{99000, nominal}, {50000, nominal}, {99000, nominal}},
      {{99000, nominal}, {91000, fair}, {99000, fair}, {96000, serious}, {99000, serious}, {99000, critical}},
      {{90000, nominal}, {90000, fair}, {87000, fair}, {86999, nominal}},
      {{99000, nominal}, {99000, critical}, {95000, critical}, {94999, serious}, {91999, fair}},
      {{99000, nominal}, {99000, critical}, {20000, nominal}, {99000, nominal}},
  });
  for (std::size_t run = 0; run < runs.size(); ++run) {
    ThermalLevelTracker tracker;
    for (const auto& [temperature, level] : runs[run]) {
      EXPECT_EQ(tracker.next(at(temperature)), level) << temperature << " in run " << run;
    }
  }
}

TEST(ThrottleCounter, tells_of_throttling_only_when_it_grew_by_more_than_a_second) {
  constexpr auto least = std::numeric_limits<std::int64_t>::min();
  EXPECT_TRUE(isThrottled(500'000, 501'001));
  EXPECT_FALSE(isThrottled(500'000, 501'000));
  EXPECT_FALSE(isThrottled(500'000, 100));
  EXPECT_FALSE(isThrottled({}, 501'001));
  EXPECT_FALSE(isThrottled(500'000, {}));
  EXPECT_FALSE(isThrottled(least, std::numeric_limits<std::int64_t>::max()));
}

TEST(ThrottleCounter, says_serious_even_without_a_sensor) {
  fakes::FileTree tree;
  ThermalSensors sensors(tree.root());
  for (const auto& [total, expected] : {std::pair("50000", 0), {"52000", 0}, {"54000", 2}, {"junk", 0}}) {
    tree.add("sys/devices/system/cpu/cpu0/thermal_throttle/package_throttle_total_time_ms", total);
    EXPECT_EQ(sensors.state(), expected) << total;
  }
}

TEST(ThermalSensors, follow_a_machine_and_its_trip_points_through_heat_and_back) {
  fakes::FileTree tree;
  ThermalSensors sensors(tree.root());
  tree.addListing("sys/class",
                  "hwmon/hwmon0/name: coretemp | temp1_label: Package id 0 | temp1_input: 85000 | temp1_max: 80000\n"
                  "thermal/thermal_zone0/type: acpitz | temp: 97000\n"
                  "thermal/thermal_zone1/type: iwlwifi_1 | temp: 99000 | trip_point_0_type: hot\n"
                  "thermal/thermal_zone1/trip_point_0_temp: 70000");
  EXPECT_EQ(sensors.state(), 0);
  EXPECT_EQ(sensors.state(), 1);
  tree.addListing("sys/class/thermal/thermal_zone0", "trip_point_1_type: hot | trip_point_1_temp: 97000");
  EXPECT_EQ(sensors.state(), 1);
  EXPECT_EQ(sensors.state(), 3);
  tree.addListing("sys/class/thermal/thermal_zone0", "temp: 40000");
  EXPECT_EQ(sensors.state(), 1);
  std::filesystem::remove_all(tree.root() / "sys");
  tree.fifo("sys/class/hwmon/hwmon0/name");
  tree.link("sys/class/thermal/thermal_zone0/type", "/dev/zero");
  EXPECT_EQ(sensors.state(), 0);
}

}  // namespace
}  // namespace quibbly::linux_services
