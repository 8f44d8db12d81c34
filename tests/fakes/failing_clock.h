#pragma once

#include "fakes/faults.h"
#include "platform/wall_clock.h"

namespace quibbly::fakes {

/// A clock that shows a wrong time in the calls that fail.
class FailingClock final : public WallClock, public Faults {
 public:
  FailingClock(const WallClock& working, const Faults* common) : Faults(common), working_(working) {}

  /// As a machine begins whose clock lost its battery.
  std::chrono::system_clock::time_point wrong{};

  [[nodiscard]] std::chrono::system_clock::time_point now() const override { return fails() ? wrong : working_.now(); }

 private:
  const WallClock& working_;
};

}  // namespace quibbly::fakes
