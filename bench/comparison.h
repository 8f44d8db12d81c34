#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace quibbly::bench {

/// How long a thing may take. Names are those of benchmarks of the same run.
struct Bound {
  std::string measured;
  /// What it is compared with, so that a slow or a noisy machine slows both; empty when the bound is a time.
  std::string baseline;
  /// Times the baseline, or nanoseconds.
  double atMost;
};

/// Filled where the benchmarks are, checked after all of them have run.
std::vector<Bound>& bounds();

/// Adds a bound; stands at namespace scope behind the benchmark.
struct Compare {
  Compare(std::string measured, std::string baseline, double atMostTimes) {
    bounds().push_back({std::move(measured), std::move(baseline), atMostTimes});
  }
};
struct Limit {
  Limit(std::string measured, std::chrono::nanoseconds atMost) {
    bounds().push_back({std::move(measured), "", static_cast<double>(atMost.count())});
  }
};

}  // namespace quibbly::bench
