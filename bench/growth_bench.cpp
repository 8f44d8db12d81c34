#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <variant>

#include <benchmark/benchmark.h>

#include "app/preference_keys.h"
#include "comparison.h"
#include "fakes/application_home.h"

namespace quibbly::bench {
namespace {

using namespace std::chrono_literals;

std::size_t entriesIn(const std::filesystem::path& directory) {
  return static_cast<std::size_t>(std::ranges::distance(std::filesystem::directory_iterator(directory)));
}

/// Days on which one roast follows another, each announced while the daily limit lasts, on a clock that is moved on.
class RoastAfterRoast {
 public:
  static constexpr std::size_t dailyLimit = 256;

  RoastAfterRoast() : home_(std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "growth") {
    home_.launchApp().setDailyRoastLimit(dailyLimit);
    model().start();
  }

  void passADayWith(int roasts) {
    for (int made = 0; made < roasts; ++made) {
      home_.machine.sample.memoryUtilizationEstimate = 0.3 + 0.001 * (made % 600);
      model().handleOpenURL("quibbly://roast");
      home_.queue.advance(untilNext);
      announced_ += home_.center.delivered.size();
      // What the fakes remember is none of the application's.
      home_.center.delivered = {};
      home_.center.removed = {};
      home_.desktop.calls = {};
      home_.widgetCenter.reloads = {};
    }
    home_.queue.advance(untilWithdrawn);
    home_.group.clock.atZero += 24h;
  }
  [[nodiscard]] std::size_t announced() const { return announced_; }

 private:
  AppModel& model() { return *home_.app->appModel; }

  /// Longer than the reloads that end a roast: one that is asked for before is dropped.
  static constexpr std::chrono::seconds untilNext = 6s;
  static constexpr std::chrono::minutes untilWithdrawn = 4min;

  fakes::ApplicationHome home_;
  std::size_t announced_ = 0;
};

/// Days that pass by themselves, on a clock that is moved on.
class DayAfterDay {
 public:
  static constexpr std::size_t dailyLimit = 100;

  DayAfterDay() : home_(container()) {
    home_.launchApp().setDailyRoastLimit(dailyLimit);
    model().start();
    model().randomRoastInterval = RandomRoastInterval::fiveMinutes;
    model().restartRandomRoastLoop();
  }

  void passADay() {
    for (int quarter = 0; quarter < 4 * 24; ++quarter) {
      home_.machine.sample.memoryUtilizationEstimate = 0.3 + 0.005 * quarter;
      home_.queue.advance(15min);
      announced_ += home_.center.removed.size();
      home_.center.removed = {};
      home_.desktop.calls = {};
      home_.widgetCenter.reloads = {};
    }
  }
  [[nodiscard]] std::size_t announced() const { return announced_; }
  [[nodiscard]] std::size_t waiting() const { return home_.queue.waiting(); }
  [[nodiscard]] std::size_t historyLength() const { return home_.recentRoasts.history().texts.size(); }
  [[nodiscard]] std::size_t containerEntries() const { return entriesIn(container()); }
  [[nodiscard]] std::size_t storedPairs() {
    return home_.preferences.all()->size() + home_.group.preferences.all()->size();
  }
  [[nodiscard]] std::int64_t countedToday() {
    return std::get<std::int64_t>(home_.preferences.all()->at(preference_keys::roastDayCount));
  }

 private:
  static std::filesystem::path container() { return std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "days"; }
  AppModel& model() { return *home_.app->appModel; }

  fakes::ApplicationHome home_;
  std::size_t announced_ = 0;
};

double bytesInUse() { return static_cast<double>(::mallinfo2().uordblks); }

/// The memory that ten minutes of one roast a second leave behind, once the history is full and every line was filled
/// in.
void sixHundredRoasts(benchmark::State& state) {
  for (auto _ : state) {
    RoastAfterRoast application;
    application.passADayWith(600);
    const double before = bytesInUse();
    application.passADayWith(600);
    state.counters["bytesGrown"] = bytesInUse() - before;
    if (application.announced() != 2 * RoastAfterRoast::dailyLimit) state.SkipWithError("too little was announced");
  }
}
BENCHMARK(sixHundredRoasts)->Iterations(1);

const Limit growthLimit("bytesGrown", 4096, Unit::bytes);

/// What there is at the end of a day of all that must not become more.
struct Holdings {
  explicit Holdings(DayAfterDay& application)
      : bytes(bytesInUse()),
        work(static_cast<double>(application.waiting())),
        descriptors(static_cast<double>(entriesIn("/proc/self/fd"))),
        entries(static_cast<double>(application.containerEntries())),
        pairs(static_cast<double>(application.storedPairs())) {}

  double bytes;
  double work;
  double descriptors;
  double entries;
  double pairs;
};

/// 24 hours in which nobody does anything but the program itself: it samples, publishes, and roasts every five minutes.
/// What such a day leaves behind, after one that filled all there is to be filled.
void aDay(benchmark::State& state) {
  for (auto _ : state) {
    DayAfterDay application;
    application.passADay();
    const Holdings before(application);
    application.passADay();
    const Holdings after(application);
    state.counters["bytesGrownInADay"] = after.bytes - before.bytes;
    state.counters["workGrownInADay"] = after.work - before.work;
    state.counters["descriptorsGrownInADay"] = after.descriptors - before.descriptors;
    state.counters["entriesGrownInADay"] = after.entries - before.entries;
    state.counters["pairsGrownInADay"] = after.pairs - before.pairs;
    state.counters["historyAfterADay"] = static_cast<double>(application.historyLength());
    state.counters["countedAfterADay"] = static_cast<double>(application.countedToday());
    if (application.announced() < 2 * DayAfterDay::dailyLimit) state.SkipWithError("too little was announced");
  }
}
BENCHMARK(aDay)->Iterations(1);

const Limit dayLimit("bytesGrownInADay", 4096, Unit::bytes);
const Limit workLimit("workGrownInADay", 0, Unit::count);
const Limit descriptorsLimit("descriptorsGrownInADay", 0, Unit::count);
const Limit entriesLimit("entriesGrownInADay", 0, Unit::count);
const Limit pairsLimit("pairsGrownInADay", 0, Unit::count);
const Limit historyLimit("historyAfterADay", 12, Unit::count);
const Limit countedLimit("countedAfterADay", DayAfterDay::dailyLimit, Unit::count);

}  // namespace
}  // namespace quibbly::bench
