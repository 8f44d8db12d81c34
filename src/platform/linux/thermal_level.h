#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace quibbly::linux_services {

/// Thousandths of a degree Celsius, the kernel's unit.
using MilliCelsius = std::int64_t;

/// In the order of severity; the numbers are those of ThermalPressure.
enum class ThermalLevel { nominal = 0, fair = 1, serious = 2, critical = 3 };

/// The processor's temperature, and where its maker says that it grows hot; absent points are not told.
struct TemperatureSensor {
  MilliCelsius temperature = 0;
  std::optional<MilliCelsius> max;
  std::optional<MilliCelsius> critical;
};

/// A temperature at which the system acts: slows the processor down (passive), suspends (hot), powers off (critical).
struct TripPoint {
  enum class Kind { passive, hot, critical };
  Kind kind = Kind::passive;
  MilliCelsius temperature = 0;
};

struct ThermalZone {
  MilliCelsius temperature = 0;
  std::vector<TripPoint> tripPoints;
};

/// What one sample found out about the processor.
struct ThermalFigures {
  std::optional<TemperatureSensor> sensor;
  std::vector<ThermalZone> zones;
  /// The processor has lately spent time slowed down by its own protection.
  bool throttled = false;
};

/// Whether a processor can be that warm: -40 to 150 degrees.
[[nodiscard]] bool isBelievableReading(MilliCelsius temperature);

/// Whether heat can be a matter from there on: 60 to 150 degrees. Firmware is known to name 20.8 as its critical point.
[[nodiscard]] bool isBelievableLimit(MilliCelsius temperature);

/// The level that the figures mean, with every temperature taken as `margin` higher. Readings and limits that are not
/// believable count as not told. With `critical` the sensor's critical point (100 degrees when not told), `max` the
/// lower of its own maximum and critical - 10, and `passive` halfway between the two:
///   critical  from critical - 2 on, or in a zone beyond its hot or critical trip point
///   serious   from passive on, or in a zone beyond its passive trip point, or throttled
///   fair      from max on
[[nodiscard]] ThermalLevel levelOf(const ThermalFigures& figures, MilliCelsius margin = 0);

}  // namespace quibbly::linux_services
