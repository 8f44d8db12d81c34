#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ranges>
#include <string>
#include <tuple>

#include "fakes/file_tree.h"
#include "fuzz/fuzzer.h"
#include "platform/linux/meminfo.h"
#include "platform/linux/platform_profile.h"
#include "platform/linux/power_supplies.h"
#include "platform/linux/thermal_readings.h"
#include "platform/linux/thermal_sensors.h"

/// A machine's /sys, each line of the input a file, "class/hwmon/hwmon0/name: coretemp", or a directory when it has no
/// colon.
namespace quibbly::fuzz {
namespace {

using namespace linux_services;

/// Memory, where there is such a file system.
std::filesystem::path quickPlace() {
  const std::filesystem::path memory = "/dev/shm";
  return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

/// Whether it leads down and nowhere else.
bool isInside(const std::filesystem::path& path) {
  constexpr std::size_t longest = 200;
  return path.is_relative() && path.native().size() <= longest && !path.native().contains('\0') &&
         std::ranges::find(path, "..") == path.end();
}

void fill(const fakes::FileTree& tree, std::string_view listing) {
  constexpr std::size_t mostFiles = 64;
  for (const auto part : std::views::split(listing, '\n') | std::views::take(mostFiles)) {
    const std::string_view line(part.begin(), part.end());
    const auto colon = std::min(line.find(": "), line.size());
    const std::filesystem::path path = line.substr(0, colon);
    if (!isInside(path)) continue;
    std::error_code isInTheWay;
    const bool isFile = colon != line.size();
    const auto place = tree.root() / "sys" / path;
    std::filesystem::create_directories(isFile ? place.parent_path() : place, isInTheWay);
    if (isFile) std::ofstream(place) << line.substr(colon + 2);
  }
}

void check(const PowerSource& source) {
  demand(source.type == PowerSource::internalBatteryType || source.type == PowerSource::upsType, "a source has a type");
  demand(source.state == PowerSource::acPowerState || source.state == PowerSource::batteryPowerState, "and a state");
  if (!source.currentCapacity || !source.maxCapacity) return;
  demand(*source.currentCapacity >= 0 && *source.maxCapacity > 0, "a capacity is not below nothing");
  demand(*source.currentCapacity <= *source.maxCapacity, "a battery is full at the most");
}

}  // namespace

void tryInput(std::string_view input) {
  const fakes::FileTree tree(quickPlace());
  fill(tree, input);

  const auto sources = PowerSupplies(tree.root()).sources();
  if (sources) std::ranges::for_each(*sources, check);
  const auto isBattery = [](const PowerSource& source) { return source.type == PowerSource::internalBatteryType; };
  demand(!sources || std::ranges::count_if(*sources, isBattery) <= 1, "the batteries of a machine are one");

  const auto figures = readTemperatures(tree.root());
  demand(!figures.sensor || isBelievableReading(figures.sensor->temperature), "a reading is a believable one");
  ThermalSensors sensors(tree.root());
  demand(sensors.state() == 0, "one sample is none that counts");
  demand(sensors.state() == static_cast<int>(levelOf(figures)), "the second of the same shows its level");

  std::ignore = PlatformProfile(tree.root()).enabled();
  std::ignore = MemInfo(tree.root()).statistics();
}

}  // namespace quibbly::fuzz
