#include "platform/linux/power_supply_rules.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace quibbly::linux_services {
namespace {

using Supplies = std::vector<PowerSupply>;

struct Gauge {
  std::int64_t now = 0;
  std::int64_t full = 0;
};
constexpr std::int64_t percent = 100;

std::optional<Gauge> gauge(std::optional<std::int64_t> now, std::optional<std::int64_t> full) {
  constexpr std::int64_t mostBelievable = 1'000'000'000'000;  // a megawatt hour; sums of it do not overflow
  if (!now || !full || *now < 0 || *full < 1 || *full > mostBelievable) return std::nullopt;
  return Gauge{.now = std::min(*now, *full), .full = *full};
}

std::optional<Gauge> energy(const PowerSupply& battery) { return gauge(battery.energyNow, battery.energyFull); }

std::optional<Gauge> charge(const PowerSupply& battery) { return gauge(battery.chargeNow, battery.chargeFull); }

std::optional<Gauge> ownGauge(const PowerSupply& battery) {
  if (const auto told = energy(battery)) return told;
  if (const auto told = charge(battery)) return told;
  return gauge(battery.capacity, percent);
}

std::optional<Gauge> sum(const Supplies& batteries, const auto& gaugeOf) {
  Gauge total;
  for (const auto& battery : batteries) {
    const std::optional<Gauge> one = gaugeOf(battery);
    if (!one) return std::nullopt;
    total.now += one->now;
    total.full += one->full;
  }
  return total;
}

std::optional<Gauge> meanPercentage(const Supplies& batteries) {
  double fractions = 0;
  int telling = 0;
  for (const auto& battery : batteries) {
    const auto one = ownGauge(battery);
    if (!one) continue;
    fractions += static_cast<double>(one->now) / static_cast<double>(one->full);
    ++telling;
  }
  if (telling == 0) return std::nullopt;
  return Gauge{.now = std::llround(fractions / telling * percent), .full = percent};
}

std::optional<Gauge> jointGauge(const Supplies& batteries) {
  if (const auto total = sum(batteries, energy)) return total;
  if (const auto total = sum(batteries, charge)) return total;
  return meanPercentage(batteries);
}

bool onlyFeedsOthers(const PowerSupply& supply) {
  const auto anyPort = [&](std::string_view role) {
    return std::ranges::any_of(supply.portRoles, [&](const auto& roles) { return roles.contains(role); });
  };
  return supply.type.value_or("").starts_with("USB") && anyPort("[source]") && !anyPort("[sink]");
}

bool isBattery(const PowerSupply& supply) { return supply.type == "Battery" || supply.type == "UPS"; }

bool givesExternalPower(const PowerSupply& supply) {
  return !isBattery(supply) && supply.online.value_or(0) > 0 && !onlyFeedsOthers(supply);
}

bool isDraining(const PowerSupply& battery) {
  const std::string status = battery.status.value_or("");
  return status.empty() || status == "Discharging";
}

std::optional<bool> isCharging(const Supplies& batteries) {
  std::optional<bool> charging;
  for (const auto& battery : batteries) {
    if (battery.status.value_or("").empty()) continue;
    charging = charging.value_or(false) || *battery.status == "Charging";
  }
  return charging;
}

PowerSource jointSource(std::string_view type, const Supplies& batteries, bool externalPower) {
  const bool onBattery = !externalPower && std::ranges::any_of(batteries, isDraining);
  PowerSource source{.type = std::string(type),
                     .currentCapacity = std::nullopt,
                     .maxCapacity = std::nullopt,
                     .state = std::string(onBattery ? PowerSource::batteryPowerState : PowerSource::acPowerState),
                     .isCharging = isCharging(batteries)};
  if (const auto told = jointGauge(batteries)) {
    source.currentCapacity = told->now;
    source.maxCapacity = told->full;
  }
  return source;
}

// Supplies that say what they are and that the machine itself lives on.
Supplies ownSupplies(const Supplies& supplies) {
  Supplies own;
  std::ranges::copy_if(supplies, std::back_inserter(own),
                       [](const auto& supply) { return supply.type && supply.scope != "Device"; });
  return own;
}

}  // namespace

std::vector<PowerSource> powerSourcesOf(const std::vector<PowerSupply>& supplies) {
  const Supplies own = ownSupplies(supplies);
  const bool externalPower = std::ranges::any_of(own, givesExternalPower);

  Supplies internal;
  std::vector<PowerSource> sources;
  for (const auto& supply : own) {
    if (supply.present == 0) continue;
    if (supply.type == "Battery") internal.push_back(supply);
    if (supply.type == "UPS") sources.push_back(jointSource(PowerSource::upsType, {supply}, externalPower));
  }
  if (!internal.empty()) {
    sources.insert(sources.begin(), jointSource(PowerSource::internalBatteryType, internal, externalPower));
  }
  return sources;
}

}  // namespace quibbly::linux_services
