#include <cstdint>
#include <limits>
#include <string>

#include "fuzz/fuzzer.h"
#include "platform/linux/meminfo.h"
#include "platform/linux/proc_stat.h"
#include "platform/linux/text_fields.h"

namespace quibbly::fuzz {
namespace {

using namespace linux_services;

void tryProcStat(std::string_view text) {
  const auto ticks = parseProcStat(text);
  demand(!ticks || trimmed(text).starts_with("cpu"), "counters are those of the first line");
  demand(parseProcStat(std::string(text) + "cpu 1 2 3 4\n") == ticks || !text.contains('\n'),
         "nothing after the first line counts");
}

void tryMemInfo(std::string_view text, std::uint64_t compressedSwap) {
  const auto use = parseMemInfo(text, compressedSwap).use;
  if (!use) return;
  demand(use->compressorBytes <= use->physicalBytes, "no more is compressed than there is");
  demand(use->wiredBytes <= use->physicalBytes - use->compressorBytes, "no more is pinned than is left");
  demand(use->activeBytes <= use->physicalBytes - use->compressorBytes - use->wiredBytes,
         "no more is used than there is");
  const auto withoutSwap = parseMemInfo(text, 0).use;
  demand(withoutSwap && withoutSwap->activeBytes + withoutSwap->wiredBytes + withoutSwap->compressorBytes ==
                            use->activeBytes + use->wiredBytes + use->compressorBytes,
         "what is compressed is part of what is used");
}

}  // namespace

void tryInput(std::string_view input) {
  const auto parts = partsOf(input, 2);
  tryProcStat(parts[0]);
  tryMemInfo(parts[0], parseCompressedSwap(parts[1]));
  tryMemInfo(parts[0], std::numeric_limits<std::uint64_t>::max());
}

}  // namespace quibbly::fuzz
