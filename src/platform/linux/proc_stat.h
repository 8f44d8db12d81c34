#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/processor_statistics.h"

namespace quibbly::linux_services {

/// The counters of /proc/stat's first line, of which the low 32 bits are kept: nice and idle time by themselves, waiting
/// for disks as idle, interrupts and time that a hypervisor took as system. Time spent on guests is not added, because
/// the kernel has already counted it as user or nice. Absent unless the text starts with that line, whole, and with the
/// four counters that every kernel writes; counters that an old kernel does not write are 0.
[[nodiscard]] std::optional<ProcessorTicks> parseProcStat(std::string_view text);

/// Reads ROOT/proc/stat. The counter of waiting can go backwards, and with it `idle`.
class ProcStat : public ProcessorStatistics {
 public:
  explicit ProcStat(std::filesystem::path root = "/");
  [[nodiscard]] std::optional<ProcessorTicks> ticks() override;

 private:
  std::filesystem::path root_;
};

}  // namespace quibbly::linux_services
