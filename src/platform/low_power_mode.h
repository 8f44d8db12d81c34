#pragma once

#include <optional>

namespace quibbly {

/// Whether the user asked the machine to save power; asked on the monitor's thread.
class LowPowerMode {
 public:
  virtual ~LowPowerMode() = default;
  /// Absent when this source does not know; then another one is asked.
  [[nodiscard]] virtual std::optional<bool> enabled() = 0;
};

}  // namespace quibbly
