#pragma once

#include <cstdint>
#include <optional>

namespace quibbly {

/// What physical memory is in use for, bytes. The three parts sum to the memory in use.
struct MemoryUse {
  /// Held by programs.
  std::uint64_t activeBytes = 0;
  /// Cannot be paged out: the kernel's own, and what programs have locked.
  std::uint64_t wiredBytes = 0;
  /// Holds compressed pages.
  std::uint64_t compressorBytes = 0;
  /// All physical memory; 0 when unknown.
  std::uint64_t physicalBytes = 0;

  bool operator==(const MemoryUse&) const = default;
};

/// One reading of memory; its two answers fail apart from each other.
struct MemoryReading {
  /// Absent when the system gives no answer.
  std::optional<MemoryUse> use;
  /// Absent when the system gives no answer; 0 on a machine without swap that says so.
  std::optional<std::uint64_t> swapUsedBytes;

  bool operator==(const MemoryReading&) const = default;
};

/// The host's memory figures; asked on the monitor's thread.
class MemoryStatistics {
 public:
  virtual ~MemoryStatistics() = default;
  [[nodiscard]] virtual MemoryReading statistics() = 0;
};

}  // namespace quibbly
