#pragma once

#include <chrono>
#include <string>

#include "platform/low_power_mode.h"

namespace quibbly::linux_services {

/// The profile that the desktop's power profiles daemon reports on the system bus, under its present name or its older
/// one. A daemon that is not running is not started for this; a daemon or a bus that hangs is given up on after a moment.
///
/// The bus is asked once a minute at the most, over a connection that lasts for one question: a question wakes two other
/// programs, and hardly anybody changes the profile more often. In between the last answer stands.
class PowerProfilesDaemon final : public LowPowerMode {
 public:
  /// An empty address means the system bus.
  explicit PowerProfilesDaemon(std::string busAddress = "");

  [[nodiscard]] std::optional<bool> enabled() override;

 private:
  [[nodiscard]] std::optional<bool> ask() const;

  std::string busAddress_;
  std::optional<bool> lastAnswer_;
  std::chrono::steady_clock::time_point askAgainAt_;
};

}  // namespace quibbly::linux_services
