#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "platform/power_sources.h"

namespace quibbly::linux_services {

/// Reads ROOT/sys/class/power_supply, names in ascending order. Absent when that directory cannot be listed.
class PowerSupplies : public PowerSources {
 public:
  explicit PowerSupplies(std::filesystem::path root = "/");
  [[nodiscard]] std::optional<std::vector<PowerSource>> sources() override;

 private:
  std::filesystem::path root_;
};

}  // namespace quibbly::linux_services
