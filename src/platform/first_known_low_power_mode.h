#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/low_power_mode.h"

namespace quibbly {

/// Asks several sources in order; the first that knows decides.
class FirstKnownLowPowerMode : public LowPowerMode {
 public:
  using Sources = std::vector<std::reference_wrapper<LowPowerMode>>;

  explicit FirstKnownLowPowerMode(Sources sources) : sources_(std::move(sources)) {}

  [[nodiscard]] std::optional<bool> enabled() override {
    for (LowPowerMode& source : sources_) {
      if (const auto answer = source.enabled()) return answer;
    }
    return std::nullopt;
  }

 private:
  Sources sources_;
};

}  // namespace quibbly
