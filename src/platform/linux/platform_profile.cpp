#include "platform/linux/platform_profile.h"

#include <utility>

#include "platform/linux/small_files.h"

namespace quibbly::linux_services {

PlatformProfile::PlatformProfile(std::filesystem::path root) : root_(std::move(root)) {}

std::optional<bool> PlatformProfile::enabled() {
  const auto profile = readLine(root_ / "sys/firmware/acpi/platform_profile");
  if (!profile || profile->empty()) return std::nullopt;
  return *profile == "low-power";
}

}  // namespace quibbly::linux_services
