#pragma once

#include <string>

#include "platform/low_power_mode.h"

namespace quibbly::linux_services {

/// The profile that the desktop's power profiles daemon reports on the system bus, under its present name or its older
/// one. A daemon that is not running is not started for this; a daemon or a bus that hangs is given up on after a moment.
/// The connection lasts for one question.
class PowerProfilesDaemon final : public LowPowerMode {
 public:
  /// An empty address means the system bus.
  explicit PowerProfilesDaemon(std::string busAddress = "");

  [[nodiscard]] std::optional<bool> enabled() override;

 private:
  std::string busAddress_;
};

}  // namespace quibbly::linux_services
