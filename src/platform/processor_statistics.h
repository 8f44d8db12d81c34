#pragma once

#include <cstdint>
#include <optional>

namespace quibbly {

/// Processor time since boot by what it was spent on, in clock ticks over all processors. The counters wrap.
struct ProcessorTicks {
  std::uint32_t user = 0;
  std::uint32_t system = 0;
  std::uint32_t idle = 0;
  std::uint32_t nice = 0;

  bool operator==(const ProcessorTicks&) const = default;
};

/// The host's tick counters; asked on the monitor's thread.
class ProcessorStatistics {
 public:
  virtual ~ProcessorStatistics() = default;
  /// Absent when the system gives no answer.
  [[nodiscard]] virtual std::optional<ProcessorTicks> ticks() = 0;
};

}  // namespace quibbly
