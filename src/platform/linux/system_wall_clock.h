#pragma once

#include "platform/wall_clock.h"

namespace quibbly::linux_services {

class SystemWallClock : public WallClock {
 public:
  [[nodiscard]] std::chrono::system_clock::time_point now() const override;
};

}  // namespace quibbly::linux_services
