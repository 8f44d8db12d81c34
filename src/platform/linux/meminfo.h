#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "platform/memory_statistics.h"

namespace quibbly::linux_services {

/// What the text of /proc/meminfo says, given the bytes of memory that compressed swap devices hold.
///
/// The memory in use is MemTotal - MemAvailable, the figure that `free` and the desktops' monitors show; where
/// MemAvailable is missing or above MemTotal, as in some containers, MemFree takes its place. Its parts sum to it:
///   compressor  Zswap and the compressed swap devices, at most all of it
///   wired       SUnreclaim + KernelStack + PageTables + SecPageTables + Percpu + Unevictable, at most what is left
///   active      the rest
/// Use is absent without MemTotal or without both of the others; swap is absent without SwapTotal or SwapFree.
[[nodiscard]] MemoryReading parseMemInfo(std::string_view text, std::uint64_t compressedSwapBytes);

/// Bytes of memory that a compressed swap device holds, from its mm_stat; 0 when the text does not tell.
[[nodiscard]] std::uint64_t parseCompressedSwap(std::string_view mmStat);

/// Reads ROOT/proc/meminfo once a call, and ROOT/sys/block/zram*/mm_stat.
class MemInfo : public MemoryStatistics {
 public:
  explicit MemInfo(std::filesystem::path root = "/");
  [[nodiscard]] MemoryReading statistics() override;

 private:
  std::filesystem::path root_;
};

}  // namespace quibbly::linux_services
