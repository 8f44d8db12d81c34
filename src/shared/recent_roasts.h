#pragma once

#include "records/recent_roast_history.h"
#include "shared/shared_storage.h"

namespace quibbly {

/// What was said lately, as all programs of the group remember it. Of two programs that remember at once the later one is
/// kept.
class RecentRoasts {
 public:
  explicit RecentRoasts(const SharedStorage& storage) : storage_(storage) {}

  /// Empty when there is none that can be read: then a line may come again.
  [[nodiscard]] RecentRoastHistory history() const;
  /// Remembers the history in place of the old one; what cannot be written is forgotten.
  void remember(const RecentRoastHistory& history) const;

 private:
  const SharedStorage& storage_;
};

}  // namespace quibbly
