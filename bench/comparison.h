#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace quibbly::bench {

/// What a figure counts. A time is in nanoseconds.
enum class Unit { time, bytes, perSecond, count };

/// How much a thing may take. Names are those of benchmarks of the same run, or of their counters.
struct Bound {
  std::string measured;
  /// What it is compared with, so that a slow or a noisy machine slows both; empty for nothing.
  std::string baseline;
  Unit unit;
  /// So many times the baseline, or so much, whichever is larger.
  double atMostTimes;
  double atMost;
  /// Two that are shown beside one another where both were measured, and nothing is asked of them.
  bool isOnlyShown = false;
};

/// Filled where the benchmarks are, checked after all of them have run.
std::vector<Bound>& bounds();

/// Adds a bound; stands at namespace scope behind the benchmark.
struct Compare {
  Compare(std::string measured, std::string baseline, double atMostTimes, Unit unit = Unit::time) {
    bounds().push_back({std::move(measured), std::move(baseline), unit, atMostTimes, 0});
  }
  Compare(std::string measured, std::string baseline, double atMostTimes, std::chrono::nanoseconds orAtMost) {
    const auto atMost = static_cast<double>(orAtMost.count());
    bounds().push_back({std::move(measured), std::move(baseline), Unit::time, atMostTimes, atMost});
  }
};
struct Beside {
  Beside(std::string measured, std::string other, Unit unit = Unit::time) {
    bounds().push_back({std::move(measured), std::move(other), unit, 0, 0, true});
  }
};
struct Limit {
  Limit(std::string measured, std::chrono::nanoseconds atMost) {
    bounds().push_back({std::move(measured), "", Unit::time, 0, static_cast<double>(atMost.count())});
  }
  Limit(std::string measured, double atMost, Unit unit) {
    bounds().push_back({std::move(measured), "", unit, 0, atMost});
  }
};

}  // namespace quibbly::bench
