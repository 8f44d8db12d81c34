#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quibbly::bench {

/// How many times as long as its baseline a thing may take. Both are names of benchmarks of the same run, so that a slow
/// or a noisy machine slows both.
struct Comparison {
  std::string measured;
  std::string baseline;
  double atMost;
};

/// Filled where the benchmarks are, printed after all of them have run.
std::vector<Comparison>& comparisons();

/// Adds a comparison; stands at namespace scope behind the benchmark.
struct Compare {
  Compare(std::string measured, std::string baseline, double atMost) {
    comparisons().push_back({std::move(measured), std::move(baseline), atMost});
  }
};

}  // namespace quibbly::bench
