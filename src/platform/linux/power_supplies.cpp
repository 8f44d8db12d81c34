#include "platform/linux/power_supplies.h"

#include <string>
#include <utility>

#include "platform/linux/power_supply_rules.h"
#include "platform/linux/small_files.h"

namespace quibbly::linux_services {
namespace {

std::vector<std::string> portRoles(const std::filesystem::path& supply) {
  const auto ports = supply / "device/typec";
  std::vector<std::string> roles;
  for (const auto& port : entryNames(ports).value_or(std::vector<std::string>{})) {
    if (auto role = readLine(ports / port / "power_role")) roles.push_back(std::move(*role));
  }
  return roles;
}

PowerSupply readSupply(const std::filesystem::path& supply) {
  return {.type = readLine(supply / "type"),
          .scope = readLine(supply / "scope"),
          .status = readLine(supply / "status"),
          .present = readInteger(supply / "present"),
          .online = readInteger(supply / "online"),
          .energyNow = readInteger(supply / "energy_now"),
          .energyFull = readInteger(supply / "energy_full"),
          .chargeNow = readInteger(supply / "charge_now"),
          .chargeFull = readInteger(supply / "charge_full"),
          .capacity = readInteger(supply / "capacity"),
          .portRoles = portRoles(supply)};
}

}  // namespace

PowerSupplies::PowerSupplies(std::filesystem::path root) : root_(std::move(root)) {}

std::optional<std::vector<PowerSource>> PowerSupplies::sources() {
  const auto directory = root_ / "sys/class/power_supply";
  const auto names = entryNames(directory);
  if (!names) return std::nullopt;

  std::vector<PowerSupply> supplies;
  for (const auto& name : *names) supplies.push_back(readSupply(directory / name));
  return powerSourcesOf(supplies);
}

}  // namespace quibbly::linux_services
