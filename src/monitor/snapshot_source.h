#pragma once

#include <functional>

#include "records/system_snapshot.h"

namespace quibbly {

/// Takes samples of the machine.
class SnapshotSource {
 public:
  using Answer = std::function<void(SystemSnapshot)>;

  virtual ~SnapshotSource() = default;
  /// One sample, complete and without fail, taken after those asked for before it. Does not wait: calls back with it once,
  /// on any thread; a sample that still waits when the source goes is never taken, one that is under way is answered before
  /// it is gone. Any thread.
  virtual void captureSnapshot(Answer answer) = 0;
};

}  // namespace quibbly
