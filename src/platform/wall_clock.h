#pragma once

#include <chrono>

namespace quibbly {

/// The time of day. It can be set back and forth, so durations are never measured with it. Any thread.
class WallClock {
 public:
  virtual ~WallClock() = default;
  [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;
};

}  // namespace quibbly
