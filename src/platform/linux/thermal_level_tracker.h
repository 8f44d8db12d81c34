#pragma once

#include "platform/linux/thermal_level.h"

namespace quibbly::linux_services {

/// The level that people are told, made calm: a temperature that leaps for a moment or hovers about a limit must not
/// flicker. It starts nominal and after each sample
///   rises  when this sample and the one before it were both above it, to the lower of the two;
///   falls  when this sample would be below it even 3 degrees warmer, at once, to the level that those 3 degrees give;
///   stays  otherwise.
class ThermalLevelTracker {
 public:
  /// Takes in one sample; the level after it.
  [[nodiscard]] ThermalLevel next(const ThermalFigures& figures);

 private:
  ThermalLevel level_ = ThermalLevel::nominal;
  ThermalLevel previousSample_ = ThermalLevel::nominal;
};

}  // namespace quibbly::linux_services
