#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/power_sources.h"

namespace quibbly::linux_services {

/// One supply as the kernel tells it; absent fields are those that it does not tell or that cannot be read.
struct PowerSupply {
  /// "Battery", "UPS", or where external power comes from: "Mains", "USB" and kinds of it, "Wireless".
  std::optional<std::string> type;
  /// "Device" when it powers a mouse or the like, and not the machine.
  std::optional<std::string> scope;
  std::optional<std::string> status;
  /// 0 for an empty battery bay.
  std::optional<std::int64_t> present;
  /// Above 0 when it delivers.
  std::optional<std::int64_t> online;
  /// Microwatt hours.
  std::optional<std::int64_t> energyNow;
  std::optional<std::int64_t> energyFull;
  /// Microampere hours.
  std::optional<std::int64_t> chargeNow;
  std::optional<std::int64_t> chargeFull;
  /// Percent.
  std::optional<std::int64_t> capacity;
  /// What the USB-C ports of its device do, the role in force in brackets: "[source] sink".
  std::vector<std::string> portRoles;
};

/// What the supplies come to: first the machine's batteries, all of them as one internal battery, then each UPS.
/// Supplies that power some device are left out.
///
/// Capacities are sums of energy when every battery tells its energy, else sums of charge when every battery tells that,
/// else the mean percentage of those that tell anything, never a mixture of units. A battery above its full value, as
/// drifting gauges show, counts as full.
///
/// The state is external power when any supply that is no battery delivers; a USB port counts unless it only feeds
/// others. Without one, a battery that discharges or does not tell its status means battery power.
[[nodiscard]] std::vector<PowerSource> powerSourcesOf(const std::vector<PowerSupply>& supplies);

}  // namespace quibbly::linux_services
