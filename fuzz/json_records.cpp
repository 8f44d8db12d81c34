#include <string_view>

#include "fuzz/fuzzer.h"
#include "shared/json_coding.h"

namespace quibbly::fuzz {
namespace {

template <typename Record>
void tryRecord(std::string_view text) {
  const auto record = decodeRecord<Record>(text);
  if (!record) return;
  const auto written = encodeRecord(*record);
  demand(written.has_value(), "what was read can be written");
  demand(written && decodeRecord<Record>(*written) == *record, "what was written reads back to the same record");
}

}  // namespace

void tryInput(std::string_view input) {
  tryRecord<LastRoast>(input);
  tryRecord<RecentRoastHistory>(input);
  tryRecord<WidgetSnapshot>(input);
  tryRecord<WidgetGeneration>(input);
  tryRecord<RoastRequest>(input);
  tryRecord<PendingNotify>(input);
  tryRecord<SystemSnapshot>(input);
}

}  // namespace quibbly::fuzz
