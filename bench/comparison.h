#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace quibbly::bench {

/// How much a thing may take. Names are those of benchmarks of the same run, or of their counters.
struct Bound {
  enum class Kind { ratio, time, count };

  Kind kind;
  std::string measured;
  /// What it is compared with, so that a slow or a noisy machine slows both; empty unless the bound is a ratio.
  std::string baseline;
  /// Times the baseline, or nanoseconds, or as many.
  double atMost;
};

/// Filled where the benchmarks are, checked after all of them have run.
std::vector<Bound>& bounds();

/// Adds a bound; stands at namespace scope behind the benchmark.
struct Compare {
  Compare(std::string measured, std::string baseline, double atMostTimes) {
    bounds().push_back({Bound::Kind::ratio, std::move(measured), std::move(baseline), atMostTimes});
  }
};
struct Limit {
  Limit(std::string measured, std::chrono::nanoseconds atMost) {
    bounds().push_back({Bound::Kind::time, std::move(measured), "", static_cast<double>(atMost.count())});
  }
  Limit(std::string counter, double atMost) {
    bounds().push_back({Bound::Kind::count, std::move(counter), "", atMost});
  }
};

}  // namespace quibbly::bench
