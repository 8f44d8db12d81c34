#include <cstdlib>
#include <filesystem>
#include <malloc.h>

#include <benchmark/benchmark.h>

#include "comparison.h"
#include "fakes/application_home.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

/// A roast after another, each announced while the daily limit lasts, on a clock that is moved on. A day's roasts are followed by a day's rest.
class RoastAfterRoast {
 public:
  RoastAfterRoast() : home_(std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "growth") {
    home_.launchApp().setDailyRoastLimit(256);
    model().start();
  }

  void make(int roasts) {
    for (int made = 0; made < roasts; ++made) {
      home_.machine.sample.memoryUtilizationEstimate = 0.3 + 0.001 * (made % 600);
      model().handleOpenURL("quibbly://roast");
      home_.queue.advance(untilNext);
      // What the fakes remember is none of the application's.
      home_.center.delivered = {};
      home_.center.removed = {};
      home_.desktop.calls = {};
      home_.widgetCenter.reloads = {};
    }
  }

 private:
  AppModel& model() { return *home_.app->appModel; }

  /// Longer than the reloads that end a roast: one that is asked for before is dropped.
  static constexpr std::chrono::seconds untilNext = 6s;
  /// Nothing is left to be withdrawn by then, and the limit begins anew.
  static constexpr std::chrono::hours untilNextDay = 24h;

  fakes::ApplicationHome home_;
};

double bytesInUse() { return static_cast<double>(::mallinfo2().uordblks); }

/// The memory that ten minutes of one roast a second leave behind, once the history is full and every line was filled in.
void sixHundredRoasts(benchmark::State& state) {
  for (auto _ : state) {
    RoastAfterRoast application;
    application.make(600);
    const double before = bytesInUse();
    application.make(600);
    state.counters["bytesGrown"] = bytesInUse() - before;
  }
}
BENCHMARK(sixHundredRoasts)->Iterations(1);

const Limit growthLimit("bytesGrown", 4096.0);

}  // namespace
}  // namespace quibbly::bench
