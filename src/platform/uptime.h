#pragma once

#include <chrono>

namespace quibbly {

/// How long the machine has been up, time asleep included; asked on the monitor's thread.
class Uptime {
 public:
  virtual ~Uptime() = default;
  [[nodiscard]] virtual std::chrono::duration<double> sinceBoot() = 0;
};

}  // namespace quibbly
