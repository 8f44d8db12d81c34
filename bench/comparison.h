#pragma once

#include <chrono>
#include <limits>
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
  /// Whether it is no fault when nothing was measured.
  bool isOptional = false;
};

/// Filled where the benchmarks are, checked after all of them have run.
std::vector<Bound>& bounds();

/// Adds a bound; stands at namespace scope behind the benchmark.
struct Compare {
  Compare(std::string measured, std::string baseline, double atMostTimes) {
    bounds().push_back({Bound::Kind::ratio, std::move(measured), std::move(baseline), atMostTimes});
  }
};
/// Shows the two beside one another where both were measured, and asks nothing of them.
struct Beside {
  Beside(std::string measured, std::string other) {
    constexpr double anything = std::numeric_limits<double>::infinity();
    bounds().push_back({Bound::Kind::ratio, std::move(measured), std::move(other), anything, true});
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
