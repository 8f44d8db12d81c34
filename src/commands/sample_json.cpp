#include "commands/sample_json.h"

#include "shared/iso8601.h"
#include "shared/json_values.h"

namespace quibbly {

nlohmann::json sampleJson(const SystemSnapshot& snapshot, const MacMood& mood) {
  nlohmann::json object = {
      {"capturedAt", iso8601Text(snapshot.capturedAt)},
      {"cpuUsage", snapshot.cpuUsage},
      {"memoryUtilizationEstimate", snapshot.memoryUtilizationEstimate},
      {"diskFreeBytes", snapshot.diskFreeBytes},
      {"uptimeSeconds", snapshot.uptimeSeconds},
      {"runningAppCount", snapshot.runningAppCount},
      {"browserCount", snapshot.browserCount},
      {"electronAppCount", snapshot.electronAppCount},
      {"thermalState", rawValue(snapshot.thermalState)},
      {"lowPowerMode", snapshot.lowPowerMode},
      {"mood", jsonOf(mood)},
  };
  setIfPresent(object, "swapUsedBytes", snapshot.swapUsedBytes);
  setIfPresent(object, "diskTotalBytes", snapshot.diskTotalBytes);
  setIfPresent(object, "batteryLevel", snapshot.batteryLevel);
  setIfPresent(object, "isCharging", snapshot.isCharging);
  setIfPresent(object, "frontmostAppName", snapshot.frontmostAppName);
  setIfPresent(object, "frontmostBundleIdentifier", snapshot.frontmostBundleIdentifier);
  return object;
}

}  // namespace quibbly
