#pragma once

#include "platform/uptime.h"

namespace quibbly::linux_services {

/// The kernel's clock that starts at boot and goes on while the machine sleeps.
class BootClockUptime : public Uptime {
 public:
  [[nodiscard]] std::chrono::duration<double> sinceBoot() override;
};

}  // namespace quibbly::linux_services
