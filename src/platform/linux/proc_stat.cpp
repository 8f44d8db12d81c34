#include "platform/linux/proc_stat.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "platform/linux/small_files.h"
#include "platform/linux/text_fields.h"

namespace quibbly::linux_services {
namespace {

// In the kernel's order.
enum Counter : std::size_t { user, nice, system, idle, ioWait, irq, softIrq, steal, counterCount };
using Counters = std::array<std::uint64_t, counterCount>;

std::optional<Counters> parseCounters(std::string_view line) {
  constexpr std::size_t alwaysThere = ioWait;
  const auto fields = fieldsOf(line);
  if (fields.size() <= alwaysThere || fields.front() != "cpu") return std::nullopt;

  Counters counters{};
  const std::size_t present = std::min(fields.size() - 1, counters.size());
  for (std::size_t i = 0; i < present; ++i) {
    const auto value = parseUnsigned(fields[i + 1]);
    if (!value) return std::nullopt;
    counters[i] = *value;
  }
  return counters;
}

std::uint32_t lowBits(std::uint64_t counter) { return static_cast<std::uint32_t>(counter); }

}  // namespace

std::optional<ProcessorTicks> parseProcStat(std::string_view text) {
  const auto lineEnd = text.find('\n');
  // Without its end the line may have lost digits, and a counter that seems to shrink would show as full load.
  if (lineEnd == std::string_view::npos) return std::nullopt;

  const auto counters = parseCounters(text.substr(0, lineEnd));
  if (!counters) return std::nullopt;
  const Counters& c = *counters;
  return ProcessorTicks{.user = lowBits(c[user]),
                        .system = lowBits(c[system] + c[irq] + c[softIrq] + c[steal]),
                        .idle = lowBits(c[idle] + c[ioWait]),
                        .nice = lowBits(c[nice])};
}

ProcStat::ProcStat(std::filesystem::path root) : root_(std::move(root)) {}

std::optional<ProcessorTicks> ProcStat::ticks() {
  // Ten counters of twenty digits fit. The rest of the file grows with processors and interrupts.
  constexpr std::size_t firstLine = 256;
  const auto text = readFile(root_ / "proc/stat", firstLine);
  return text ? parseProcStat(*text) : std::nullopt;
}

}  // namespace quibbly::linux_services
