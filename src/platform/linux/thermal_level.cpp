#include "platform/linux/thermal_level.h"

#include <algorithm>

namespace quibbly::linux_services {
namespace {

constexpr MilliCelsius degree = 1000;

std::optional<MilliCelsius> believableLimit(std::optional<MilliCelsius> limit) {
  return limit && isBelievableLimit(*limit) ? limit : std::nullopt;
}

ThermalLevel sensorLevel(const TemperatureSensor& sensor, MilliCelsius margin) {
  if (!isBelievableReading(sensor.temperature)) return ThermalLevel::nominal;
  const MilliCelsius critical = believableLimit(sensor.critical).value_or(100 * degree);
  const MilliCelsius wellBelow = critical - (10 * degree);
  const MilliCelsius max = std::min(believableLimit(sensor.max).value_or(wellBelow), wellBelow);
  const MilliCelsius passive = (max + critical) / 2;

  const MilliCelsius temperature = sensor.temperature + margin;
  if (temperature >= critical - (2 * degree)) return ThermalLevel::critical;
  if (temperature >= passive) return ThermalLevel::serious;
  return temperature >= max ? ThermalLevel::fair : ThermalLevel::nominal;
}

ThermalLevel zoneLevel(const ThermalZone& zone, MilliCelsius margin) {
  auto level = ThermalLevel::nominal;
  if (!isBelievableReading(zone.temperature)) return level;
  for (const auto& trip : zone.tripPoints) {
    if (!isBelievableLimit(trip.temperature) || zone.temperature + margin < trip.temperature) continue;
    const bool slowsDown = trip.kind == TripPoint::Kind::passive;
    level = std::max(level, slowsDown ? ThermalLevel::serious : ThermalLevel::critical);
  }
  return level;
}

}  // namespace

bool isBelievableReading(MilliCelsius temperature) {
  return temperature >= -40 * degree && temperature <= 150 * degree;
}

bool isBelievableLimit(MilliCelsius temperature) { return temperature >= 60 * degree && temperature <= 150 * degree; }

ThermalLevel levelOf(const ThermalFigures& figures, MilliCelsius margin) {
  auto level = figures.throttled ? ThermalLevel::serious : ThermalLevel::nominal;
  if (figures.sensor) level = std::max(level, sensorLevel(*figures.sensor, margin));
  for (const auto& zone : figures.zones) level = std::max(level, zoneLevel(zone, margin));
  return level;
}

}  // namespace quibbly::linux_services
