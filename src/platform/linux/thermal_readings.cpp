#include "platform/linux/thermal_readings.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "platform/linux/small_files.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

using std::filesystem::path;

struct HwmonSource {
  std::string_view chip;
  std::string_view label;  // start of the sensor's label; empty when its sensors have none
};
constexpr auto hwmonSources = std::to_array<HwmonSource>({
    {.chip = "coretemp", .label = "Package id"},
    {.chip = "k10temp", .label = "Tdie"},
    {.chip = "zenpower", .label = "Tdie"},
    {.chip = "k10temp", .label = "Tctl"},
    {.chip = "zenpower", .label = "Tctl"},
    {.chip = "cpu_thermal", .label = ""},
    {.chip = "cpu-thermal", .label = ""},
});

// The firmware's acpitz stands last: on many machines it measures the case, or nothing at all.
constexpr auto zoneTypes = std::to_array<std::string_view>({"x86_pkg_temp", "cpu_thermal", "cpu-thermal", "acpitz"});

struct Chip {
  std::string name;
  path directory;
};

struct TypedZone {
  std::string_view type;
  ThermalZone zone;
};

// The numbers N of the entries PREFIX N SUFFIX, in ascending order.
std::vector<std::int64_t> numbersOf(const path& directory, std::string_view prefix, std::string_view suffix = "") {
  std::vector<std::int64_t> numbers;
  for (const auto& name : entryNames(directory).value_or(std::vector<std::string>{})) {
    if (name.size() <= prefix.size() + suffix.size() || !name.starts_with(prefix) || !name.ends_with(suffix)) continue;
    const auto digits = std::string_view(name).substr(prefix.size(), name.size() - prefix.size() - suffix.size());
    if (const auto number = parseInteger(digits)) numbers.push_back(*number);
  }
  std::ranges::sort(numbers);
  return numbers;
}

std::vector<Chip> readChips(const path& root) {
  const path hwmon = root / "sys/class/hwmon";
  std::vector<Chip> chips;
  for (const auto number : numbersOf(hwmon, "hwmon")) {
    const path directory = hwmon / ("hwmon" + std::to_string(number));
    if (auto name = readLine(directory / "name")) chips.push_back({std::move(*name), directory});
  }
  return chips;
}

std::optional<TemperatureSensor> believableSensor(const path& chip, std::string_view label) {
  for (const auto number : numbersOf(chip, "temp", "_input")) {
    const std::string prefix = "temp" + std::to_string(number);
    if (!label.empty() && !readLine(chip / (prefix + "_label")).value_or("").starts_with(label)) continue;
    const auto temperature = readInteger(chip / (prefix + "_input"));
    if (!temperature || !isBelievableReading(*temperature)) continue;
    return TemperatureSensor{.temperature = *temperature,
                             .max = readInteger(chip / (prefix + "_max")),
                             .critical = readInteger(chip / (prefix + "_crit"))};
  }
  return std::nullopt;
}

std::optional<TemperatureSensor> hwmonSensor(const path& root) {
  const auto chips = readChips(root);
  for (const auto& source : hwmonSources) {
    for (const auto& chip : chips) {
      if (chip.name != source.chip) continue;
      if (const auto sensor = believableSensor(chip.directory, source.label)) return sensor;
    }
  }
  return std::nullopt;
}

std::optional<TripPoint::Kind> tripKind(std::string_view type) {
  if (type == "passive") return TripPoint::Kind::passive;
  if (type == "hot") return TripPoint::Kind::hot;
  if (type == "critical") return TripPoint::Kind::critical;
  return std::nullopt;
}

std::vector<TripPoint> readTripPoints(const path& zone) {
  std::vector<TripPoint> points;
  for (const auto number : numbersOf(zone, "trip_point_", "_type")) {
    const std::string prefix = "trip_point_" + std::to_string(number);
    const auto kind = tripKind(readLine(zone / (prefix + "_type")).value_or(""));
    const auto temperature = kind ? readInteger(zone / (prefix + "_temp")) : std::nullopt;
    if (temperature) points.push_back({.kind = *kind, .temperature = *temperature});
  }
  return points;
}

// Zones that cannot be a processor's are left out, as are those without a believable temperature.
std::vector<TypedZone> readZones(const path& root) {
  const path thermal = root / "sys/class/thermal";
  std::vector<TypedZone> zones;
  for (const auto number : numbersOf(thermal, "thermal_zone")) {
    const path zone = thermal / ("thermal_zone" + std::to_string(number));
    const auto* const type = std::ranges::find(zoneTypes, readLine(zone / "type").value_or(""));
    if (type == zoneTypes.end()) continue;
    const auto temperature = readInteger(zone / "temp");
    if (!temperature || !isBelievableReading(*temperature)) continue;
    zones.push_back({*type, {.temperature = *temperature, .tripPoints = readTripPoints(zone)}});
  }
  return zones;
}

TemperatureSensor sensorOf(const ThermalZone& zone) {
  const auto critical = std::ranges::find_if(zone.tripPoints, [](const TripPoint& trip) {
    return trip.kind == TripPoint::Kind::critical && isBelievableLimit(trip.temperature);
  });
  TemperatureSensor sensor{.temperature = zone.temperature, .max = std::nullopt, .critical = std::nullopt};
  if (critical != zone.tripPoints.end()) sensor.critical = critical->temperature;
  return sensor;
}

std::optional<TemperatureSensor> zoneSensor(const std::vector<TypedZone>& zones) {
  for (const auto type : zoneTypes) {
    const auto found = std::ranges::find(zones, type, &TypedZone::type);
    if (found != zones.end()) return sensorOf(found->zone);
  }
  return std::nullopt;
}

}  // namespace

ThermalFigures readTemperatures(const path& root) {
  const auto zones = readZones(root);
  ThermalFigures figures{.sensor = hwmonSensor(root), .zones = {}, .throttled = false};
  if (!figures.sensor) figures.sensor = zoneSensor(zones);
  for (const auto& [type, zone] : zones) figures.zones.push_back(zone);
  return figures;
}

}  // namespace quibbly::linux_services
