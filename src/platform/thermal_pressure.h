#pragma once

namespace quibbly {

/// The machine's thermal pressure; asked once a sample, on the monitor's thread, because a rise must show twice.
class ThermalPressure {
 public:
  virtual ~ThermalPressure() = default;
  /// 0 nominal, 1 fair, 2 serious, 3 critical; 0 when no sensor tells. Callers take any other number as nominal.
  [[nodiscard]] virtual int state() = 0;
};

}  // namespace quibbly
