#include "platform/linux/meminfo.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/linux/small_files.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

// Far above any machine, and low enough that a dozen of them sum without overflow.
constexpr std::uint64_t mostBytes = std::uint64_t{1} << 60;

/// What follows the name on its line; absent when no line has that name, or when the line was cut and may lack digits.
std::optional<std::string_view> restOfLine(std::string_view text, std::string_view name) {
  std::size_t at = text.find(name);
  while (at != std::string_view::npos && at != 0 && text[at - 1] != '\n') at = text.find(name, at + 1);
  const std::size_t end = text.find('\n', at);
  if (end == std::string_view::npos) return std::nullopt;
  return text.substr(at + name.size(), end - at - name.size());
}

/// Bytes of a line "Name: number kB".
std::optional<std::uint64_t> figure(std::string_view text, std::string_view name) {
  constexpr std::uint64_t kilobyte = 1024;
  const auto fields = fieldsOf(restOfLine(text, name).value_or(""));
  if (fields.size() != 2 || fields[1] != "kB") return std::nullopt;
  const auto amount = parseUnsigned(fields[0]);
  if (!amount || *amount > mostBytes / kilobyte) return std::nullopt;
  return *amount * kilobyte;
}

std::optional<std::uint64_t> usedBytes(std::string_view text, std::uint64_t total) {
  for (const auto* name : {"MemAvailable:", "MemFree:"}) {
    const auto unused = figure(text, name);
    if (unused && *unused <= total) return total - *unused;
  }
  return std::nullopt;
}

std::uint64_t pinnedBytes(std::string_view text) {
  std::uint64_t sum = 0;
  for (const auto* name : {"SUnreclaim:", "KernelStack:", "PageTables:", "SecPageTables:", "Percpu:", "Unevictable:"}) {
    sum += figure(text, name).value_or(0);
  }
  return sum;
}

std::optional<MemoryUse> memoryUse(std::string_view text, std::uint64_t compressedSwapBytes) {
  const auto total = figure(text, "MemTotal:");
  const auto used = total ? usedBytes(text, *total) : std::nullopt;
  if (!used) return std::nullopt;

  const std::uint64_t zswap = figure(text, "Zswap:").value_or(0);
  const std::uint64_t compressor = std::min(zswap + std::min(compressedSwapBytes, mostBytes), *used);
  const std::uint64_t wired = std::min(pinnedBytes(text), *used - compressor);
  return MemoryUse{.activeBytes = *used - compressor - wired,
                   .wiredBytes = wired,
                   .compressorBytes = compressor,
                   .physicalBytes = *total};
}

std::optional<std::uint64_t> swapUsed(std::string_view text) {
  const auto total = figure(text, "SwapTotal:");
  const auto free = figure(text, "SwapFree:");
  if (!total || !free) return std::nullopt;
  return *total - std::min(*free, *total);
}

std::uint64_t compressedSwap(const std::filesystem::path& root) {
  const auto block = root / "sys/block";
  std::uint64_t sum = 0;
  for (const auto& device : entryNames(block).value_or(std::vector<std::string>{})) {
    if (!device.starts_with("zram")) continue;
    const std::uint64_t held = parseCompressedSwap(readLine(block / device / "mm_stat").value_or(""));
    sum = std::min(sum + held, mostBytes);
  }
  return sum;
}

}  // namespace

MemoryReading parseMemInfo(std::string_view text, std::uint64_t compressedSwapBytes) {
  return {.use = memoryUse(text, compressedSwapBytes), .swapUsedBytes = swapUsed(text)};
}

std::uint64_t parseCompressedSwap(std::string_view mmStat) {
  constexpr std::size_t memoryUsed = 2;  // after the size of the data and its compressed size
  const auto fields = fieldsOf(mmStat);
  if (fields.size() <= memoryUsed) return 0;
  const auto bytes = parseUnsigned(fields[memoryUsed]);
  return bytes && *bytes <= mostBytes ? *bytes : 0;
}

MemInfo::MemInfo(std::filesystem::path root) : root_(std::move(root)) {}

MemoryReading MemInfo::statistics() {
  const auto text = readFile(root_ / "proc/meminfo");
  if (!text) return {};
  // Without swap no page is compressed into a device, and there is no reason to look for one.
  const bool swaps = figure(*text, "SwapTotal:").value_or(0) != 0;
  return parseMemInfo(*text, swaps ? compressedSwap(root_) : 0);
}

}  // namespace quibbly::linux_services
