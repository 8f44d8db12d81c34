// Runs every benchmark and prints one table: each figure beside its baseline of the same run, or beside a limit.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "comparison.h"

namespace quibbly::bench {

std::vector<Bound>& bounds() {
  static std::vector<Bound> all;
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
      if (run.error_occurred) {
        std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        failed_ = true;
        continue;
      }
      const double nanoseconds = run.GetAdjustedRealTime();
      const auto [place, isNew] = nanoseconds_.try_emplace(run.run_name.function_name, nanoseconds);
      if (!isNew) place->second = std::min(place->second, nanoseconds);
    }
  }
  /// Absent for a benchmark that did not run.
  [[nodiscard]] std::optional<double> nanoseconds(const std::string& name) const {
    const auto found = nanoseconds_.find(name);
    return found == nanoseconds_.end() ? std::nullopt : std::optional(found->second);
  }
  [[nodiscard]] bool failed() const { return failed_; }

 private:
  std::map<std::string, double> nanoseconds_;
  bool failed_ = false;
};

/// Prints one line; false when the bound is passed or could not be checked.
bool check(const FastestRun& fastest, const Bound& bound) {
  const bool isRatio = !bound.baseline.empty();
  const auto ours = fastest.nanoseconds(bound.measured);
  const auto theirs = isRatio ? fastest.nanoseconds(bound.baseline) : std::optional(1000.0);  // a limit is shown in us
  if (!ours || !theirs) {
    std::printf("%-16s %12s   %-18s\n", bound.measured.c_str(), "not run", bound.baseline.c_str());
    return false;
  }
  const double atMost = isRatio ? bound.atMost : bound.atMost / 1000;
  const double figure = *ours / *theirs;
  std::printf("%-16s %12.2f   %-18s %10.2f %12.3f %12.3f%s\n", bound.measured.c_str(), *ours / 1000,
              isRatio ? bound.baseline.c_str() : "(a time, us)", *theirs / 1000, figure, atMost,
              figure <= atMost ? "" : "  OVER");
  return figure <= atMost;
}

bool report(const FastestRun& fastest) {
  std::printf("%-16s %12s   %-18s %10s %12s %12s\n", "measured", "us", "baseline", "us", "ratio", "at most");
  bool allWithin = !fastest.failed();
  for (const Bound& bound : bounds()) allWithin = check(fastest, bound) && allWithin;
  return allWithin;
}

}  // namespace
}  // namespace quibbly::bench

int main(int argc, char** argv) {
  ::unsetenv("DISPLAY");  // samples are measured without one
  const auto container = std::filesystem::temp_directory_path() / ("quibbly-bench." + std::to_string(::getpid()));
  // A benchmark says nothing that the user would not hear again, and touches no preferences.
  for (const char* home : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"}) ::setenv(home, container.c_str(), 1);
  // What disturbs the machine for a second shall disturb a figure and its baseline alike.
  std::vector<char*> words(argv, argv + argc);
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  words.insert(words.begin() + 1, interleave.data());
  argc = static_cast<int>(words.size());
  benchmark::Initialize(&argc, words.data());
  quibbly::bench::FastestRun fastest;
  benchmark::RunSpecifiedBenchmarks(&fastest);
  std::error_code ignored;
  std::filesystem::remove_all(container, ignored);
  return quibbly::bench::report(fastest) ? 0 : 1;
}
