#pragma once

#include <chrono>
#include <utility>

#include "fakes/samples.h"
#include "monitor/snapshot_source.h"
#include "platform/main_queue.h"

namespace quibbly::fakes {

/// A machine that is sampled within a moment of the test's choice, and always shows the same.
class FakeSnapshotSource : public SnapshotSource {
 public:
  explicit FakeSnapshotSource(MainQueue& queue) : queue_(queue) {}

  SystemSnapshot sample = quietSample();
  std::chrono::milliseconds takes{0};
  int taken = 0;

  void captureSnapshot(Answer answer) override {
    queue_.runAt(queue_.now() + takes, [this, answer = std::move(answer)] {
      ++taken;
      answer(sample);
    });
  }

 private:
  MainQueue& queue_;
};

}  // namespace quibbly::fakes
