#pragma once

#include <memory>
#include <string>

#include "platform/low_power_mode.h"

namespace quibbly::qt_services {

/// The profile that the desktop's power profiles daemon reports on the system bus, under its present name or its older
/// one.
///
/// Asking never waits: it gives the answer to the question before, and puts the next one. So the first answer is absent,
/// and a change is seen one sample late. A daemon that is not running is not started for this.
class PowerProfilesDaemon : public LowPowerMode {
 public:
  /// An empty address means the system bus. Needs a QCoreApplication while it is asked.
  explicit PowerProfilesDaemon(std::string busAddress = {});
  PowerProfilesDaemon(const PowerProfilesDaemon&) = delete;
  PowerProfilesDaemon& operator=(const PowerProfilesDaemon&) = delete;
  ~PowerProfilesDaemon() override;

  [[nodiscard]] std::optional<bool> enabled() override;

 private:
  class Questions;
  std::unique_ptr<Questions> questions_;
};

}  // namespace quibbly::qt_services
