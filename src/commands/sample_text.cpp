#include "commands/sample_text.h"

#include <optional>
#include <string_view>
#include <utility>

#include "platform/printable.h"
#include "records/units.h"
#include "shared/iso8601.h"

namespace quibbly {
namespace {

constexpr std::string_view dash = "—";

std::string percent(double fraction) { return oneDecimal(fraction * 100.0) + " %"; }
std::string size(std::uint64_t bytes) { return oneDecimal(gigabytes(bytes)) + " GB"; }
std::string count(std::int64_t number) { return std::to_string(number); }
std::string wholePercentText(std::int64_t number) { return count(number) + " %"; }
std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

std::string daysAndHours(double seconds) {
  const std::int64_t days = wholeDays(seconds);
  const std::int64_t hours = truncatedToInteger((seconds - static_cast<double>(days) * secondsPerDay) / 3600.0);
  return count(days) + " days " + count(hours) + " h";
}

template <typename Value, typename Text>
std::string orDash(const std::optional<Value>& value, Text text) {
  return value ? text(*value) : std::string(dash);
}

}  // namespace

std::string sampleText(const SystemSnapshot& snapshot, const MacMood& mood) {
  const std::pair<std::string_view, std::string> rows[] = {
      {"Captured at", iso8601Text(snapshot.capturedAt)},
      {"Processor load", percent(snapshot.cpuUsage)},
      {"Memory in use", percent(snapshot.memoryUtilizationEstimate)},
      {"Swap in use", orDash(snapshot.swapUsedBytes, size)},
      {"Disk free", size(snapshot.diskFreeBytes)},
      {"Disk size", orDash(snapshot.diskTotalBytes, size)},
      {"Battery", orDash(snapshot.batteryLevel, wholePercentText)},
      {"On external power", orDash(snapshot.isCharging, yesOrNo)},
      {"Uptime", daysAndHours(snapshot.uptimeSeconds)},
      {"Applications", count(snapshot.runningAppCount)},
      {"Browsers", count(snapshot.browserCount)},
      {"Electron applications", count(snapshot.electronAppCount)},
      {"In front", orDash(snapshot.frontmostAppName, printable)},
      {"In front, identifier", orDash(snapshot.frontmostBundleIdentifier, printable)},
      {"Thermal state", std::string(displayText(snapshot.thermalState))},
      {"Low Power Mode", yesOrNo(snapshot.lowPowerMode)},
      {"Mood", std::string(displayText(mood.label))},
      {"Score", oneDecimal(mood.score) + " of 100"},
  };
  std::size_t widest = 0;
  for (const auto& [name, value] : rows) widest = std::max(widest, name.size());
  std::string text;
  for (const auto& [name, value] : rows) {
    text.append(name).append(widest + 2 - name.size(), ' ').append(value).append("\n");
  }
  return text;
}

}  // namespace quibbly
