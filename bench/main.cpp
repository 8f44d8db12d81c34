// Runs every benchmark and prints one table: each figure beside its baseline of the same run, their ratio, and the bound.

#include <algorithm>
#include <cstdio>
#include <map>

#include <QCoreApplication>
#include <benchmark/benchmark.h>

#include "comparison.h"

namespace quibbly::bench {

std::vector<Comparison>& comparisons() {
  static std::vector<Comparison> all;
  return all;
}

namespace {

/// Keeps the fastest of the repetitions: what disturbs a run only ever makes it slower.
class FastestRun : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const double nanoseconds = run.GetAdjustedRealTime();
      const auto [place, isNew] = nanoseconds_.try_emplace(run.run_name.function_name, nanoseconds);
      if (!isNew) place->second = std::min(place->second, nanoseconds);
    }
  }
  /// 0 for a benchmark that the filter left out.
  [[nodiscard]] double nanoseconds(const std::string& name) const {
    const auto found = nanoseconds_.find(name);
    return found == nanoseconds_.end() ? 0 : found->second;
  }

 private:
  std::map<std::string, double> nanoseconds_;
};

bool report(const FastestRun& fastest) {
  bool allWithin = true;
  std::printf("%-22s %12s   %-26s %12s %8s %8s\n", "measured", "us", "baseline", "us", "ratio", "at most");
  for (const auto& [measured, baseline, atMost] : comparisons()) {
    const double ours = fastest.nanoseconds(measured);
    const double theirs = fastest.nanoseconds(baseline);
    if (ours == 0 || theirs == 0) continue;
    const bool within = ours <= theirs * atMost;
    allWithin = allWithin && within;
    std::printf("%-22s %12.2f   %-26s %12.2f %8.3f %8.3f%s\n", measured.c_str(), ours / 1000, baseline.c_str(),
                theirs / 1000, ours / theirs, atMost, within ? "" : "  OVER");
  }
  return allWithin;
}

}  // namespace
}  // namespace quibbly::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  quibbly::bench::FastestRun fastest;
  benchmark::RunSpecifiedBenchmarks(&fastest);
  return quibbly::bench::report(fastest) ? 0 : 1;
}
