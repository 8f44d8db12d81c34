#pragma once

#include <filesystem>
#include <optional>

#include "platform/low_power_mode.h"

namespace quibbly::linux_services {

/// The firmware's power profile, ROOT/sys/firmware/acpi/platform_profile; absent on machines whose firmware has none.
class PlatformProfile : public LowPowerMode {
 public:
  explicit PlatformProfile(std::filesystem::path root = "/");
  [[nodiscard]] std::optional<bool> enabled() override;

 private:
  std::filesystem::path root_;
};

}  // namespace quibbly::linux_services
