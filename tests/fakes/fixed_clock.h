#pragma once

#include "platform/wall_clock.h"

namespace quibbly::fakes {

/// A clock that shows what the test set.
class FixedClock : public WallClock {
 public:
  std::chrono::system_clock::time_point time{std::chrono::sys_days{std::chrono::year{2026} / 11 / 17}};

  [[nodiscard]] std::chrono::system_clock::time_point now() const override { return time; }
};

}  // namespace quibbly::fakes
