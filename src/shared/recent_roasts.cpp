#include "shared/recent_roasts.h"

namespace quibbly {
namespace {

constexpr std::string_view fileName = "recentRoasts.json";

}  // namespace

RecentRoastHistory RecentRoasts::history() const {
  return storage_.read<RecentRoastHistory>(fileName).value_or(RecentRoastHistory::empty);
}

void RecentRoasts::remember(const RecentRoastHistory& history) const {
  [[maybe_unused]] const std::error_code forgotten = storage_.write(history, fileName);
}

}  // namespace quibbly
